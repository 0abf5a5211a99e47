#include "text/date_time.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace karvel {
namespace {

TEST(DateTime, the_zero_value_is_no_date) {
  EXPECT_TRUE(DateTime{}.IsEmpty());
  EXPECT_EQ(DateTime{}.ToIso(), "");
  EXPECT_EQ(DateTime{}.PlusDays(1), DateTime{});
  EXPECT_EQ(DateTime{}.PlusSeconds(1), DateTime{});
  EXPECT_FALSE((DateTime{2026, 3, 1}).IsEmpty());
}

TEST(DateTime, the_stores_form_reads_back) {
  const DateTime moment{2026, 3, 1, 9, 5, 7};
  EXPECT_EQ(moment.ToIso(), "2026-03-01 09:05:07");
  EXPECT_EQ(DateTime::FromIso("2026-03-01 09:05:07"), moment);
  EXPECT_EQ(DateTime::FromIso("2026-03-01T09:05:07"), moment);
  EXPECT_EQ(DateTime::FromIso("2026-03-01"), moment.Date());
}

TEST(DateTime, a_damaged_text_is_no_date) {
  for (const std::string text : {"", "2026", "2026-3-1", "2026-13-01", "2026-02-29", "2026-00-10", "2026-01-00", "0000-01-01",
                                 "2026-03-01 24:00:00", "2026-03-01 10:60:00", "2026-03-01 10:00:60", "2026-03-01x", "2026-03-01 10:00:00 ",
                                 "2026-03-01 ", "2026-03-01 10:0", "20260301", "-026-03-01", "abc"}) {
    EXPECT_TRUE(DateTime::FromIso(text).IsEmpty()) << text;
  }
}

TEST(DateTime, a_clerks_text_is_day_first) {
  const DateTime day{2026, 3, 1};
  EXPECT_EQ(DateTime::FromText("01.03.2026"), day);
  EXPECT_EQ(DateTime::FromText("01/03/2026"), day);
  EXPECT_EQ(DateTime::FromText("1.3.2026"), day);
  EXPECT_EQ(DateTime::FromText(" 01.03.2026 "), day);
  EXPECT_EQ(DateTime::FromText("01.03.2026 09:05"), (DateTime{2026, 3, 1, 9, 5, 0}));
  EXPECT_EQ(DateTime::FromText("01.03.2026 09:05:07"), (DateTime{2026, 3, 1, 9, 5, 7}));
  EXPECT_EQ(DateTime::FromText("2026-03-01 09:05:07"), (DateTime{2026, 3, 1, 9, 5, 7}));
  EXPECT_EQ(DateTime::FromText("29.02.2024"), (DateTime{2024, 2, 29}));
}

TEST(DateTime, a_clerks_slip_of_the_pen_is_no_date) {
  for (const std::string text : {"", "01.03", "01.03.26", "31.04.2026", "29.02.2026", "13/13/2026", "01.03/2026", "01.03.2026x",
                                 "1 Mart 2026", "01.03.2026T10:00"}) {
    EXPECT_TRUE(DateTime::FromText(text).IsEmpty()) << text;
  }
}

TEST(DateTime, weekdays_run_from_monday) {
  EXPECT_EQ((DateTime{2026, 3, 1}).Weekday(), 7);
  EXPECT_EQ((DateTime{2026, 3, 2}).Weekday(), 1);
  EXPECT_EQ((DateTime{1969, 12, 31}).Weekday(), 3);
}

TEST(DateTime, days_and_seconds_count_from_1970) {
  EXPECT_EQ((DateTime{1970, 1, 1}).DayNumber(), 0);
  EXPECT_EQ((DateTime{1969, 12, 31}).DayNumber(), -1);
  EXPECT_EQ((DateTime{2026, 3, 1}).DayNumber(), 20513);
  EXPECT_EQ((DateTime{1970, 1, 2, 0, 0, 1}).SecondNumber(), 86401);
  EXPECT_EQ((DateTime{1969, 12, 31, 23, 59, 59}).SecondNumber(), -1);
}

TEST(DateTime, every_day_of_a_century_counts_on_by_one) {
  DateTime day{1999, 12, 31, 12, 30, 15};
  for (std::int64_t i = 0; i < 36600; ++i) {
    const DateTime next = day.PlusDays(1);
    ASSERT_EQ(next.DayNumber(), day.DayNumber() + 1) << day.ToIso();
    ASSERT_LT(day, next);
    ASSERT_EQ(DateTime::FromIso(next.ToIso()), next);
    ASSERT_EQ(DateTime::FromSecondNumber(next.SecondNumber()), next);
    ASSERT_EQ(next.Weekday(), day.Weekday() % 7 + 1);
    day = next;
  }
}

TEST(DateTime, seconds_carry_into_days) {
  EXPECT_EQ((DateTime{2026, 2, 28, 23, 59, 59}).PlusSeconds(1), (DateTime{2026, 3, 1}));
  EXPECT_EQ((DateTime{2026, 3, 1}).PlusSeconds(-1), (DateTime{2026, 2, 28, 23, 59, 59}));
  EXPECT_EQ((DateTime{2026, 3, 1}).PlusDays(-1), (DateTime{2026, 2, 28}));
}

TEST(DateTime, the_ends_of_time_hold) {
  constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
  EXPECT_EQ((DateTime{2026, 3, 1}).PlusDays(kMost), (DateTime{9999, 12, 31}));
  EXPECT_EQ((DateTime{2026, 3, 1}).PlusDays(-kMost), (DateTime{1, 1, 1}));
  EXPECT_EQ((DateTime{2026, 3, 1}).PlusSeconds(kMost), (DateTime{9999, 12, 31, 23, 59, 59}));
  EXPECT_EQ(DateTime::FromSecondNumber(std::numeric_limits<std::int64_t>::min()), (DateTime{1, 1, 1}));
}

TEST(DateTime, moments_order_by_time) {
  EXPECT_LT((DateTime{2026, 3, 1, 23, 59, 59}), (DateTime{2026, 3, 2}));
  EXPECT_LT((DateTime{2025, 12, 31}), (DateTime{2026, 1, 1}));
  EXPECT_LT(DateTime{}, (DateTime{1, 1, 1}));
}

}  // namespace
}  // namespace karvel
