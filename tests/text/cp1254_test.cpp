#include <gtest/gtest.h>

#include <string>

#include "text/turkish.h"

namespace karvel {
namespace {

TEST(Cp1254, turkish_letters_have_their_bytes) {
  EXPECT_EQ(ToCp1254("ĞİŞğış"), "\xD0\xDD\xDE\xF0\xFD\xFE");
  EXPECT_EQ(ToCp1254("ÇÖÜçöüâîû"), "\xC7\xD6\xDC\xE7\xF6\xFC\xE2\xEE\xFB");
  EXPECT_EQ(ToCp1254("€"), "\x80");
  EXPECT_EQ(FromCp1254("Mali De\xF0"
                       "eri Yoktur."),
            "Mali Değeri Yoktur.");
}

TEST(Cp1254, letters_that_it_lacks_become_question_marks) {
  EXPECT_EQ(ToCp1254("5 ₺"), "5 ?");
  EXPECT_EQ(ToCp1254("ÐÝÞðýþ"), "??????");
  EXPECT_EQ(ToCp1254("\xC5"), "?");
  EXPECT_EQ(ToCp1254("😀"), "?");
}

TEST(Cp1254, every_byte_comes_back) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes.push_back(static_cast<char>(byte));
  EXPECT_EQ(ToCp1254(FromCp1254(bytes)), bytes);
}

}  // namespace
}  // namespace karvel
