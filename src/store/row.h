// A row of a table as it was read: detached from the store.
#pragma once

#include <cstdint>

#include "store/value.h"

namespace karvel {

// Names one row of a table for as long as it exists. Later rows have greater keys.
using RowKey = std::int64_t;

struct GridRow {
  RowKey key = 0;
  Row values;
};

}  // namespace karvel
