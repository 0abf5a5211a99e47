#include "documents/slip_selection.h"

#include <gtest/gtest.h>

namespace karvel {
namespace {

const DateTime kDay{2026, 3, 1, 0, 0, 0};
const std::string kOfDay = "Tarih>=#03/01/2026 00:00:00# And Tarih<=#03/01/2026 23:59:59#";

TEST(SlipSelection, the_newest_slip_is_printed_again) {
  EXPECT_EQ(SlipCriteria({.newestSlipNo = "000007"}, kDay), "SeriNo='000007' And " + kOfDay);
  EXPECT_EQ(SlipCriteria({.collecting = true, .newestSlipNo = "000007", .openSlipNo = "000009"}, kDay), "SeriNo='000007' And " + kOfDay);
}

TEST(SlipSelection, a_closing_sale_takes_the_lines_of_the_open_slip_whatever_their_day) {
  EXPECT_EQ(SlipCriteria({.openSlipMeant = true, .collecting = true, .newestSlipNo = "", .openSlipNo = "000009"}, kDay), "SeriNo='000009'");
  EXPECT_EQ(SlipCriteria({.openSlipMeant = true, .collecting = true, .newestSlipNo = "000008", .openSlipNo = "000009"}, kDay),
            "SeriNo='000009'");
}

TEST(SlipSelection, a_collection_without_an_open_slip_takes_the_slips_of_the_day) {
  EXPECT_EQ(SlipCriteria({.openSlipMeant = true, .collecting = true}, kDay), "SeriNo<>'' And " + kOfDay);
  EXPECT_EQ(SlipCriteria({.collecting = true}, kDay), "SeriNo<>'' And " + kOfDay);
}

TEST(SlipSelection, the_trigger_without_a_panel_takes_the_lines_of_no_slip) {
  EXPECT_EQ(SlipCriteria({.openSlipMeant = true, .newestSlipNo = "000007", .openSlipNo = "000009"}, kDay), "SeriNo='' And " + kOfDay);
}

TEST(SlipSelection, with_a_newest_line_of_no_slip_the_whole_day_is_taken) {
  EXPECT_EQ(SlipCriteria({.openSlipNo = "000009"}, kDay), kOfDay);
}

TEST(SlipSelection, a_code_with_a_quote_stays_a_text) {
  EXPECT_EQ(LinesOf("O'1", "SeriNo=''"), "Select * From Datam Where CariKod='O''1' And SeriNo='' Order By Tarih Asc");
}

}  // namespace
}  // namespace karvel
