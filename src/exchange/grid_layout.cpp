#include "exchange/grid_layout.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <string_view>

#include "books/steps.h"
#include "platform/files.h"
#include "platform/window.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

constexpr double kTwipsPerPixel = 15;
constexpr float kWidest = 1'000'000;  // twips; what is wider is no width
constexpr const char* kLineEnd = "\r\n";
const Steps step("GridLayout");

// Columns whose cells are wider than their heading, each with the longest text that is common in it.
struct CommonCell {
  std::string_view field;
  const char* text;
};
constexpr std::array kCommonCells{CommonCell{"Tarih", "00.00.0000 00:00"}, CommonCell{"Durum", "K.Kartı"}, CommonCell{"Hesap", "Alacak"},
                                  CommonCell{"StokKod", "0000000000000"}};

std::string CommonCellOf(const GridColumn& column) {
  for (const CommonCell& cell : kCommonCells)
    if (EqualText(cell.field, column.field)) return cell.text;
  return {};
}

struct Record {
  float width = 0;
  bool visible = true;
};

std::optional<Record> ReadRecord(const std::string& line) {
  const std::size_t comma = line.find(',');
  if (comma == std::string::npos) return std::nullopt;
  Record record;
  const std::string width = Trim(line.substr(0, comma));
  const auto [end, error] = std::from_chars(width.data(), width.data() + width.size(), record.width);
  if (error != std::errc() || end != width.data() + width.size() || !(record.width >= 0 && record.width <= kWidest)) return std::nullopt;
  record.visible = ReadBoolean(ReplaceAll(Trim(line.substr(comma + 1)), "#", ""));
  return record;
}

std::vector<std::string> Lines(const std::string& bytes) {
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t end = std::min(bytes.find('\n', at), bytes.size());
    lines.push_back(ReplaceAll(bytes.substr(at, end - at), "\r", ""));
    at = end + 1;
  }
  return lines;
}

}  // namespace

GridLayout::GridLayout(const DeskParts& parts, Signal<>& opening) : screen_(parts.screen), form_(parts.form), world_(parts.world) {
  Screen& screen = screen_;
  const std::array grids{&screen.CariGrid, &screen.StokGrid, &screen.HareketGrid, &screen.FatGrid, &screen.CariDBGrid};
  for (GridElement* const grid : grids) {
    connections_ += grid->columnsResized.Connect([this, grid] { Resized(*grid); });
    connections_ += grid->columnsSwitched.Connect([this, grid] { Load(*grid); });
    connections_ += opening.Connect([this, grid] { Load(*grid); });
  }
}

std::string GridLayout::Path(const GridElement& grid) const {
  const Screen& screen = screen_;
  const char* const suffix = screen.CiroChk.Checked() ? "C" : screen.StokChk.Checked() ? "S" : "";
  return PathIn(form_.DataDir, grid.Name() + suffix + ".dat");
}

void GridLayout::Load(GridElement& grid) {
  std::vector<GridColumn> columns = grid.Columns();
  if (columns.empty()) return;
  const std::string path = Path(grid);
  std::string bytes;
  const bool kept = world_.files.Exists(path);
  if (kept) {
    step("read", world_.files.Read(path, bytes));
    const std::vector<std::string> lines = Lines(bytes);
    for (std::size_t i = 0; i < std::min(lines.size(), columns.size()); ++i) {
      const auto record = ReadRecord(lines[i]);
      if (!record) continue;
      columns[i].width = static_cast<double>(record->width);
      columns[i].visible = record->visible;
    }
    PadHeadings(grid, columns);
  } else {
    FitToHeadings(grid, columns);
    PadHeadings(grid, columns);
    Stretch(grid, columns, 1);
  }
  grid.SetColumns(std::move(columns));
  if (!kept) Save(grid);
}

void GridLayout::Save(GridElement& grid) {
  std::vector<GridColumn> columns = grid.Columns();
  PadHeadings(grid, columns);
  grid.SetColumns(std::move(columns));
  Write(grid);
}

void GridLayout::Resized(GridElement& grid) {
  // The name takes what the figures leave: in the list of an invoice it stands first.
  if (&grid == &screen_.StokGrid || &grid == &screen_.FatGrid) {
    std::vector<GridColumn> columns = grid.Columns();
    Stretch(grid, columns, &grid == &screen_.FatGrid ? 0 : 1);
    grid.SetColumns(std::move(columns));
  }
  Save(grid);
}

void GridLayout::Write(const GridElement& grid) {
  std::string bytes;
  for (const GridColumn& column : grid.Columns())
    bytes += fmt::format("{},{}{}", static_cast<float>(column.width), column.visible ? "#TRUE#" : "#FALSE#", kLineEnd);
  step("write", world_.files.Write(Path(grid), bytes));
}

void GridLayout::PadHeadings(const GridElement& grid, std::vector<GridColumn>& columns) const {
  const double blank = TextWidth(grid, " ");
  for (GridColumn& column : columns) {
    column.caption = Trim(column.caption);
    if (!column.visible || blank <= 0) continue;
    const int count = static_cast<int>((column.width - TextWidth(grid, column.caption)) / 2 / blank);
    if (count <= 0) continue;
    const std::string blanks(static_cast<std::size_t>(count), ' ');
    if (column.align == Align::Left) column.caption.insert(0, blanks);
    if (column.align == Align::Right) column.caption += blanks;
  }
}

void GridLayout::FitToHeadings(const GridElement& grid, std::vector<GridColumn>& columns) const {
  for (GridColumn& column : columns)
    column.width = std::max(TextWidth(grid, "  " + Trim(column.caption) + " "), TextWidth(grid, CommonCellOf(column)));
}

void GridLayout::Stretch(const GridElement& grid, std::vector<GridColumn>& columns, std::size_t stretched) const {
  if (columns.size() <= stretched) return;
  double rest = world_.window.InnerWidth(grid.Name()) * kTwipsPerPixel;
  for (std::size_t i = 0; i < columns.size(); ++i)
    if (i != stretched && columns[i].visible) rest -= columns[i].width;
  columns[stretched].width = std::max(0.0, rest);
}

double GridLayout::TextWidth(const GridElement& grid, const std::string& text) const {
  return text.empty() ? 0 : world_.window.TextWidth(grid.Name(), text) * kTwipsPerPixel;
}

}  // namespace karvel
