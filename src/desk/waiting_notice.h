// What the clerk sees while the desk waits for another terminal or program: nothing for half a second, then the reason, until the wait is
// over. The window goes on painting; keys, taps and scans wait with it.
#pragma once

#include <chrono>
#include <string>

#include "desk/parts.h"
#include "platform/wait_listener.h"

namespace karvel {

class WaitingNotice : public WaitListener {
 public:
  // Hears of the waits of the stores and the settings for as long as it lives.
  explicit WaitingNotice(const DeskParts& parts);
  ~WaitingNotice() override;
  WaitingNotice(const WaitingNotice&) = delete;
  WaitingNotice& operator=(const WaitingNotice&) = delete;

  void Waiting(std::chrono::milliseconds soFar) override;
  void WaitOver() override;

 private:
  void Show(bool shown);

  Screen& screen_;
  const World& world_;
  bool shown_ = false;
  // What the panel showed before.
  bool wasVisible_ = false;
  std::string caption_;
};

}  // namespace karvel
