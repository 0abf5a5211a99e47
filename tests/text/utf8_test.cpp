#include "text/utf8.h"

#include <gtest/gtest.h>

#include "text/turkish.h"

namespace karvel {
namespace {

TEST(Utf8, is_told_from_the_turkish_code_page) {
  EXPECT_TRUE(IsUtf8(""));
  EXPECT_TRUE(IsUtf8("Pirinc 1 kg"));
  EXPECT_TRUE(IsUtf8("Çay, şeker, İğde ₺"));
  EXPECT_FALSE(IsUtf8(ToCp1254("Çay")));
  EXPECT_FALSE(IsUtf8("\xC3"));
}

TEST(Utf8, the_signs_for_and_against_it_are_counted) {
  const Utf8Signs signs = SignsOfUtf8("Şark ₺5 k\xC3\xA2r \xFE\xC3");
  EXPECT_EQ(signs.letters, 2U);
  EXPECT_EQ(signs.damaged, 2U);
}

}  // namespace
}  // namespace karvel
