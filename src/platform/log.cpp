#include "platform/log.h"

#include <mutex>
#include <utility>

namespace karvel {
namespace {
std::mutex sinkMutex;
std::function<void(std::string_view)> theSink;
}  // namespace

void Log(std::string_view line) {
  const std::lock_guard lock(sinkMutex);
  if (theSink) theSink(line);
}

std::function<void(std::string_view)> SetLogSink(std::function<void(std::string_view)> sink) {
  const std::lock_guard lock(sinkMutex);
  return std::exchange(theSink, std::move(sink));
}

}  // namespace karvel
