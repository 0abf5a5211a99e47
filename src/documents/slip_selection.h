// Which lines of a customer's day book a print takes.
//
//   DökNoYaz   newest line's SeriNo   collection panel   slip open   lines
//   visible    not ""                 any                any         those of that number: its reprint
//   visible    ""                     open               yes         those of the open slip
//   visible    ""                     open               no          those of any slip
//   visible    ""                     closed             any         all
//   hidden     any                    open               yes         those of the open slip: the sale closes
//   hidden     any                    open               no          those of any slip
//   hidden     any                    closed             any         those of no slip
#pragma once

#include <string>

#include "text/date_time.h"

namespace karvel {

struct SlipChoice {
  bool openSlipMeant = false;  // DökNoYaz is hidden
  bool collecting = false;     // the collection panel is open
  std::string newestSlipNo{};  // SeriNo of the customer's newest line
  std::string openSlipNo{};    // SlipNo
};

// The condition of a slip or day. Of the open slip all lines are taken, also those from before midnight; all others are of `day`.
std::string SlipCriteria(const SlipChoice& choice, const DateTime& day);

// Record source: the customer's lines with the condition, the oldest first.
std::string LinesOf(const std::string& customerCode, const std::string& criteria);

}  // namespace karvel
