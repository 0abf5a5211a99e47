// How wide the columns of a grid are, and what stands in their cells.
#pragma once

#include <string>
#include <vector>

#include "desk/element.h"
#include "store/catalogue.h"
#include "store/value.h"

namespace karvel {

// How many screen units (twips) of the layout files make a pixel.
inline constexpr double kTwipsPerPixel = 15;

struct ShownColumn {
  int number = 0;     // in the element's columns
  int position = -1;  // of its field in the source's rows; -1: the source lacks it
  int x = 0, width = 0;
  bool figures = false;  // numbers: at the right, digits in columns
  int pixelSize = 14;    // of its letters, for the rows in sight
};

// What a column asks for, in pixels.
struct ColumnNeed {
  int heading = 0;
  int content = 0;
};

// Places the visible columns on a width. One column, that of the names, takes what the others leave; where they leave too little, they
// all give way. `needs` goes by column number; `scale` is that of the window, below 1 where it is drawn
// smaller.
std::vector<ShownColumn> PlaceColumns(const std::vector<GridColumn>& columns, const std::vector<ColumnNeed>& needs, const Table* table,
                                      int width, double scale = 1);
// The place (among the visible columns) of the column that takes the rest.
int StretchColumn(const std::vector<GridColumn>& columns);

// The position of the field by which a source is ordered, told from its text; -1: it has no order.
int SortedPosition(const Table& table, const std::string& source);

// A cell's text: numbers and dates by the column's format, a tick for yes.
std::string CellText(const GridColumn& column, const Row& values, int position, const Table* table = nullptr);

}  // namespace karvel
