#include "platform/signal.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace karvel {
namespace {

TEST(Signal, calls_its_handlers_in_the_order_in_which_they_connected) {
  Signal<const std::string&> said;
  std::string heard;
  const ScopedConnection first = said.Connect([&](const std::string& text) { heard += "1" + text; });
  const ScopedConnection second = said.Connect([&](const std::string& text) { heard += "2" + text; });
  said("a");
  EXPECT_EQ(heard, "1a2a");
}

TEST(Signal, a_connection_that_ended_is_heard_no_more) {
  Signal<> rung;
  int heard = 0;
  {
    const ScopedConnection connection = rung.Connect([&] { ++heard; });
    rung();
  }
  rung();
  EXPECT_EQ(heard, 1);
}

TEST(Signal, a_connection_may_outlive_its_signal) {
  std::optional<Signal<>> rung(std::in_place);
  ScopedConnection connection = rung->Connect([] {});
  rung.reset();
  connection.End();
}

TEST(Signal, a_handler_may_end_its_own_connection_and_one_that_is_still_to_come) {
  Signal<> rung;
  std::string heard;
  ScopedConnection first, second;
  first = rung.Connect([&] {
    first.End();
    second.End();
    heard += "1";
  });
  second = rung.Connect([&] { heard += "2"; });
  const ScopedConnection third = rung.Connect([&] { heard += "3"; });
  rung();
  rung();
  EXPECT_EQ(heard, "133");
}

TEST(Signal, a_handler_that_connects_during_a_run_is_first_called_by_the_next) {
  Signal<> rung;
  int heard = 0;
  Connections later;
  const ScopedConnection first = rung.Connect([&] { later += rung.Connect([&] { ++heard; }); });
  rung();
  EXPECT_EQ(heard, 0);
  rung();
  EXPECT_EQ(heard, 1);
}

TEST(Signal, a_handler_may_raise_the_same_signal_again) {
  Signal<int> counted;
  std::string heard;
  const ScopedConnection connection = counted.Connect([&](int n) {
    heard += std::to_string(n);
    if (n > 0) counted(n - 1);
  });
  counted(2);
  EXPECT_EQ(heard, "210");
}

TEST(Signal, a_connection_that_takes_the_place_of_another_ends_that) {
  Signal<> rung;
  std::string heard;
  ScopedConnection connection = rung.Connect([&] { heard += "1"; });
  connection = rung.Connect([&] { heard += "2"; });
  rung();
  EXPECT_EQ(heard, "2");
}

}  // namespace
}  // namespace karvel
