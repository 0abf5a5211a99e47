#include "store/open_copy.h"

#include <cmath>
#include <utility>

#include "text/date_time.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

std::optional<Value> ToNumber(const Value& value) {
  if (const auto* text = std::get_if<std::string>(&value)) {
    const auto number = ReadNumber(*text);
    if (!number) return {};
    return Value(*number);
  }
  const double number = AsNumber(value);
  if (!std::isfinite(number)) return {};
  return Value(number);
}

std::optional<Value> ToDate(const Value& value) {
  const DateTime date = AsDate(value);
  if (date.IsEmpty()) {
    // Only what means "no date" empties the field; a text that is no date leaves it.
    const auto* text = std::get_if<std::string>(&value);
    if (text != nullptr ? !text->empty() : !std::holds_alternative<DateTime>(value)) return {};
  }
  return Value(date);
}

std::optional<Value> ToBoolean(const Value& value) {
  const auto* text = std::get_if<std::string>(&value);
  const bool readable = text == nullptr || ReadBoolean(*text) || ReadNumber(*text) || EqualText(*text, "False");
  if (!readable) return {};
  return Value(AsBoolean(value));
}

}  // namespace

Value DefaultOf(ColumnType type) {
  switch (type) {
    case ColumnType::Number:
      return 0.0;
    case ColumnType::Boolean:
      return false;
    case ColumnType::Date:
      return DateTime{};
    case ColumnType::Text:
      break;
  }
  return std::string();
}

std::optional<Value> ConvertTo(ColumnType type, const Value& value) {
  if (std::holds_alternative<std::monostate>(value)) return DefaultOf(type);
  switch (type) {
    case ColumnType::Number:
      return ToNumber(value);
    case ColumnType::Boolean:
      return ToBoolean(value);
    case ColumnType::Date:
      return ToDate(value);
    case ColumnType::Text:
      break;
  }
  return Value(AsText(value));
}

OpenCopy::OpenCopy(const Table& table) : table_(table), isNew_(true), set_(table.columns.size(), false) {
  values_.reserve(table.columns.size());
  for (const Column& column : table.columns) values_.push_back(DefaultOf(column.type));
}

OpenCopy::OpenCopy(const Table& table, const GridRow& row)
    : table_(table), isNew_(false), key_(row.key), values_(row.values), before_(row.values), set_(table.columns.size(), false) {}

bool OpenCopy::Set(int position, const Value& value) {
  const auto at = static_cast<std::size_t>(position);
  std::optional<Value> converted = ConvertTo(table_.columns[at].type, value);
  if (!converted) return false;
  values_[at] = std::move(*converted);
  set_[at] = true;
  return true;
}

std::vector<FieldValue> OpenCopy::SetFields() const {
  std::vector<FieldValue> fields;
  for (std::size_t i = 0; i < set_.size(); ++i)
    if (set_[i]) fields.push_back({static_cast<int>(i), values_[i]});
  return fields;
}

bool OpenCopy::StillFits(const Row& fresh) const {
  for (std::size_t i = 0; i < set_.size(); ++i)
    if (set_[i] && fresh[i] != before_[i]) return false;
  return true;
}

}  // namespace karvel
