// The column layout of the five data grids, kept in small text files in the data folder, so that the clerk's layout survives restarts.
//
// A file is the grid's name, a suffix and ".dat"; the suffix is "C" while CiroChk is checked, else "S" while StokChk is, else "". One line
// for each column, in column order: the width in twips and whether it shows.
//
//   1200,#TRUE#
//   987.5,#FALSE#
//
// A line that can't be read, or is missing, leaves its column as it is.
#pragma once

#include <string>
#include <vector>

#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class GridLayout {
 public:
  // Loads all layouts when the desk opens, and a grid's own when it gets other columns; saves it when the clerk has changed a column.
  GridLayout(const DeskParts& parts, Signal<>& opening);

  // GridYükle: gives the grid the layout that was kept; where there is none, one fitted to the headings and the grid, which is then kept.
  // Does nothing to a grid without columns.
  void Load(GridElement& grid);
  // GridYaz: keeps the layout that the grid has now. A file that can't be written is noted in the log.
  void Save(GridElement& grid);

 private:
  void Resized(GridElement& grid);
  [[nodiscard]] std::string Path(const GridElement& grid) const;
  void Write(const GridElement& grid);
  // Centres the headings by blanks around them.
  void PadHeadings(const GridElement& grid, std::vector<GridColumn>& columns) const;
  void FitToHeadings(const GridElement& grid, std::vector<GridColumn>& columns) const;
  // One column takes what the other visible columns leave of the grid.
  void Stretch(const GridElement& grid, std::vector<GridColumn>& columns, std::size_t stretched) const;
  [[nodiscard]] double TextWidth(const GridElement& grid, const std::string& text) const;

  Screen& screen_;
  FormState& form_;
  const World& world_;
  Connections connections_;
};

}  // namespace karvel
