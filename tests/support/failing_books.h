// What a book must keep when the stores fail: it writes all of its rows or none, and says why.
#pragma once

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/support/books_fixture.h"

namespace karvel {

class FailingBooks : public BooksFixture {
 protected:
  // Lets the book fail at each of its reads and of its writes, at both together, and at the commit. Each time it must say what failed, and
  // leave the files as they were. Then lets it work.
  void FailsWholeOrWorks(const std::function<Status()>& book) {
    const std::vector<std::string> before = AllRows();
    const auto expectNothing = [&](const Status& answer, ErrorKind kind, const std::string& where) {
      EXPECT_EQ(answer.Kind(), kind) << where << ": " << answer.Message();
      EXPECT_FALSE(stores.InAction()) << where;
      EXPECT_EQ(AllRows(), before) << where;
    };
    const Status silent{ErrorKind::Other, "the disk is silent"}, full{ErrorKind::DiskFull, "no room"};
    CountStepsOf(book);
    ASSERT_EQ(AllRows(), before);
    for (int i = 0; i < readsOfBook_; ++i) {
      engine.readFault = silent;
      engine.readsBeforeFault = i;
      expectNothing(book(), ErrorKind::Other, fmt::format("read {}", i));
      // With every write refused from the start the walks still end.
      engine.writeFault = full;
      engine.readsBeforeFault = i;
      EXPECT_FALSE(book().Ok()) << i;
      engine.writeFault = engine.readFault = {};
    }
    engine.readsBeforeFault = 0;
    for (int i = 0; i < writesOfBook_; ++i) {
      engine.writeFault = full;
      engine.writesBeforeFault = i;
      expectNothing(book(), ErrorKind::DiskFull, fmt::format("write {}", i));
    }
    engine.writeFault = {};
    engine.writesBeforeFault = 0;
    engine.commitFault = full;
    expectNothing(book(), ErrorKind::DiskFull, "commit");
    engine.commitFault = {};
    EXPECT_TRUE(book().Ok());
    EXPECT_NE(AllRows(), before);
  }

 private:
  // Undone at its commit: only counted.
  void CountStepsOf(const std::function<Status()>& book) {
    const int reads = engine.AllReads(), writes = engine.writes;
    engine.commitFault = {ErrorKind::DiskFull, "no room"};
    EXPECT_FALSE(book().Ok());
    engine.commitFault = {};
    readsOfBook_ = engine.AllReads() - reads;
    writesOfBook_ = engine.writes - writes;
  }

  int readsOfBook_ = 0, writesOfBook_ = 0;
};

}  // namespace karvel
