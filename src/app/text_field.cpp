#include "app/text_field.h"

#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionFrame>
#include <utility>

#include "app/qt_text.h"

namespace karvel {

TextField::TextField(const DeskUi& ui, Element& element, QWidget* parent) : QLineEdit(parent), ui_(ui), element_(element) {
  setContextMenuPolicy(Qt::PreventContextMenu);
  setDragEnabled(false);
  setMaxLength(static_cast<int>(Element::kMostTyped));
  connect(this, &QLineEdit::textChanged, this, [this] {
    FitAmount();
    TakeEdit();
  });
  connect(this, &QLineEdit::cursorPositionChanged, this, [this] { TakeSelection(); });
  connect(this, &QLineEdit::selectionChanged, this, [this] { TakeSelection(); });
}

void TextField::ApplyFont() {
  setFont(ui_.theme.Font(amount_ ? FontRole::Amount : FontRole::Field, ToQt(element_.FontName())));
  FitAmount();
}

void TextField::FitAmount() {
  if (!amount_) return;
  const int least = ui_.theme.Px(12);
  constexpr int kCaretRoom = 6;
  QStyleOptionFrame option;
  initStyleOption(&option);
  const int room = style()->subElementRect(QStyle::SE_LineEditContents, &option, this).width() - kCaretRoom;
  QFont fitted = ui_.theme.Font(FontRole::Amount, ToQt(element_.FontName()));
  while (fitted.pixelSize() > least && QFontMetrics(fitted).horizontalAdvance(text()) > room) fitted.setPixelSize(fitted.pixelSize() - 1);
  if (fitted != font()) setFont(fitted);
}

void TextField::resizeEvent(QResizeEvent* event) {
  QLineEdit::resizeEvent(event);
  FitAmount();
}

void TextField::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  entering_ = event->reason() == Qt::MouseFocusReason;
}

void TextField::mousePressEvent(QMouseEvent* event) {
  if (!entering_) QLineEdit::mousePressEvent(event);
}

void TextField::mouseMoveEvent(QMouseEvent* event) {
  if (!entering_) QLineEdit::mouseMoveEvent(event);
}

void TextField::mouseReleaseEvent(QMouseEvent* event) {
  if (!std::exchange(entering_, false)) QLineEdit::mouseReleaseEvent(event);
}

void TextField::SetAmount(bool amount) {
  amount_ = amount;
  setAlignment((amount ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  ApplyFont();
}

void TextField::Sync() {
  if (isReadOnly() != element_.Locked()) setReadOnly(element_.Locked());
  const bool outer = syncing_;
  syncing_ = true;
  const QString wanted = ToQt(element_.Text());
  bool fresh = false;
  if (wanted != text()) {
    setText(wanted);
    fresh = true;
  }
  const int start = UnitOfLetter(wanted, element_.SelectionStart());
  const int length = UnitOfLetter(wanted, element_.SelectionStart() + element_.SelectionLength()) - start;
  const bool echo = editing_ && !fresh && start == 0 && length == 0;
  const int shownStart = hasSelectedText() ? selectionStart() : cursorPosition();
  if (!echo && (fresh || start != shownStart || length != selectionLength())) {
    if (length > 0)
      setSelection(start, length);
    else
      setCursorPosition(start);
    if (length == 0) deselect();
  }
  syncing_ = outer;
}

void TextField::Type(char32_t character) {
  if (isReadOnly()) return;
  if (character == key::kBackspace)
    backspace();
  else if (character >= 32)
    insert(QString::fromUcs4(&character, 1));
}

void TextField::TakeEdit() {
  if (syncing_) return;
  const std::string typed = ToUtf8(text());
  editing_ = true;
  element_.SetText(typed);
  editing_ = false;
  if (element_.Text() == typed && element_.SelectionStart() == 0 && element_.SelectionLength() == 0)
    element_.Select(LettersBefore(text(), cursorPosition()), 0);
}

void TextField::TakeSelection() {
  if (syncing_ || editing_ || ToUtf8(text()) != element_.Text()) return;
  const QString shown = text();
  if (!hasSelectedText()) {
    element_.Select(LettersBefore(shown, cursorPosition()), 0);
    return;
  }
  const int start = LettersBefore(shown, selectionStart());
  element_.Select(start, LettersBefore(shown, selectionEnd()) - start);
}

}  // namespace karvel
