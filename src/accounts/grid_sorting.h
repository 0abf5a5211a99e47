// A tap on a heading sorts the list by that column, and every further tap reverses the order.
#pragma once

#include <string>

#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class GridSorting {
 public:
  explicit GridSorting(const DeskParts& parts);

  // The source ordered by one field: descending, or ascending where it was descending before, in the spelling of `up` and `down` (" ASC",
  // " Desc"). What it selects stays as it is.
  static std::string Sorted(const std::string& source, const std::string& field, const std::string& up, const std::string& down);

 private:
  void Sort(GridElement& grid, int column, const std::string& up, const std::string& down);

  Screen& screen_;
  Connections connections_;
};

}  // namespace karvel
