// What slips, statements and reports share on the page: columns worked out of measured text, the company header, long lines and the foot.
//
// All positions follow from the width of the texts on the printer in use, so that the same document stands on a roll and on a sheet. The
// vertical steps are pixels of the printer.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "desk/parts.h"
#include "documents/drawing.h"
#include "documents/pen.h"

namespace karvel {

// Added below a rule and between blocks; below the header and above the closing block; below the last line of a table.
inline constexpr double kStep = 30, kBlockStep = 60, kTableEndStep = 15;

// What the shop has set for its paper.
struct PrintStyle {
  std::array<std::string, 6> companyLines;
  std::string amountFormat, quantityFormat;
  int feedLines = 0;           // AltSatır: how far a roll is fed past the tear bar
  bool smallPaper = false;     // A5
  bool nameOnOwnLine = false;  // AraVer: an item's name stands above its figures
};
PrintStyle StyleOf(const DeskParts& parts);

// A column of names and equally wide columns of figures to the right of it.
struct Columns {
  double left = 0;            // where the names begin
  double number = 0;          // width of a column of figures
  std::vector<double> edges;  // right ends of the columns on the page, that of the names first

  [[nodiscard]] double NameWidth() const { return edges.front() - left; }
  // The right end of the figures' column `index`, from 1.
  [[nodiscard]] double Edge(int index) const { return edges.at(static_cast<std::size_t>(index)); }
  [[nodiscard]] double Right() const { return edges.back(); }
};

// Of slips and statements: four columns of figures, each as wide as eight zeros, 30 pixels from either end of the page. Where the names
// would get less room than a column of figures, the font shrinks until they don't; so do those of the next.
Columns SlipColumns(const Measures& measures, PrintFont& font);
// A table in the middle of the page, 120 pixels narrower than it: `count` columns of figures, each as wide as so many zeros.
Columns CentredColumns(const Measures& measures, PrintFont& font, int count, int zeros);

// The company's title, address and telephone, centred, in bold letters two points larger, which stay in force until EndHeading.
void PrintCompanyHeader(Pen& pen, const PrintStyle& style);
// Back to the plain letters of the body, and a step down.
void EndHeading(Pen& pen);
// Centred on the page. A text wider than the page is broken at blanks; a lone word that is wider, by letters.
void PrintCentred(Pen& pen, const std::string& text);
// A text in pieces that are each no wider than told.
std::vector<std::string> BrokenText(const Pen& pen, const std::string& text, double width);
// The text without so many letters at its end that it is no wider than told; it may be empty.
std::string CutToWidth(const Pen& pen, std::string text, double width);
// A rule across the table at the place, and a step down.
void PrintRule(Pen& pen, const Columns& columns);
// Centred in the column `index`, that of the names being 0.
void PrintHeading(Pen& pen, const Columns& columns, int index, const std::string& text);
// Right-aligned behind what was printed on the line. Where no blank would part the two, on the next line.
void PrintFigureEndingAt(Pen& pen, double right, const std::string& figure);
// The same behind a figure, from which it is first parted by smaller letters.
void PrintFigureBeside(Pen& pen, double right, const std::string& figure);
// The pen's font or one up to a fifth smaller, in which a figure that ends at `right` leaves a blank free behind `left`; the pen's own
// where none does. Two figures that touch read as one.
PrintFont FontBeside(const Pen& pen, double left, double right, const std::string& figure);
// In that font, on the ground line of the pen's; the place as with Pen::Print.
void PrintEndingAtIn(Pen& pen, const PrintFont& font, double right, const std::string& text);
// A label at the left end of the table and its figure at the right end, on a line.
void PrintLabelled(Pen& pen, const Columns& columns, const std::string& label, const std::string& figure);
// The shop's line below a slip, and the feed.
void PrintFoot(Pen& pen, const PrintStyle& style);
// Lines with a point each, which feed a roll.
void PrintFeed(Pen& pen, const PrintStyle& style);

}  // namespace karvel
