// What a double tap on a tile would do: a single tap says so in the quiet line.
#pragma once

#include <functional>
#include <string>

#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class DoubleTapHints {
 public:
  // Connects before those who answer the double tap: the hint goes with it, and what they say stays.
  explicit DoubleTapHints(const DeskParts& parts);

 private:
  void Explain(Element& tile, std::function<std::string()> hint);
  [[nodiscard]] std::string LeadingTo() const;

  Screen& screen_;
  std::string shown_;
  Connections connections_;
};

}  // namespace karvel
