// The money and stock side of the desk: every feature of this folder, built on a desk and connected to its elements.
//
// Constructed before the desk loads; lives no longer than the desk.
#pragma once

#include <memory>

namespace karvel {

class Desk;

class Accounts {
 public:
  explicit Accounts(Desk& desk);
  ~Accounts();
  Accounts(const Accounts&) = delete;
  Accounts& operator=(const Accounts&) = delete;

 private:
  struct Features;
  std::unique_ptr<Features> features_;
};

}  // namespace karvel
