// Writes the smallest database files of Access 2000 (Jet 4) that other programs read, byte by byte: no program of this system does.
// Known of the form: pages of 4,096 bytes; page 0 names the version, page 2 defines the catalogue MSysObjects; a table has a page that
// defines it, one that maps its pages, and pages of rows, which grow from the end of the page.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "store/row.h"

namespace karvel::testing {

enum class AccessType : std::uint8_t {
  Boolean = 0x01,
  Byte = 0x02,
  Integer = 0x03,
  Long = 0x04,
  Money = 0x05,
  Single = 0x06,
  Double = 0x07,
  Date = 0x08,  // a number: days since 1899-12-30
  Binary = 0x09,
  Text = 0x0A,
  Object = 0x0B,
  Memo = 0x0C,
};

struct AccessColumn {
  std::string name;
  AccessType type = AccessType::Text;
};

struct AccessTable {
  std::string name;
  std::vector<AccessColumn> columns;
  std::vector<Row> rows;  // a Null where there is nothing
  // Rows by their numbers from 0: those that were deleted, and those that grew and lie elsewhere, with a pointer in their place.
  std::set<std::size_t> deleted{}, moved{};
  std::uint32_t rowsTold = UINT32_MAX;  // as many as there are, unless told otherwise
};

// The file's bytes.
std::string AccessFile(const std::vector<AccessTable>& tables);

}  // namespace karvel::testing
