#include "settings/slip_number.h"

#include <gtest/gtest.h>

#include "tests/support/memory_settings.h"

namespace karvel {
namespace {

TEST(SlipNumber, counts_for_all_terminals_together) {
  MemorySettings store;
  Settings first(store, "Velmora Karvel1");
  Settings second(store, "Velmora Karvel2");
  EXPECT_EQ(NextSlipNumber(first), "000001");
  EXPECT_EQ(NextSlipNumber(second), "000002");
  EXPECT_EQ(NextSlipNumber(first), "000003");
  EXPECT_EQ(store.Get("Velmora Karvel", "Size", "DökNo", "-"), "000003");
}

TEST(SlipNumber, takes_number_and_saves_it_in_one_piece) {
  MemorySettings store;
  Settings settings(store, "Velmora Karvel1");
  NextSlipNumber(settings);
  EXPECT_EQ(store.Changes(), 1);
}

TEST(SlipNumber, goes_on_behind_six_digits_and_starts_over_from_a_damaged_one) {
  MemorySettings store;
  Settings settings(store, "Velmora Karvel1");
  settings.Save(Setting::SlipNo, "999999");
  EXPECT_EQ(NextSlipNumber(settings), "1000000");
  settings.Save(Setting::SlipNo, "");
  EXPECT_EQ(NextSlipNumber(settings), "000001");
}

}  // namespace
}  // namespace karvel
