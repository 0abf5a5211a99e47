// Makes a sample shop to try the desk on.
#include <fmt/format.h>

#include <charconv>
#include <cstring>
#include <exception>
#include <string>
#include <string_view>

#include "sample_shop/shop.h"

namespace {

constexpr std::string_view kUsage = "karvel-sample-shop <KARVEL_HOME> [--cards N] [--customers N] [--rows N] [--seed N]\n";
constexpr std::uint64_t kMost = 1'000'000;

bool ReadNumber(std::string_view text, std::uint64_t& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size();
}

}  // namespace

int main(int count, char** words) {
  std::string home;
  karvel::sample::ShopSize size;
  for (int i = 1; i < count; ++i) {
    const std::string_view word = words[i];
    std::uint64_t number = 0;
    if (!word.starts_with("--")) {
      home = word;
      continue;
    }
    ++i;
    if (i == count || !ReadNumber(words[i], number) || (word != "--seed" && number > kMost)) {
      fmt::print(stderr, "{}", kUsage);
      return 2;
    }
    if (word == "--cards")
      size.cards = number;
    else if (word == "--customers")
      size.customers = number;
    else if (word == "--rows")
      size.rows = number;
    else if (word == "--seed")
      size.seed = number;
    else {
      fmt::print(stderr, "{}", kUsage);
      return 2;
    }
  }
  if (home.empty()) {
    fmt::print(stderr, "{}", kUsage);
    return 2;
  }
  try {
    karvel::sample::MakeShop(home, size);
  } catch (const std::exception& failure) {
    fmt::print(stderr, "karvel-sample-shop: {}\n", failure.what());
    return 1;
  }
  return 0;
}
