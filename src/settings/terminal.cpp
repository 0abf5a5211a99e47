#include "settings/terminal.h"

#include <optional>

#include "text/format.h"
#include "text/turkish.h"

namespace karvel {

std::string TerminalNo(std::string_view title) {
  const std::string number = Format(std::string_view(RightLetters(title, 1)), "00");
  return number == "00" ? "01" : number;
}

std::string TerminalNumber(std::string_view terminalNo) {
  const std::optional<double> number = ReadNumber(terminalNo);
  return number ? PlainNumber(*number) : std::string(terminalNo);
}

}  // namespace karvel
