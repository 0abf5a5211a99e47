// A clerk types no dots: a name with an i in it is looked for by a pattern that leaves the letter open ("?brah?m*" for İbrahim, ibrahim and
// Ibrahim). Where the first letter is open, the list would have to be read from end to end. But under each first letter the names that fit
// stand together, so a handful of spans of the order holds them all: an engine reads these one after another.
#pragma once

#include <string>
#include <vector>

#include "store/engine.h"

namespace karvel {

// The compare keys (FoldKey) from `from` on and before `end`.
struct KeySpan {
  std::string from, end;
};

// The spans of the first order term that hold every row of the query, rising and apart from each other, at most 80. Empty where there is
// nothing to gain: the order doesn't begin with a text, or no condition that all rows meet is a pattern on it with a first "?" before a
// letter. The rows in a span still have to meet the conditions.
std::vector<KeySpan> SpansOf(const RowQuery& query);

}  // namespace karvel
