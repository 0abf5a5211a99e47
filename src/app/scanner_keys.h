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
// - In an entry field keys arrive at once, whoever struck them. Only while the desk is entering a code, which occupies the product field,
//   does the next burst wait its turn as a code.
// - An amount never keeps a code, nor does a field beside the one for barcodes in a new item's panel: one of a barcode's length, typed
// faster
//   than any hand, is taken out again at its Enter and is then a code like any other.
// - Elsewhere a letter is held back as long as it may begin a burst, about a twentieth of a second; then it arrives after all, in order and
//   only once. Any other key, and a tap, first lets what is held back arrive, so that nothing overtakes it.
// - A code is taken whole or not at all, wherever the focus goes meanwhile: the rest of a burst that broke off is not taken for a shorter
//   code. Its Enter ends here too.
class ScannerKeys : public QObject {
  Q_OBJECT

 public:
  // Listens to the application from here on. The scanner is borrowed.
  explicit ScannerKeys(CodeScanner& scanner);

  // Lets what is held back arrive now; the next key begins a new run.
  void Settle();

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  enum class Run { None, Held, Arrived };
  // A run that arrives in a field that keeps no code, and what stood there before.
  struct EntryRun {
    QPointer<TextField> field;
    std::string before;
    QString letters;
  };

  // True: the key ends here.
  bool Press(QObject* target, const QKeyEvent& event);
  bool Release(const QKeyEvent& event);
  bool PressEnter(const QObject* target, const QKeyEvent& event, bool prompt);
  void FollowEntry(const QKeyEvent& event);
  [[nodiscard]] bool IsCodeInEntry(bool prompt) const;
  void Report(const QString& code);
  // Whether a letter may belong to a code. The place where the burst began decides, not where the focus went meanwhile.
  [[nodiscard]] bool Collects() const;
  void EndRun();
  void Hold(const QKeyEvent& event);
  // Lets the key arrive after what is held back. True: it ends here.
  bool PassOn(const QObject* target, const QKeyEvent& event);
  void Arrive();
  void TimedOut();
  // Milliseconds since the key before.
  [[nodiscard]] qint64 Gap(const QKeyEvent& event);

  CodeScanner& scanner_;
  std::deque<std::unique_ptr<QKeyEvent>> held_;
  QPointer<QObject> target_;  // the receiver of the first of them; null once it has arrived
  QString text_;
  Run run_ = Run::None;  // of letters that came close after one another
  bool alone_ = false;   // no other letters stood shortly before the run
  int fast_ = 0;         // letters that came close after another, in this run and those shortly before
  EntryRun entry_;
  bool codeEnded_ = false;                 // the last key was a code's Enter
  std::vector<int> heldDown_, takenDown_;  // keys that were struck and not yet let go
  quint64 lastStamp_ = 0;
  QElapsedTimer sinceLast_, sinceHeld_;
  QTimer patience_;
  bool patienceRenewed_ = false;
};

}  // namespace karvel
