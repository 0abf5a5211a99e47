#include "platform/log.h"

#include <mutex>
#include <utility>

namespace karvel {
namespace {
std::mutex sinkMutex;
std::function<void(std::string_view)> theSink;
std::string thePlace;
}  // namespace

void Log(std::string_view line) {
  const std::lock_guard lock(sinkMutex);
  if (theSink) theSink(line);
}

std::string LogPlace() {
  const std::lock_guard lock(sinkMutex);
  return thePlace;
}

std::function<void(std::string_view)> SetLogSink(std::function<void(std::string_view)> sink, std::string place) {
  const std::lock_guard lock(sinkMutex);
  thePlace = std::move(place);
  return std::exchange(theSink, std::move(sink));
}

}  // namespace karvel
