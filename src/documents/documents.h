// All that the desk prints, and the panels that print it: every feature of this folder, built on a desk and connected to its elements.
//
// Constructed before the desk loads; lives no longer than the desk.
#pragma once

#include <memory>

namespace karvel {

class Desk;
class Exchange;

class Documents {
 public:
  Documents(Desk& desk, Exchange& exchange);
  ~Documents();
  Documents(const Documents&) = delete;
  Documents& operator=(const Documents&) = delete;

 private:
  struct Features;
  std::unique_ptr<Features> features_;
};

}  // namespace karvel
