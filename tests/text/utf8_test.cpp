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

}  // namespace
}  // namespace karvel
