#include "platform/share.h"

#include <gtest/gtest.h>

namespace karvel {
namespace {

std::string Machines(const std::string& address) {
  std::string text;
  for (const ServerPlace& place : MainMachines(address)) text += "<" + place.host + "|" + std::to_string(place.port) + ">";
  return text;
}

TEST(Share, a_data_folder_of_the_main_machine_is_told_from_one_of_this_machine) {
  EXPECT_TRUE(IsShare(ShareFolder("10.0.0.5", "01")));
  EXPECT_EQ(ShareFolder("10.0.0.5", "01"), "\\\\10.0.0.5\\MuhasebeData\\01");
  EXPECT_FALSE(IsShare("C:\\KarvelData\\"));
  EXPECT_FALSE(IsShare(""));
}

TEST(Share, an_address_is_kept_without_backslashes_and_with_points) {
  EXPECT_EQ(TidyAddress("\\\\10,0,0,5\\"), "10.0.0.5");
  EXPECT_EQ(TidyAddress(" kasa "), "kasa");
  EXPECT_EQ(TidyAddress("\\"), "");
}

TEST(Share, a_firm_number_has_letters_and_digits_alone) {
  for (const char* const good : {"01", "7", "A2"}) EXPECT_TRUE(IsFirmNumber(good)) << good;
  for (const char* const bad : {"", "..", "0 1", "01\\02", "ş", "a\"b"}) EXPECT_FALSE(IsFirmNumber(bad)) << bad;
  EXPECT_TRUE(IsFirmNumber(std::string(40, '7')));
  EXPECT_FALSE(IsFirmNumber(std::string(41, '7')));
}

TEST(Share, an_address_names_one_machine_or_several) {
  EXPECT_EQ(Machines("10.0.0.5"), "<10.0.0.5|5432>");
  EXPECT_EQ(Machines("kasa:5433"), "<kasa|5433>");
  EXPECT_EQ(Machines("10.0.0.5; yedek:6000;"), "<10.0.0.5|5432><yedek|6000>");
  EXPECT_EQ(Machines("::1;[::1]:5433;[fd00::2]"), "<::1|5432><::1|5433><fd00::2|5432>");
  EXPECT_EQ(Machines(""), "");
  EXPECT_EQ(Machines(" ; "), "");
}

TEST(Share, an_address_with_a_machine_that_nobody_can_call_names_none) {
  for (const char* const bad : {"kasa:x", "kasa:", "kasa:5433x", "kasa:0", "kasa:70000", ":5432", "[]:5432", "10.0.0.5;kasa:x"})
    EXPECT_EQ(Machines(bad), "") << bad;
}

TEST(Share, a_shares_folder_names_its_machines) {
  EXPECT_EQ(Machines("\\\\kasa:5433;yedek\\MuhasebeData\\01"), "<kasa|5433><yedek|5432>");
}

}  // namespace
}  // namespace karvel
