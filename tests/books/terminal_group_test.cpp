#include "books/terminal_group.h"

#include "tests/support/books_fixture.h"

namespace karvel {
namespace {

class TerminalGroupTest : public BooksFixture {
 protected:
  std::string Groups() { return One("Stok.mdb", "SELECT count(*) FROM Gurup WHERE Gurup = 'WinKarvel1'"); }
};

TEST_F(TerminalGroupTest, is_added_once) {
  Sql("Stok.mdb", "DELETE FROM Gurup");
  EXPECT_TRUE(KeepTerminalGroup(shop).Ok());
  EXPECT_TRUE(KeepTerminalGroup(shop).Ok());
  EXPECT_EQ(Groups(), "1");
}

TEST_F(TerminalGroupTest, that_is_there_waits_for_nobody_who_writes) {
  EXPECT_TRUE(KeepTerminalGroup(shop).Ok());
  const std::uint64_t actions = stores.ActionNumber();
  EXPECT_TRUE(KeepTerminalGroup(shop).Ok());
  EXPECT_EQ(stores.ActionNumber(), actions) << "no turn is taken";
}

TEST_F(TerminalGroupTest, that_can_not_be_read_is_not_added_again) {
  EXPECT_TRUE(KeepTerminalGroup(shop).Ok());
  engine.readFault = Status(ErrorKind::Other, "disk");
  EXPECT_FALSE(KeepTerminalGroup(shop).Ok());
  engine.readFault = {};
  EXPECT_EQ(Groups(), "1");
}

}  // namespace
}  // namespace karvel
