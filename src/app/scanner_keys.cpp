#include "app/scanner_keys.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QWidget>
#include <algorithm>
#include <utility>

#include "app/code_scanner.h"
#include "app/key_codes.h"
#include "app/qt_text.h"
#include "app/text_field.h"
#include "desk/element.h"
#include "platform/log.h"

namespace karvel {
namespace {

constexpr int kLeastLetters = 4;  // of a code
constexpr int kLeastInEntry = 8;  // of a barcode; fewer digits are an amount
constexpr int kMostLetters = 1024;
constexpr int kGapMilliseconds = 35;     // within a burst; no hand is that fast for long
constexpr int kHeldMilliseconds = 45;    // from the last letter on
constexpr int kLateMilliseconds = 20;    // a timer that comes this late was held up by work, and so were keys
constexpr int kAloneMilliseconds = 500;  // of silence before a code; after less it is the rest of one
constexpr qint64 kLongAgo = 60'000;

// Who gets the keys now; null where no widget of ours has the focus.
QWidget* KeyHolder() {
  if (QWidget* const popup = QApplication::activePopupWidget()) return popup->focusWidget() ? popup->focusWidget() : popup;
  return QApplication::focusWidget();
}

QWidget* KeyReceiver() {
  QWidget* const holder = KeyHolder();
  return holder ? holder : QApplication::activeWindow();
}

// A key that its widget doesn't want is offered to those around it: only the first of them counts.
bool IsKeyHolder(const QObject* object) {
  if (const QWidget* const holder = KeyHolder()) return object == holder;
  return object && object->isWidgetType() && static_cast<const QWidget*>(object)->isWindow();
}

bool IsEntryField(const QWidget* widget) {
  if (const auto* const line = qobject_cast<const QLineEdit*>(widget)) return !line->isReadOnly();
  if (const auto* const spin = qobject_cast<const QAbstractSpinBox*>(widget)) return !spin->isReadOnly();
  const auto* const combo = qobject_cast<const QComboBox*>(widget);
  return combo && combo->isEditable();
}

std::unique_ptr<QKeyEvent> Copy(const QKeyEvent& event) {
  return std::unique_ptr<QKeyEvent>(event.clone());
}

bool TakeKey(std::vector<int>& keys, int key) {
  const auto found = std::find(keys.begin(), keys.end(), key);
  if (found == keys.end()) return false;
  keys.erase(found);
  return true;
}

}  // namespace

ScannerKeys::ScannerKeys(CodeScanner& scanner) : scanner_(scanner) {
  patience_.setSingleShot(true);
  patience_.setTimerType(Qt::PreciseTimer);
  connect(&patience_, &QTimer::timeout, this, &ScannerKeys::TimedOut);
  QCoreApplication::instance()->installEventFilter(this);
}

void ScannerKeys::Settle() {
  Arrive();
  EndRun();
  codeEnded_ = false;
  sinceLast_.invalidate();
}

void ScannerKeys::EndRun() {
  run_ = Run::None;
  fast_ = 0;
}

bool ScannerKeys::Collects() const {
  return run_ == Run::Held || scanner_.Reporting() || !IsEntryField(KeyHolder());
}

bool ScannerKeys::eventFilter(QObject* object, QEvent* event) {
  // Keys that the program sends are no one's typing; what was held back arrives the same way.
  if (!event->spontaneous()) return false;
  switch (event->type()) {
    case QEvent::KeyPress:
      return IsKeyHolder(object) && Press(object, *static_cast<QKeyEvent*>(event));
    case QEvent::KeyRelease:
      return IsKeyHolder(object) && Release(*static_cast<QKeyEvent*>(event));
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
      Arrive();
      EndRun();
      return false;
    default:
      return false;
  }
}

bool ScannerKeys::Press(QObject* object, const QKeyEvent& event) {
  if (IsModifier(event.key())) return false;
  const QPointer<QObject> target(object);  // what arrives before the key may destroy it
  TakeKey(takenDown_, event.key());
  const qint64 gap = Gap(event);
  const bool prompt = gap <= kGapMilliseconds;
  const char32_t letter = event.isAutoRepeat() ? 0 : CharacterOf(event);
  if (letter == key::kEnter && !(event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier)))
    return PressEnter(target, event, prompt);
  codeEnded_ = false;
  if (letter < ' ') {
    const bool ends = PassOn(target, event);
    EndRun();
    return ends;
  }
  if (!prompt || run_ == Run::None) {
    Arrive();
    alone_ = run_ == Run::None || gap > kAloneMilliseconds;
    run_ = Run::None;
    if (alone_) fast_ = 0;
  } else {
    ++fast_;
  }
  // A blank presses a button, which answers at once; no code begins with one.
  const bool begins = run_ == Run::None && letter != ' ';
  if (!Collects() || text_.size() >= kMostLetters || (run_ != Run::Held && !begins)) {
    FollowEntry(event);
    const bool ends = PassOn(target, event);
    run_ = Run::Arrived;
    return ends;
  }
  Hold(event);
  return true;
}

