// The day file: what the central accounting site reads of a printed slip or day. It lies in the root of C: until it has been uploaded.
//
//   "C001",#2026-03-01 10:15:00#             the customer, and when the file was made
//   "1001","2","50","100"                    each line: item, quantity, price, amount
//
// Records of items with a comma between them, each ended by CR LF, in Windows code page 1254. Texts stand in quotes, a quote in a text
// twice. Quantity, price and amount are texts too, written as the desk shows a plain number.
//
// What stays true, also when the desk is killed at any moment: a file lies under its name only when all of its lines are marked, and no
// line is marked without the file. It is laid beside its place before the marks are committed, under a name that bears the row by which
// whoever finds it knows whether they were, and is renamed afterwards; the next start or the next day file finishes or sweeps what was
// left.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "books/shop.h"
#include "platform/files.h"

namespace karvel {

// The name by the terminal that the title tells and the number of the document: "01000123.csv".
std::string DayFileName(std::string_view title, std::string_view slipNo);

// One record with its CR LF, in UTF-8: texts in quotes, dates between "#", other values bare, nothing as #NULL#.
std::string DelimitedRecord(std::span<const Value> items);

struct DayToSend {
  std::string name;  // of the file
  std::string customerCode;
  std::string source;  // record source of the lines
};

// Lays the file of all lines that the source has now, whatever their state, over one of that name, and marks them as sent. Answers its
// name. One of that name that was not sent yet and is of another document is kept beside ("01-2.csv"). NoRecord, and nothing is written,
// where there are no lines or the last of them has gone out meanwhile. Where a folder has the name, no line is marked.
Outcome<std::string> LayDayFile(const Shop& shop, Files& files, const DayToSend& day);

// What became of the files that waited beside their places.
struct PlacedDayFiles {
  std::vector<std::string> placed;  // the names of those that stand in their places now
  std::string waiting;              // of the first that could not be placed, "" for none
  Status status;                    // why it could not, or why none could be looked at
};

// Puts files whose marks stand under their names: what a killed desk left, or what had no place when it was laid.
PlacedDayFiles PlaceDayFiles(const Shop& shop, Files& files);

}  // namespace karvel
