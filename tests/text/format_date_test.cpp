#include <gtest/gtest.h>

#include "text/format.h"

namespace karvel {
namespace {

const DateTime kMoment{2026, 3, 1, 9, 5, 7};  // a Sunday

TEST(FormatDate, short_date_is_day_month_year) {
  EXPECT_EQ(Format(kMoment, "Short Date"), "01.03.2026");
  EXPECT_EQ(Format(kMoment, "short date"), "01.03.2026");
}

TEST(FormatDate, names_are_turkish) {
  EXPECT_EQ(Format(kMoment, "dd mmmm yyyy dddd"), "01 Mart 2026 Pazar");
  EXPECT_EQ(Format(DateTime{2026, 8, 26}, "dd mmmm yyyy dddd"), "26 Ağustos 2026 Çarşamba");
  EXPECT_EQ(Format(DateTime{2026, 2, 28}, "d mmm ddd"), "28 Şub Cmt");
}

TEST(FormatDate, signs_stay_as_typed) {
  EXPECT_EQ(Format(kMoment, "dd/mm/yyyy"), "01/03/2026");
  EXPECT_EQ(Format(kMoment, "mm/dd/yyyy"), "03/01/2026");
  EXPECT_EQ(Format(kMoment, "yyyymmdd"), "20260301");
  EXPECT_EQ(Format(kMoment, "d-m-yy"), "1-3-26");
}

TEST(FormatDate, mm_behind_hours_is_minutes) {
  EXPECT_EQ(Format(kMoment, "hh:mm"), "09:05");
  EXPECT_EQ(Format(kMoment, "hhmm"), "0905");
  EXPECT_EQ(Format(kMoment, "hh:mm:ss"), "09:05:07");
  EXPECT_EQ(Format(kMoment, "hh:nn dd/mm"), "09:05 01/03");
  EXPECT_EQ(Format(kMoment, "dd.mm.yyyy hh:mm"), "01.03.2026 09:05");
  EXPECT_EQ(Format(kMoment, "hh mm"), "09 03");
}

TEST(FormatDate, no_date_is_no_text) {
  EXPECT_EQ(Format(DateTime{}, "dd.mm.yyyy"), "");
}

}  // namespace
}  // namespace karvel
