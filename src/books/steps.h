// Runs the steps of a posting with their failures passed over: a step that fails is noted in the log under its name, and the next one runs.
// The one place where that is the rule.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "platform/status.h"

namespace karvel {

class Steps {
 public:
  explicit Steps(std::string name) : name_(std::move(name)) {}
  void operator()(std::string_view step, const Status& outcome) const;

 private:
  std::string name_;
};

}  // namespace karvel
