#include "touch/turkish_case.h"

#include <gtest/gtest.h>

namespace karvel {
namespace {

TEST(TurkishCase, a_name_begins_with_a_turkish_capital) {
  EXPECT_EQ(TürkçeBüyük("", 0, U'i'), U'İ');
  EXPECT_EQ(TürkçeBüyük("", 0, U'ı'), U'I');
  EXPECT_EQ(TürkçeBüyük("", 0, U'ş'), U'Ş');
  EXPECT_EQ(TürkçeBüyük("", 0, U'a'), U'A');
}

TEST(TurkishCase, a_letter_typed_over_the_whole_text_begins_it) {
  EXPECT_EQ(TürkçeBüyük("şeker", 0, U'ç'), U'Ç');
}

TEST(TurkishCase, letters_behind_a_point_or_a_stroke_begin_anew) {
  EXPECT_EQ(TürkçeBüyük("A.", 2, U'ö'), U'Ö');
  EXPECT_EQ(TürkçeBüyük("A/", 2, U'b'), U'B');
  EXPECT_EQ(TürkçeBüyük("Ş.ü", 2, U'ü'), U'Ü');
}

TEST(TurkishCase, other_letters_and_signs_stay) {
  EXPECT_EQ(TürkçeBüyük("Şe", 2, U'k'), U'k');
  EXPECT_EQ(TürkçeBüyük("", 0, U'7'), U'7');
  EXPECT_EQ(TürkçeBüyük("", 0, U'Ğ'), U'Ğ');
}

}  // namespace
}  // namespace karvel
