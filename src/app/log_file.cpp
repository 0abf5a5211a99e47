#include "app/log_file.h"

#include <fcntl.h>
#include <spdlog/sinks/rotating_file_sink.h>
#include <spdlog/spdlog.h>
#include <unistd.h>

#include <cstdio>
#include <memory>
#include <string_view>

#include "app/private_files.h"
#include "platform/log.h"

namespace karvel {
namespace {
constexpr std::size_t kLargest = 1 << 20;
constexpr std::size_t kKept = 3;

// The log opens its file as anybody's, and through any link: so the file is there before, made for its user alone.
void ClearWay(const std::string& path) {
  if (IsLink(path)) unlink(path.c_str());
  if (const int file = OpenPrivate(path, O_WRONLY | O_CREAT); file >= 0) close(file);
}

}  // namespace

LogFile::LogFile(const std::string& homeFolder, const std::string& title) {
  // A full or read-only disk ends the log, not the desk.
  const auto tell = [](const std::string& error) { std::fprintf(stderr, "log: %s\n", error.c_str()); };
  try {
    if (const Status made = MakePrivateFolder(homeFolder + "/log"); !made.Ok()) tell(made.Message());
    const std::string path = homeFolder + "/log/" + title + ".log";
    spdlog::file_event_handlers handlers;
    handlers.before_open = ClearWay;
    auto sink = std::make_shared<spdlog::sinks::rotating_file_sink_mt>(path, kLargest, kKept, false, handlers);
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
