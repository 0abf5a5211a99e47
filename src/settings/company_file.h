// Firmam.txt beside the program: the six lines about the shop that stand on its documents. Made with plain values when it is missing;
// a file that is there is never written over, whatever is in it.
#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "platform/files.h"

namespace karvel {

struct CompanyFile {
  static constexpr std::size_t kLines = 6;
  enum Line : std::size_t { Name, Address, Telephone, FontSize, DataNote, Footer };

  std::array<std::string, kLines> lines;  // "" for a line that the file lacks
  bool made = false;                      // it was missing and has been written now
  // Why it could not be read or made. The lines are then empty, or the plain values that could not be written.
  Status status;
};

CompanyFile ReadOrMakeCompanyFile(Files& files);

}  // namespace karvel
