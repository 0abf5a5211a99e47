// The yearly running numbers of Index.mdb, and the line ids and terminal tags made of them.
//
// One row a year in Mdbindex holds two counters, Indexi and Serino: two characters of the year, then a count without padding:
// 261, 262, … 269, 2610. The year stays in front, so the numbers of two years never meet.
#pragma once

#include <string>

#include "books/shop.h"
#include "text/date_time.h"

namespace karvel {

// Takes the next number of the year `key` ("2026"): of Indexi for mode 0, of Serino otherwise. An action of its own, unless one is open;
// either way no two terminals ever get the same number. "" when the stores keep none: an action that is open has failed with it.
std::string NextIndex(Stores& stores, int mode, const std::string& key);
// The next DigerId: the terminal's digits, then the running number of the year padded to ten: 10000000261. A posting names its own
// moment, so that the id and the rows are of one year.
std::string NextLineId(const Shop& shop, const DateTime& moment);
std::string NextLineId(const Shop& shop);  // of this moment

// The ids of a document, by one running number: as that of a line, and with one zero more, which its lines bear beside it.
struct DocumentId {
  std::string id, longer;
};
DocumentId NextDocumentId(const Shop& shop, const DateTime& moment);

// Brings Indexi of this moment's year up to the highest count that a line of any terminal bears: a file of numbers that was lost, or put
// back from an old copy, would give ids anew, and what is done to one of two lines of one id is done to both. Looked up on indexes, in some
// hundredths of a second however many lines there are. Books and numbers that can't be read are a failure.
Status KeepCounterAhead(const Shop& shop);

// The terminal's mark in the day book counts from 0, "WinKarvel0" on terminal 01; in a stock movement it carries both digits,
// "WinKarvel01".
std::string DayBookTag(const Shop& shop);
std::string MovementTag(const Shop& shop);

}  // namespace karvel
