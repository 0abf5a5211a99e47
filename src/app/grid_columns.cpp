#include "app/grid_columns.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

constexpr std::size_t kMostCellLetters = 300;

constexpr int kLeastWidth = 44;
constexpr int kLeastName = 170;
constexpr int kMostFitted = 260;
constexpr int kMostFigures = 150;
constexpr int kShortText = 90;
constexpr std::array<std::string_view, 4> kNames{"Unvan", "StokAdi", "StokAd", "CariAd"};

std::optional<ColumnType> TypeOf(const GridColumn& column, const Table* table) {
  const int position = table ? table->Position(column.field) : -1;
  return position < 0 ? std::nullopt : std::optional(table->columns[static_cast<std::size_t>(position)].type);
}

bool IsFigures(const GridColumn& column, const Table* table) {
  if (column.align == Align::Right) return true;
  return column.align != Align::Center && TypeOf(column, table) == ColumnType::Number;
}

bool ShownWhole(const GridColumn& column, const Table* table) {
  return IsFigures(column, table) || TypeOf(column, table) == ColumnType::Date;
}

// Of a window that is drawn smaller.
int Scaled(int base, double scale) {
  return static_cast<int>(base * std::min(1.0, scale) + 0.5);
}

// The width that a column can't do without: amounts and dates whole, its heading, and a short text.
int LeastWidth(const GridColumn& column, const ColumnNeed& need, const Table* table, double scale) {
  const int least = Scaled(kLeastWidth, scale);
  if (ShownWhole(column, table)) return std::max({need.heading, need.content, least});
  return std::max({need.heading, std::min(need.content, Scaled(kShortText, scale)), least});
}

// The same in letters that are a fifth smaller; the gap beside them is not.
int BareWidth(const GridColumn& column, const ColumnNeed& need, const Table* table, double scale) {
  const int heading = need.heading * 6 / 7, content = need.content * 6 / 7;
  return std::max(
      {heading, ShownWhole(column, table) ? content : std::min(content, Scaled(kShortText, scale)), Scaled(kLeastWidth, scale)});
}

// No cell has room for more, and to shape a text of a million letters takes a second for each painting.
std::string Shortened(std::string text) {
  if (text.size() <= kMostCellLetters || LetterCount(text) <= kMostCellLetters) return text;
  return LeftLetters(text, kMostCellLetters) + "…";
}

}  // namespace

int StretchColumn(const std::vector<GridColumn>& columns) {
  std::vector<const GridColumn*> visible;
  for (const GridColumn& column : columns)
    if (column.visible) visible.push_back(&column);
  for (const std::string_view name : kNames)
    for (std::size_t i = 0; i < visible.size(); ++i)
      if (EqualText(visible[i]->field, name)) return static_cast<int>(i);
  return visible.size() > 1 ? 1 : 0;
}

std::vector<ShownColumn> PlaceColumns(const std::vector<GridColumn>& columns, const std::vector<ColumnNeed>& needs, const Table* table,
                                      int width, double scale) {
  std::vector<ShownColumn> shown;
  std::vector<int> least, bare;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (!columns[i].visible) continue;
    const ColumnNeed need = i < needs.size() ? needs[i] : ColumnNeed{};
    ShownColumn column;
    column.number = static_cast<int>(i);
    column.position = table ? table->Position(columns[i].field) : -1;
    column.figures = IsFigures(columns[i], table);
    least.push_back(LeastWidth(columns[i], need, table, scale));
    bare.push_back(std::min(least.back(), BareWidth(columns[i], need, table, scale)));
    // A width that the clerk dragged holds, but it cuts no amount and spreads no figures over half the grid.
    int asked = static_cast<int>(columns[i].width / kTwipsPerPixel);
    if (asked <= 0) asked = std::min(std::max(need.heading, need.content), Scaled(kMostFitted, scale));
    if (column.figures) asked = std::min(asked, Scaled(kMostFigures, scale));
    column.width = std::max(asked, least.back());
    shown.push_back(column);
  }
  if (shown.empty()) return shown;
  const auto stretch = static_cast<std::size_t>(StretchColumn(columns));
  const auto others = [&] {
    int sum = 0;
    for (std::size_t i = 0; i < shown.size(); ++i)
      if (i != stretch) sum += shown[i].width;
    return sum;
  };
  // Too narrow for all: first what the columns have beyond their need, then the size of the letters, then the rest, each in proportion.
  const int room = std::max(0, width - std::min(Scaled(kLeastName, scale), width / 2));
  for (const std::vector<int>& kept : {least, bare, std::vector<int>(shown.size())}) {
    const int sum = others();
    int spare = 0;
    for (std::size_t i = 0; i < shown.size(); ++i)
      if (i != stretch) spare += shown[i].width - kept[i];
    const std::int64_t missing = std::min(sum - room, spare);
    if (missing <= 0) continue;
    for (std::size_t i = 0; i < shown.size(); ++i) {
      if (i == stretch) continue;
      const std::int64_t has = shown[i].width - kept[i];
      shown[i].width -= static_cast<int>((has * missing + spare - 1) / spare);
    }
  }
  shown[stretch].width = std::max(0, width - others());
  int x = 0;
  for (ShownColumn& column : shown) {
    column.x = x;
    x += column.width;
  }
  return shown;
}

int SortedPosition(const Table& table, const std::string& source) {
  constexpr std::string_view kMark = " Order By ";
  for (std::size_t at = source.size(); at-- > 0;) {
    if (source[at] != ' ' || !EqualText(std::string_view(source).substr(at, kMark.size()), kMark)) continue;
    const std::size_t field = at + kMark.size();
    return table.Position(std::string_view(source).substr(field, source.find_first_of(" ,", field) - field));
  }
  return -1;
}

std::string CellText(const GridColumn& column, const Row& values, int position, const Table* table) {
  if (position < 0 || position >= static_cast<int>(values.size())) return {};
  const Value& value = values[static_cast<std::size_t>(position)];
  if (TypeOf(column, table) == ColumnType::Number && !IsNumberOrNothing(value)) return std::string(kDamagedNumber);
  if (const auto* number = std::get_if<double>(&value))
    return column.format.empty() ? PlainNumber(*number) : Format(*number, column.format);
  if (const auto* date = std::get_if<DateTime>(&value)) {
    if (date->IsEmpty()) return {};
    if (!column.format.empty()) return Format(*date, column.format);
    return Format(*date, *date == date->Date() ? "dd.mm.yyyy" : "dd.mm.yyyy hh:nn");
  }
  if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "✓" : "";
  return Shortened(AsText(value));
}

}  // namespace karvel
