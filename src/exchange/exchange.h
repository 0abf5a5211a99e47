// What the desk keeps and clears away beside its sales and accounts: every feature of this folder, built on a desk and connected to it.
//
// Constructed before the desk loads; lives no longer than the desk.
#pragma once

#include <memory>

namespace karvel {

class Desk;
struct PrintedDay;

class Exchange {
 public:
  explicit Exchange(Desk& desk);
  ~Exchange();
  Exchange(const Exchange&) = delete;
  Exchange& operator=(const Exchange&) = delete;

  // The paper of a slip or day is out, and SlipNo is still its number.
  void SendDayFile(const PrintedDay& day);

 private:
  struct Features;
  std::unique_ptr<Features> features_;
};

}  // namespace karvel
