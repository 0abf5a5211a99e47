#include "robot/setting_values.h"

#include <fmt/format.h>

#include <QAbstractButton>
#include <QDateEdit>
#include <QLineEdit>
#include <QListWidget>

#include "app/choice_fields.h"
#include "desk/element.h"
#include "robot/hand.h"
#include "text/turkish.h"

namespace karvel {
namespace {

[[noreturn]] void Refuse(const Target& target, const char* wanted) {
  throw RequestError(fmt::format("{} takes {}", target.element->Name(), wanted));
}

template <typename T>
T& WidgetAs(const Target& target) {
  auto* widget = dynamic_cast<T*>(target.widget);
  if (!widget) throw RequestError(fmt::format("{} can't be set", target.element->Name()));
  return *widget;
}

std::string TextIn(const Target& target, const Json& value, const char* wanted) {
  if (!value.is_string()) Refuse(target, wanted);
  return value.get<std::string>();
}

void SetText(const Target& target, const Json& value) {
  const std::string text = TextIn(target, value, "a text");
  if (target.element->Locked()) throw RequestError(fmt::format("{} is closed to typing", target.element->Name()));
  auto& line = WidgetAs<QLineEdit>(target);
  line.selectAll();
  if (text.empty() && !line.text().isEmpty()) Strike(*KeyByName("Delete"), line);
  for (const KeyStroke& stroke : KeysOfText(text)) Strike(stroke, line);
}

void SetDate(const Target& target, const Json& value) {
  constexpr const char* kWanted = "a date like \"2026-03-01\"";
  const DateTime date = DateTime::FromIso(TextIn(target, value, kWanted));
  if (date.IsEmpty()) Refuse(target, kWanted);
  WidgetAs<QDateEdit>(target).setDate(QDate(date.year, date.month, date.day));
}

// The entry of a text: exactly, else ignoring case and blanks at the ends.
int EntryOf(const Target& target, const std::string& text) {
  const auto& items = target.element->Items();
  for (std::size_t i = 0; i < items.size(); ++i)
    if (items[i] == text) return static_cast<int>(i);
  for (std::size_t i = 0; i < items.size(); ++i)
    if (EqualText(Trim(items[i]), Trim(text))) return static_cast<int>(i);
  throw RequestError(fmt::format("{} has no entry {}", target.element->Name(), text));
}

void SetChecked(const Target& target, const Json& value) {
  if (!value.is_boolean()) Refuse(target, "true or false");
  if (target.element->Checked() != value.get<bool>()) TapCenter(WidgetAs<QAbstractButton>(target), Tap::Click);
}

}  // namespace

void SetValue(const Target& target, const Json& value) {
  switch (target.element->Kind()) {
    case ElementKind::TextBox:
      return SetText(target, value);
    case ElementKind::DatePicker:
      return SetDate(target, value);
    case ElementKind::CheckBox:
      return SetChecked(target, value);
    case ElementKind::Combo:
      return WidgetAs<ComboField>(target).Pick(EntryOf(target, TextIn(target, value, "the text of an entry")));
    case ElementKind::List:
      return WidgetAs<QListWidget>(target).setCurrentRow(EntryOf(target, TextIn(target, value, "the text of an entry")));
    default:
      throw RequestError(fmt::format("{} can't be set", target.element->Name()));
  }
}

}  // namespace karvel
