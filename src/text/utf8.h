// What a file's bytes are.
#pragma once

#include <cstddef>
#include <string_view>

namespace karvel {

// Whether every byte belongs to a letter of UTF-8.
bool IsUtf8(std::string_view bytes);

// What speaks for UTF-8 in bytes of unknown form, and what against it.
struct Utf8Signs {
  std::size_t letters = 0;  // whole ones with an accent or of the Turkish alphabet (À to ſ), which in a code page would be odd pairs
  std::size_t damaged = 0;  // bytes that belong to no letter
};
Utf8Signs SignsOfUtf8(std::string_view bytes);

}  // namespace karvel
