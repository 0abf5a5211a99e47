#include "tools/value_limits.h"

#include <fmt/format.h>

#include <cmath>
#include <optional>
#include <string>
#include <string_view>

#include "store/postgres/connection.h"
#include "text/turkish.h"

namespace karvel {
namespace {

// The server takes no longer key into an index. (It packs a key that repeats itself, but a name that long is none.)
constexpr std::size_t kLongestKey = 2600;
constexpr std::size_t kSurelyShort = 400;
constexpr std::size_t kLettersShown = 40;

std::string Shown(const Value& value) {
  return LeftLetters(AsText(value), kLettersShown);
}

std::string WhyTextIsRefused(const std::string& text) {
  if (postgres::IsStorable(text)) return {};
  return text.find('\0') != std::string::npos ? "içinde 0 kodlu harf var" : "içinde bozuk harf var";
}

// "" where the server's field holds it as it is.
std::string WhyRefused(ColumnType type, const Value& value) {
  if (std::holds_alternative<std::monostate>(value)) return {};
  switch (type) {
    case ColumnType::Number:
      return std::holds_alternative<double>(value) ? "" : fmt::format("sayı alanında yazı var: {}", Shown(value));
    case ColumnType::Boolean:
      return std::holds_alternative<bool>(value) ? "" : fmt::format("evet/hayır alanında başka bir değer var: {}", Shown(value));
    case ColumnType::Date:
      return std::holds_alternative<DateTime>(value) ? "" : fmt::format("tarih alanında başka biçimde bir yazı var: {}", Shown(value));
    case ColumnType::Text:
      break;
  }
  const auto* const text = std::get_if<std::string>(&value);
  return text == nullptr ? std::string() : WhyTextIsRefused(*text);
}

std::size_t SizeOf(const Value& value) {
  const auto* const text = std::get_if<std::string>(&value);
  return text == nullptr ? 0 : text->size();
}

// The field of an index whose key is too long; nothing where all are short enough.
std::optional<std::size_t> TooLong(const Table& table, const Row& row) {
  for (const Index& index : table.indexes) {
    std::size_t longest = 0, size = 0;
    for (const std::string_view name : index.columns) {
      const auto column = static_cast<std::size_t>(table.Position(name));
      if (SizeOf(row[column]) > kSurelyShort) size += FoldKey(AsText(row[column])).size();
      if (SizeOf(row[column]) > SizeOf(row[longest])) longest = column;
    }
    if (size > kLongestKey) return longest;
  }
  return {};
}

}  // namespace

std::vector<Misfit> WhatServerCantHold(const Table& table, const Row& row) {
  std::vector<Misfit> misfits;
  for (std::size_t i = 0; i < row.size(); ++i)
    if (std::string why = WhyRefused(table.columns[i].type, row[i]); !why.empty()) misfits.push_back({i, std::move(why)});
  if (const std::optional<std::size_t> column = TooLong(table, row))
    misfits.push_back({*column, fmt::format("aranan bir alan için çok uzun ({} harf)", LetterCount(AsText(row[*column])))});
  return misfits;
}

std::vector<Misfit> WhatFilesCantHold(const Table& table, const Row& row) {
  std::vector<Misfit> misfits;
  for (std::size_t i = 0; i < row.size(); ++i) {
    const auto* const number = std::get_if<double>(&row[i]);
    if (number != nullptr && table.columns[i].type == ColumnType::Number && std::isnan(*number)) misfits.push_back({i, "sayı değil"});
  }
  return misfits;
}

}  // namespace karvel
