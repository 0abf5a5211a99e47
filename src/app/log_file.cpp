#include "app/log_file.h"

#include <spdlog/sinks/rotating_file_sink.h>
#include <spdlog/spdlog.h>

#include <cstdio>
#include <memory>
#include <string_view>

#include "platform/log.h"

namespace karvel {
namespace {
constexpr std::size_t kLargest = 1 << 20;
constexpr std::size_t kKept = 3;
}  // namespace

LogFile::LogFile(const std::string& homeFolder, const std::string& title) {
  // A full or read-only disk ends the log, not the desk.
  const auto tell = [](const std::string& error) { std::fprintf(stderr, "log: %s\n", error.c_str()); };
  try {
    const std::string path = homeFolder + "/log/" + title + ".log";
    auto sink = std::make_shared<spdlog::sinks::rotating_file_sink_mt>(path, kLargest, kKept);
    auto logger = std::make_shared<spdlog::logger>("desk", std::move(sink));
    logger->set_pattern("%Y-%m-%d %H:%M:%S.%e %v");
    logger->flush_on(spdlog::level::info);
    logger->set_error_handler(tell);
    SetLogSink([logger](std::string_view line) { logger->info("{}", line); }, path);
  } catch (const spdlog::spdlog_ex& error) {
    tell(error.what());
  }
}

LogFile::~LogFile() {
  SetLogSink({});
}

}  // namespace karvel
