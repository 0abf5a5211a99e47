// A text box: an edit line that shows its element's text and selection and hands edits back.
//
// A tap that brings the focus leaves the caret where the desk puts it on entry; the next one places it under the finger. An amount that is
// longer than its field is written smaller, never cut.
//
// What stays true: after an edit the element has the new text before its handlers run, and the caret where the edit left it, unless a
// handler placed the caret or wrote another text.
#pragma once

#include <QLineEdit>
#include <functional>
#include <utility>

#include "app/desk_ui.h"

namespace karvel {

class TextField : public QLineEdit {
  Q_OBJECT

 public:
  TextField(const DeskUi& ui, Element& element, QWidget* parent);
  // Shows the element as it is now.
  void Sync();
  // The edit of one character: a letter is inserted, Backspace (8) deletes, anything else has no edit of its own.
  void Type(char32_t character);
  // Amounts stand at the right, in a larger type.
  void SetAmount(bool amount);
  // Whether a code that a scanner types here was meant for this field: never for an amount, nor while its codes belong elsewhere.
  [[nodiscard]] bool KeepsCodes() const { return !amount_ && !(codesElsewhere_ && codesElsewhere_()); }
  void SetCodesElsewhere(std::function<bool()> elsewhere) { codesElsewhere_ = std::move(elsewhere); }
  // Puts an earlier text back, as if nothing had been typed since.
  void PutBack(const std::string& text) { element_.SetText(text); }
  [[nodiscard]] const std::string& ElementText() const { return element_.Text(); }
  void ApplyFont();

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void FitAmount();
  void TakeEdit();
  void TakeSelection();

  const DeskUi& ui_;
  Element& element_;
  std::function<bool()> codesElsewhere_;
  bool syncing_ = false;  // the element is being shown: signals of the line are echoes
  bool editing_ = false;  // an edit is on its way to the element
  bool amount_ = false;
  bool entering_ = false;  // the tap that brought the focus is not over
};

}  // namespace karvel
