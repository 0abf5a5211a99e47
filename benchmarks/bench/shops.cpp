#include "bench/shops.h"

#include <fmt/format.h>
#include <unistd.h>

#include <filesystem>

namespace karvel::bench {

namespace fs = std::filesystem;

sample::ShopSize ShopSizeOf(Size size) {
  switch (size) {
    case Size::Small:
      return {1000, 1000, 1000, 1};
    case Size::Busy:
      return {100'000, 100'000, 1'000'000, 1};
    case Size::Wide:
      return {1'000'000, 1'000'000, 1000, 1};
  }
  return {};
}

// Copies of a run that was broken off take much room.
Shops::Shops(std::string folder) : folder_(std::move(folder)) {
  fs::create_directories(folder_);
  for (const auto& entry : fs::directory_iterator(folder_)) {
    const std::string name = entry.path().filename().string();
    if (name.starts_with("copies-") && !fs::exists("/proc/" + name.substr(7))) fs::remove_all(entry.path());
  }
}

Shops::~Shops() {
  std::error_code ignored;
  fs::remove_all(fmt::format("{}/copies-{}", folder_, getpid()), ignored);
}

std::string Shops::Kept(Size size) {
  const sample::ShopSize numbers = ShopSizeOf(size);
  const std::string home = fmt::format("{}/{}-{}-{}", folder_, numbers.cards, numbers.customers, numbers.rows);
  if (fs::exists(home)) return home;
  // A shop that is broken off half-way never stands under its name.
  fmt::print(stderr, "Making the sample shop {} ...\n", home);
  const std::string unfinished = home + ".new";
  fs::remove_all(unfinished);
  sample::MakeShop(unfinished, numbers);
  fs::rename(unfinished, home);
  return home;
}

std::string Shops::Copy(Size size) {
  const std::string home = fmt::format("{}/copies-{}/{}", folder_, getpid(), copies_++);
  fs::create_directories(home);
  fs::copy(Kept(size), home, fs::copy_options::recursive);
  return home;
}

}  // namespace karvel::bench
