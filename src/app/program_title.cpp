#include "app/program_title.h"

namespace karvel {

std::string ProgramTitle(std::string_view startedAs) {
  const std::size_t slash = startedAs.rfind('/');
  if (slash != std::string_view::npos) startedAs.remove_prefix(slash + 1);
  return startedAs.starts_with("Velmora Karvel") ? std::string(startedAs) : "Velmora Karvel1";
}

}  // namespace karvel
