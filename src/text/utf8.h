// What a file's bytes are.
#pragma once

#include <string_view>

namespace karvel {

// Whether every byte belongs to a letter of UTF-8.
bool IsUtf8(std::string_view bytes);

}  // namespace karvel
