#pragma once

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <deque>
#include <memory>
#include <vector>

namespace karvel {

class CodeScanner;
class TextField;

// The keys of a scanner that types as a keyboard does. Where nobody would enter a text (a grid, a button, a box, nothing), a burst of
// letters that ends with Enter is a scanned code; the widget that has the focus then sees none of its keys, least of all the Enter.
//
// What stays true:
// - In an entry field keys arrive at once, whoever struck them. Only while a code is being entered, which holds the product field itself,
//   does the next burst wait its turn as a code.
// - An amount never keeps a code: one of a barcode's length that was typed into it as no hand could is taken out again at its Enter, and is
//   then a code like any other.
// - Elsewhere a letter is held back as long as it may begin a burst, about a twentieth of a second; then it arrives after all, in order and
//   once. Every other key, and a tap, first brings what is held back, so that nothing overtakes.
// - A code is whole or none, wherever the focus goes meanwhile: a burst that broke off is not taken for the shorter code that its rest
// would be. Its Enter ends here too.
class ScannerKeys : public QObject {
  Q_OBJECT

 public:
  // Listens to the application from here on. The scanner is borrowed.
  explicit ScannerKeys(CodeScanner& scanner);

  // What is held back arrives now, and the next key begins anew.
  void Settle();

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  enum class Run { None, Held, Arrived };
  // A run that arrives in an amount field, and what stood there before.
  struct AmountRun {
    QPointer<TextField> field;
    std::string before;
    QString letters;
  };

  // True: the key ends here.
  bool Press(QObject* target, const QKeyEvent& event);
  bool Release(const QKeyEvent& event);
  bool PressEnter(const QObject* target, const QKeyEvent& event, bool prompt);
  void FollowAmount(const QKeyEvent& event);
  [[nodiscard]] bool IsCodeInAmount(bool prompt) const;
  void Report(const QString& code);
  // Whether a letter may belong to a code: where the burst began, not where the focus went meanwhile.
  [[nodiscard]] bool Collects() const;
  void EndRun();
  void Hold(const QKeyEvent& event);
  // The key arrives, behind what is held back.
  bool PassOn(const QObject* target, const QKeyEvent& event);
  void Arrive();
  void TimedOut();
  // Milliseconds since the key before.
  [[nodiscard]] qint64 Gap(const QKeyEvent& event);

  CodeScanner& scanner_;
  std::deque<std::unique_ptr<QKeyEvent>> held_;
  QPointer<QObject> target_;  // who was to get the first of them; null once it did
  QString text_;
  Run run_ = Run::None;  // of letters that came close behind each other
  bool alone_ = false;   // no other letters stood shortly before the run
  int fast_ = 0;         // letters that came close behind another, in this run and those shortly before
  AmountRun amount_;
  bool codeEnded_ = false;                 // the last key was a code's Enter
  std::vector<int> heldDown_, takenDown_;  // keys that were struck and not yet let go
  quint64 lastStamp_ = 0;
  QElapsedTimer sinceLast_, sinceHeld_;
  QTimer patience_;
  bool patienceRenewed_ = false;
};

}  // namespace karvel
