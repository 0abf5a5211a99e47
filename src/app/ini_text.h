// The text of a settings file: values by address ("Velmora Karvel1/Size/Kdv"), in sections named by the address's first piece. The form is
// the toolkit's own, so that files of earlier desks read on, and a shop's helper may read and write the file with the toolkit's means.
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace karvel {

using IniValues = std::map<std::string, std::string>;  // UTF-8

struct IniText {
  IniValues values;
  bool whole = true;  // false: something in it is no line of such a file
};

// What could be read. Of a file that isn't even a text nothing is: what looks like a value there is none.
IniText ReadIni(std::string_view bytes);
std::string WriteIni(const IniValues& values);

}  // namespace karvel
