#pragma once

#include "platform/event_loop.h"

namespace karvel {

// The application's event loop.
class QtEventLoop : public EventLoop {
 public:
  // While `waitsEndAtOnce` returns true, Wait only runs what is pending.
  explicit QtEventLoop(std::function<bool()> waitsEndAtOnce = {});
  void RunPending() override;
  void RunPendingButInput() override;
  void Wait(int milliseconds) override;
  void Later(std::function<void()> work) override;
  [[nodiscard]] std::shared_ptr<void> Every(int milliseconds, std::function<void()> tick) override;
  // Whether RunPendingButInput is at work: whoever stands in for the clerk's hands waits, as his own taps do.
  [[nodiscard]] static bool InputIsHeld() { return inputHeld_ > 0; }

 private:
  inline static int inputHeld_ = 0;
  std::function<bool()> waitsEndAtOnce_;
};

}  // namespace karvel
