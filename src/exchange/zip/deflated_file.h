// A file's content as a zip archive holds it: deflated, with its size and sum.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <string>

#include "platform/status.h"

namespace karvel {

struct DeflatedFile {
  struct Freed {
    void operator()(void* bytes) const { std::free(bytes); }
  };
  std::unique_ptr<std::byte, Freed> bytes;
  std::size_t count = 0;
  std::uint64_t size = 0;  // before
  std::uint32_t sum = 0;   // CRC-32 of what it was
  std::time_t changed = 0;
};

// Takes as much memory as the deflated content, and address room for the file twice. A file that is written meanwhile gives nonsense.
Status Deflate(const std::string& path, DeflatedFile& deflated);

}  // namespace karvel
