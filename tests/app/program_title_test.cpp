#include "app/program_title.h"

#include <gtest/gtest.h>

namespace karvel {
namespace {

TEST(ProgramTitle, is_the_name_that_the_terminal_was_started_by) {
  EXPECT_EQ(ProgramTitle("/usr/bin/Velmora Karvel2"), "Velmora Karvel2");
  EXPECT_EQ(ProgramTitle("Velmora KarvelX"), "Velmora KarvelX");
}

TEST(ProgramTitle, is_the_first_terminals_for_any_other_name) {
  EXPECT_EQ(ProgramTitle("build/bin/karvel"), "Velmora Karvel1");
  EXPECT_EQ(ProgramTitle(""), "Velmora Karvel1");
}

}  // namespace
}  // namespace karvel
