#include "tools/move_place.h"

#include <gtest/gtest.h>

namespace karvel {
namespace {

std::string FolderOf(const std::string& told) {
  const auto place = ReadMovePlace(told);
  return !place ? "none" : (place->isServer ? "server " : "folder ") + place->folder;
}

TEST(MovePlace, a_main_machine_becomes_what_the_desk_calls_it) {
  EXPECT_EQ(FolderOf("postgres://kasa1"), "server \\\\kasa1\\MuhasebeData\\01");
  EXPECT_EQ(FolderOf("postgres://kasa1:5433/02"), "server \\\\kasa1:5433\\MuhasebeData\\02");
  EXPECT_EQ(FolderOf("postgresql://kasa1:5433,kasa2:5434/MuhasebeData/03/"), "server \\\\kasa1:5433;kasa2:5434\\MuhasebeData\\03");
  EXPECT_EQ(FolderOf("postgres://10.0.0.1/MuhasebeData"), "server \\\\10.0.0.1\\MuhasebeData\\01");
}

TEST(MovePlace, all_else_is_a_folder_or_nothing) {
  EXPECT_EQ(FolderOf("/home/shop"), "folder /home/shop");
  EXPECT_EQ(FolderOf(""), "folder ");
  for (const char* const wrong : {"ftp://x", "postgres://", "postgres:///01", "postgres://a@b", "postgres://a/MuhasebeData/01/x",
                                  "postgres://a/01?b", "postgres://a/a b", "postgres://a/.."})
    EXPECT_EQ(FolderOf(wrong), "none") << wrong;
}

}  // namespace
}  // namespace karvel
