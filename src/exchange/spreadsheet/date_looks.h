// Which cells of a workbook show their number as a date or a time, by the looks that its styles tell. A price "1.2" that the spreadsheet
// took for the first of February holds a day's number: read as a price it would be a false one.
#pragma once

#include <map>
#include <string_view>
#include <vector>

#include "exchange/spreadsheet/xml_reader.h"

namespace karvel {

// Whether the code of a look ("d/mmm", "#,##0.00") shows a date or a time.
bool ShowsDate(std::string_view code);

class DateLooks {
 public:
  // Hears the elements of the file with the styles.
  void Started(std::string_view name, const XmlAttributes& attributes);
  void Ended(std::string_view name);
  // By the number of its look, as a cell names it.
  [[nodiscard]] bool IsDate(int look) const;

 private:
  [[nodiscard]] bool IsDateFormat(int format) const;

  std::map<int, bool> told_;  // by format: those that the workbook tells itself
  std::vector<bool> looks_;
  bool inLooks_ = false;
};

}  // namespace karvel
