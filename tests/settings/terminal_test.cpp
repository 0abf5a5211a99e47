#include "settings/terminal.h"

#include <gtest/gtest.h>

namespace karvel {
namespace {

TEST(TerminalNo, is_the_last_digit_of_the_title) {
  EXPECT_EQ(TerminalNo("Velmora Karvel1"), "01");
  EXPECT_EQ(TerminalNo("Velmora Karvel2"), "02");
  EXPECT_EQ(TerminalNo("Velmora Karvel12"), "02");
}

TEST(TerminalNo, there_is_no_terminal_zero) {
  EXPECT_EQ(TerminalNo("Velmora Karvel0"), "01");
}

TEST(TerminalNo, a_letter_stays) {
  EXPECT_EQ(TerminalNo("Velmora KarvelA"), "A");
  EXPECT_EQ(TerminalNo("Velmora KarvelŞ"), "Ş");
  EXPECT_EQ(TerminalNo("Velmora Karvel"), "l");
  EXPECT_EQ(TerminalNo(""), "");
}

TEST(TerminalNumber, is_the_plain_number) {
  EXPECT_EQ(TerminalNumber("01"), "1");
  EXPECT_EQ(TerminalNumber("09"), "9");
  EXPECT_EQ(TerminalNumber("A"), "A");
}

}  // namespace
}  // namespace karvel
