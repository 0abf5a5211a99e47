#include "settings/slip_number.h"

#include <gtest/gtest.h>

#include "tests/support/memory_settings.h"

namespace karvel {
namespace {

std::expected<double, Status> EmptyBook() {
  return 0;
}

TEST(SlipNumber, counts_for_all_terminals_together) {
  MemorySettings store;
  Settings first(store, "Velmora Karvel1");
  Settings second(store, "Velmora Karvel2");
  EXPECT_EQ(NextSlipNumber(first, 0, EmptyBook), "000001");
  EXPECT_EQ(NextSlipNumber(second, 0, EmptyBook), "000002");
  EXPECT_EQ(NextSlipNumber(first, 0, EmptyBook), "000003");
  EXPECT_EQ(store.Get("Velmora Karvel", "Size", "DökNo", "-"), "000003");
}

TEST(SlipNumber, takes_number_and_saves_it_in_one_piece) {
  MemorySettings store;
  Settings settings(store, "Velmora Karvel1");
  settings.Save(Setting::SlipNo, "000007");
  EXPECT_EQ(NextSlipNumber(settings, 0, EmptyBook), "000008");
  EXPECT_EQ(store.Changes(), 1);
}

TEST(SlipNumber, goes_on_behind_six_digits_and_starts_over_from_a_damaged_one) {
  MemorySettings store;
  Settings settings(store, "Velmora Karvel1");
  settings.Save(Setting::SlipNo, "999999");
  EXPECT_EQ(NextSlipNumber(settings, 0, EmptyBook), "1000000");
  settings.Save(Setting::SlipNo, "");
  EXPECT_EQ(NextSlipNumber(settings, 0, EmptyBook), "000001");
}

TEST(SlipNumber, goes_on_from_the_day_book_where_the_settings_were_lost) {
  MemorySettings store;
  Settings settings(store, "Velmora Karvel1");
  settings.Save(Setting::SlipNo, UncertainSlipNumber(""));
  EXPECT_EQ(NextSlipNumber(settings, 0, [] { return 120; }), "000121");
  EXPECT_EQ(NextSlipNumber(settings, 0, [] { return 500; }), "000122");  // known again: the book is not asked
  settings.Save(Setting::SlipNo, UncertainSlipNumber("000200"));
  EXPECT_EQ(NextSlipNumber(settings, 0, [] { return 120; }), "000201");  // later slips went out than the book still has
}

TEST(SlipNumber, is_not_given_while_the_day_book_can_not_be_read) {
  MemorySettings store;
  Settings settings(store, "Velmora Karvel1");
  settings.Save(Setting::SlipNo, UncertainSlipNumber("000007"));
  const auto refused = NextSlipNumber(settings, 0, [] { return std::unexpected(Status(ErrorKind::Busy, "kept")); });
  ASSERT_FALSE(refused);
  EXPECT_EQ(refused.error().Kind(), ErrorKind::Busy);
  EXPECT_EQ(settings.Get(Setting::SlipNo), "000007?");
}

TEST(SlipNumber, is_not_given_while_the_settings_are_kept) {
  MemorySettings store;
  store.changeFault = Status(ErrorKind::Busy, "kept").About(Subject::Settings);
  Settings settings(store, "Velmora Karvel1");
  EXPECT_FALSE(NextSlipNumber(settings, 0, EmptyBook));
}

}  // namespace
}  // namespace karvel
