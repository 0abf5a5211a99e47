#include "desk/element.h"

#include <algorithm>
#include <utility>

#include "desk/elements.h"
#include "text/turkish.h"

namespace karvel {

Element::Element(Elements& all, std::string name, ElementKind kind, std::string text, Element* panel)
    : all_(all), name_(std::move(name)), kind_(kind), panel_(panel), text_(std::move(text)) {}

void Element::SetText(const std::string& text) {
  const std::size_t most = kind_ == ElementKind::TextBox ? kMostTyped : kMostShown;
  if (text.size() > most && LetterCount(text) > most) {
    SetText(LeftLetters(text, most));
    return;
  }
  if (text == text_) return;
  text_ = text;
  if (kind_ == ElementKind::TextBox) selectionStart_ = selectionLength_ = 0;
  altered();
  changed();
}

void Element::SetVisible(bool visible) {
  if (visible == visible_) return;
  visible_ = visible;
  altered();
}

void Element::SetEnabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  altered();
}

bool Element::IsShown() const {
  for (const Element* element = this; element; element = element->panel_)
    if (!element->visible_) return false;
  return true;
}

bool Element::IsOpen() const {
  for (const Element* element = this; element; element = element->panel_)
    if (!element->enabled_) return false;
  return true;
}

void Element::SetChecked(bool checked) {
  if (checked == checked_) return;
  checked_ = checked;
  altered();
  if (kind_ == ElementKind::CheckBox) click();
}

void Element::SetColor(int color) {
  if (color == color_) return;
  color_ = color;
  altered();
}

void Element::SetLocked(bool locked) {
  if (locked == locked_) return;
  locked_ = locked;
  altered();
}

void Element::SetFontName(const std::string& name) {
  if (name == fontName_) return;
  fontName_ = name;
  altered();
}

void Element::Select(int start, int length) {
  const int letters = static_cast<int>(LetterCount(text_));
  start = std::clamp(start, 0, letters);
  length = std::clamp(length, 0, letters - start);
  if (start == selectionStart_ && length == selectionLength_) return;
  selectionStart_ = start;
  selectionLength_ = length;
  altered();
}

void Element::SelectAll() {
  Select(0, static_cast<int>(LetterCount(text_)));
}
void Element::CaretToEnd() {
  Select(static_cast<int>(LetterCount(text_)), 0);
}

void Element::SetItems(std::vector<std::string> items) {
  items_ = std::move(items);
  listIndex_ = -1;
  const bool hadText = !text_.empty() && kind_ == ElementKind::Combo;
  if (hadText) text_.clear();
  altered();
  if (hadText) changed();
}

void Element::AddItem(const std::string& item) {
  items_.push_back(item);
  altered();
}

void Element::Choose(int index) {
  if (index < -1 || index >= static_cast<int>(items_.size()) || index == listIndex_) return;
  listIndex_ = index;
  if (kind_ == ElementKind::Combo) text_ = index < 0 ? std::string() : items_[static_cast<std::size_t>(index)];
  altered();
  changed();
  click();
}

bool Element::ChooseText(const std::string& text) {
  for (std::size_t i = 0; i < items_.size(); ++i) {
    if (!EqualText(items_[i], text)) continue;
    Choose(static_cast<int>(i));
    return true;
  }
  return false;
}

void Element::SetDate(const DateTime& date) {
  if (date == date_) return;
  date_ = date;
  altered();
  changed();
}

void Element::BringToFront() {
  depth_ = all_.NextDepth();
  altered();
}

void Element::SetFocus() {
  if (IsShown() && IsOpen()) all_.MoveFocus(this);
}

void Element::TakeFocus() {
  all_.MoveFocus(this);
}

bool Element::HasFocus() const {
  return all_.Focused() == this;
}

void Element::Press() {
  if (enabled_) click();
}

GridElement::GridElement(Elements& all, std::string name, Element* panel) : Element(all, std::move(name), ElementKind::Grid, "", panel) {}

void GridElement::SetColumns(std::vector<GridColumn> columns) {
  columns_ = std::move(columns);
  Altered();
}

void GridElement::SetSource(Cursor* cursor) {
  if (cursor == source_) return;
  source_ = cursor;
  Altered();
}

void GridElement::SetMarker(bool on) {
  if (on == marker_) return;
  marker_ = on;
  Altered();
}

void GridElement::TapCell(int column) {
  column_ = column;
  click();
}

void GridElement::DoubleTapCell(int column) {
  column_ = column;
  dblClick();
}

}  // namespace karvel
