#include "store/value.h"

#include <gtest/gtest.h>

#include <string>

namespace karvel {
namespace {

const DateTime kMoment{2026, 3, 1, 9, 5, 7};

TEST(Value, a_null_is_nothing_of_every_kind) {
  const Value null;
  EXPECT_EQ(AsNumber(null), 0);
  EXPECT_EQ(AsText(null), "");
  EXPECT_FALSE(AsBoolean(null));
  EXPECT_TRUE(AsDate(null).IsEmpty());
}

TEST(Value, a_number_in_a_text_is_read_by_the_desks_locale) {
  EXPECT_EQ(AsNumber(Value(std::string("1.250,75"))), 1250.75);
  EXPECT_EQ(AsNumber(Value(std::string("abc"))), 0);
  EXPECT_EQ(AsNumber(Value(true)), 1);
}

TEST(Value, texts_are_plain) {
  EXPECT_EQ(AsText(Value(1250.75)), "1250,75");
  EXPECT_EQ(AsText(Value(0.0)), "0");
  EXPECT_EQ(AsText(Value(std::string("Şeker"))), "Şeker");
  EXPECT_EQ(AsText(Value(true)), "True");
  EXPECT_EQ(AsText(Value(false)), "False");
  EXPECT_EQ(AsText(Value(kMoment)), "01.03.2026 09:05:07");
  EXPECT_EQ(AsText(Value(kMoment.Date())), "01.03.2026");
  EXPECT_EQ(AsText(Value(DateTime{})), "");
}

TEST(Value, anything_but_nothing_is_true) {
  EXPECT_TRUE(AsBoolean(Value(-1.0)));
  EXPECT_FALSE(AsBoolean(Value(0.0)));
  EXPECT_TRUE(AsBoolean(Value(std::string("Doğru"))));
  EXPECT_TRUE(AsBoolean(Value(std::string("1"))));
  EXPECT_FALSE(AsBoolean(Value(std::string("hayır"))));
  EXPECT_TRUE(AsBoolean(Value(kMoment)));
}

TEST(Value, dates_come_from_texts_and_day_counts) {
  EXPECT_EQ(AsDate(Value(std::string("2026-03-01 09:05:07"))), kMoment);
  EXPECT_EQ(AsDate(Value(std::string("01.03.2026 09:05:07"))), kMoment);
  EXPECT_TRUE(AsDate(Value(std::string("bugün"))).IsEmpty());
  EXPECT_TRUE(AsDate(Value(true)).IsEmpty());
  EXPECT_EQ(AsNumber(Value(DateTime{2026, 3, 1})), 46082);
  EXPECT_EQ(AsDate(Value(AsNumber(Value(kMoment)))), kMoment);
  EXPECT_TRUE(AsDate(Value(0.0)).IsEmpty());
  EXPECT_TRUE(AsDate(Value(1e300)).IsEmpty());
}

}  // namespace
}  // namespace karvel
