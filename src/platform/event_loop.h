#pragma once

#include <functional>
#include <memory>

namespace karvel {

// The window's event loop, as seen from handlers. Everything runs on the one desk thread.
class EventLoop {
 public:
  virtual ~EventLoop() = default;
  // Lets waiting events run, then returns. Handlers may nest: read the state afresh afterwards.
  virtual void RunPending() = 0;
  // The same for what the window itself needs (painting, timers), but a key, tap or scan of the clerk keeps its place in the queue.
  // For the middle of a posting.
  virtual void RunPendingButInput() = 0;
  // Lets events run for the time told. Ends at once under a fixed clock.
  virtual void Wait(int milliseconds) = 0;
  // Runs the work once, from the loop, when everything that waits now has run.
  virtual void Later(std::function<void()> work) = 0;
  // Calls `tick` every `milliseconds` until the returned handle is dropped.
  [[nodiscard]] virtual std::shared_ptr<void> Every(int milliseconds, std::function<void()> tick) = 0;
};

}  // namespace karvel
