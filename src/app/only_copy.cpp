#include "app/only_copy.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "app/private_files.h"
#include "platform/log.h"

namespace karvel {
namespace {

void LogBell(const std::string& bell) {
  Log("bell " + bell + ": " + std::generic_category().message(errno));
}

}  // namespace

OnlyCopy::OnlyCopy(const std::string& path, std::function<void()> rung)
    : bell_(path + ".bell"), rung_(std::move(rung)), lock_(path + ".lock") {}

OnlyCopy::~OnlyCopy() {
  notifier_.reset();
  if (handle_ >= 0) close(handle_);
}

std::expected<Claim, Status> OnlyCopy::Claim() {
  const Status tried = lock_.Try();
  if (tried.Kind() == ErrorKind::Busy) {
    Ring();
    return Claim::Taken;
  }
  if (!tried.Ok()) return std::unexpected(tried);
  HearBell();
  return Claim::Ours;
}

// A desk without a bell works all the same.
void OnlyCopy::HearBell() {
  if (handle_ >= 0) return;
  if (mkfifo(bell_.c_str(), S_IRUSR | S_IWUSR) != 0 && errno != EEXIST) return LogBell(bell_);
  // Opened for writing too: a bell whose ringers have all gone would report its end for ever.
  handle_ = OpenPrivate(bell_, O_RDWR | O_NONBLOCK);
  if (handle_ < 0) return LogBell(bell_);
  struct stat info{};
  if (fstat(handle_, &info) != 0 || !S_ISFIFO(info.st_mode)) return Log("bell " + bell_ + ": it is something else");
  notifier_ = std::make_unique<QSocketNotifier>(handle_, QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] {
    char rings[64];
    bool any = false;
    while (read(handle_, rings, sizeof(rings)) > 0) any = true;
    if (any) rung_();
  });
}

void OnlyCopy::Ring() const {
  // Opened for both, this never waits, and a copy that goes at this moment doesn't end us by a broken pipe.
  const int bell = OpenPrivate(bell_, O_RDWR | O_NONBLOCK);
  if (bell < 0) return;
  if (write(bell, "!", 1) != 1) LogBell(bell_);
  close(bell);
}

}  // namespace karvel
