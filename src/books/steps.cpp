#include "books/steps.h"

#include <fmt/format.h>

#include "platform/log.h"

namespace karvel {

void Steps::operator()(std::string_view step, const Status& outcome) const {
  if (outcome.Ok() || outcome.Kind() == ErrorKind::NoRecord) return;  // a find that finds nothing is an answer, no failure
  Log(fmt::format("{}, {}: {}", name_, step, outcome.Message()));
}

}  // namespace karvel
