// What a letter key of the on-screen keyboard writes: one letter in both cases by Turkish rules.
#pragma once

#include <string>

namespace karvel {

// The letter of a key as it stands on it and is written, in upper case while `capitals` is on: I and ı are one key, İ and i another.
std::string InCase(const std::string& letter, bool capitals);

}  // namespace karvel
