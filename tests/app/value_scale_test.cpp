#include "app/value_scale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "text/turkish.h"

namespace karvel {
namespace {

Value T(const char* text) {
  return std::string(text);
}

TEST(ValueScale, places_order_as_the_lists_do) {
  const auto scale = ValueScale::Between(T("Abdullah"), T("Zümrüt"));
  ASSERT_TRUE(scale);
  std::vector<std::string> names{"Abdullah", "Çağla", "Cem", "Dudu", "Gül", "Ğ", "Işık", "ılık", "İnce", "Şahin", "Suna", "Tunç", "Zümrüt"};
  std::ranges::sort(names, {}, [](const std::string& name) { return FoldKey(name); });
  double before = -1;
  for (const std::string& name : names) {
    const double place = scale->PlaceOf(name);
    EXPECT_GT(place, before) << name;
    before = place;
  }
  EXPECT_DOUBLE_EQ(scale->PlaceOf(T("Abdullah")), 0);
  EXPECT_DOUBLE_EQ(scale->PlaceOf(T("Zümrüt")), 1);
}

TEST(ValueScale, the_value_of_a_place_stands_at_that_place) {
  for (const auto& [first, last] : {std::pair{T("Ayran"), T("Zeytin")}, {T("Mal 0000"), T("Mal 9999")}, {T("Zeytin"), T("Ayran")}}) {
    const auto scale = ValueScale::Between(first, last);
    ASSERT_TRUE(scale);
    for (const double place : {0.1, 0.25, 0.5, 0.9}) EXPECT_NEAR(scale->PlaceOf(scale->At(place)), place, 0.001);
  }
}

TEST(ValueScale, numbers_and_dates_go_in_proportion) {
  const auto numbers = ValueScale::Between(Value(-50.0), Value(150.0));
  ASSERT_TRUE(numbers);
  EXPECT_DOUBLE_EQ(numbers->PlaceOf(Value(50.0)), 0.5);
  const auto dates = ValueScale::Between(Value(DateTime{2026, 3, 31}), Value(DateTime{2026, 3, 1}));
  ASSERT_TRUE(dates);
  EXPECT_EQ(std::get<DateTime>(dates->At(0.5)), (DateTime{2026, 3, 16}));
}

TEST(ValueScale, ends_that_are_alike_make_no_scale) {
  EXPECT_FALSE(ValueScale::Between(T("Kalem"), T("Kalem")));
  EXPECT_FALSE(ValueScale::Between(Value(true), Value(false)));
  EXPECT_FALSE(ValueScale::Between(Value(1.0), T("bir")));
}

}  // namespace
}  // namespace karvel