void ScannerKeys::FollowEntry(const QKeyEvent& event) {
  auto* const field = qobject_cast<TextField*>(KeyHolder());
  if (run_ == Run::None) entry_ = field && !field->KeepsCodes() ? EntryRun{field, field->ElementText(), {}} : EntryRun{};
  if (entry_.field && entry_.letters.size() < kMostLetters) entry_.letters += event.text();
}

bool ScannerKeys::IsCodeInEntry(bool prompt) const {
  return prompt && run_ == Run::Arrived && alone_ && fast_ >= kLeastInEntry - 1 && entry_.field && entry_.field == KeyHolder();
}

void ScannerKeys::Report(const QString& code) {
  // Not from within the key event: a code's handlers let events run.
  QMetaObject::invokeMethod(this, [this, text = ToUtf8(code)] { scanner_.Take(text); }, Qt::QueuedConnection);
}

bool ScannerKeys::PressEnter(const QObject* target, const QKeyEvent& event, bool prompt) {
  if (IsCodeInEntry(prompt)) {
    takenDown_.push_back(event.key());
    EndRun();
    codeEnded_ = true;
    const EntryRun run = std::exchange(entry_, {});
    Report(run.letters);
    run.field->PutBack(run.before);
    return true;
  }
  const bool burst = prompt && fast_ >= kLeastLetters - 1 && Collects();
  const bool isCode = burst && run_ == Run::Held && alone_;
  const bool second = prompt && codeEnded_;  // of a scanner that ends a code with CR and LF
  codeEnded_ = burst || second;
  if (!codeEnded_) {
    const bool ends = PassOn(target, event);
    EndRun();
    return ends;
  }
  EndRun();
  takenDown_.push_back(event.key());
  patience_.stop();
  held_.clear();
  target_.clear();
  takenDown_.insert(takenDown_.end(), heldDown_.begin(), heldDown_.end());
  heldDown_.clear();
  const QString text = std::exchange(text_, {});
  if (!isCode) {
    if (!second) Log("scanner: a typed code broke off and is dropped");
    return true;
  }
  Report(text);
  return true;
}

bool ScannerKeys::Release(const QKeyEvent& event) {
  if (event.isAutoRepeat()) return false;
  if (TakeKey(heldDown_, event.key())) {
    held_.push_back(Copy(event));
    return true;
  }
  return TakeKey(takenDown_, event.key());
}

void ScannerKeys::Hold(const QKeyEvent& event) {
  if (held_.empty()) target_ = KeyReceiver();
  held_.push_back(Copy(event));
  heldDown_.push_back(event.key());
  text_ += event.text();
  run_ = Run::Held;
  patienceRenewed_ = false;
  sinceHeld_.start();
  patience_.start(kHeldMilliseconds);
}

bool ScannerKeys::PassOn(const QObject* target, const QKeyEvent& event) {
  if (target_ && !IsKeyHolder(target_)) Arrive();
  if (held_.empty() && IsKeyHolder(target)) return false;
  held_.push_back(Copy(event));
  Arrive();
  return true;
}

void ScannerKeys::Arrive() {
  patience_.stop();
  text_.clear();
  heldDown_.clear();
  if (run_ == Run::Held) run_ = Run::Arrived;
  // Letters meant for a widget that has lost the focus are dropped: they are nobody else's. After the first, each goes to whoever then has
  // the focus.
  if (target_ && !IsKeyHolder(target_)) held_.clear();
  target_.clear();
  while (!held_.empty()) {
    const std::unique_ptr<QKeyEvent> event = std::move(held_.front());
    held_.pop_front();
    if (!held_.empty()) patience_.start(0);  // if a handler lets events run, the rest arrive then
    if (QWidget* const receiver = KeyReceiver()) QCoreApplication::sendEvent(receiver, event.get());
  }
  patience_.stop();
}

void ScannerKeys::TimedOut() {
  // The keys that came during a piece of work are still in the queue after it, and they decide.
  if (run_ == Run::Held && !patienceRenewed_ && sinceHeld_.elapsed() > kHeldMilliseconds + kLateMilliseconds) {
    patienceRenewed_ = true;
    patience_.start(kHeldMilliseconds);
    return;
  }
  Arrive();
}

qint64 ScannerKeys::Gap(const QKeyEvent& event) {
  const quint64 stamp = event.timestamp();
  const quint64 before = std::exchange(lastStamp_, stamp);
  if (!sinceLast_.isValid()) {
    sinceLast_.start();
    return kLongAgo;
  }
  const qint64 heard = sinceLast_.restart();
  if (stamp == 0 || before == 0) return heard;
  // Told by the clock of the window system, which knows when a key was struck; a desk at work hears of it later.
  return stamp >= before ? static_cast<qint64>(stamp - before) : kLongAgo;
}

}  // namespace karvel
