// The suite's part on the clerk's actions: one commit each, over all files, whatever fails.
#pragma once

#include "tests/store/engine_contract.h"

namespace karvel::testing {

inline int RowsOf(Stores& stores, const std::string& file, const std::string& source) {
  return static_cast<int>(Opened(stores, file, source)->RecordCount());
}

TEST_P(EngineContract, a_lone_update_is_one_commit) {
  watch_ = {};
  AddCustomer(stores_, "A", "Ali");
  EXPECT_EQ(watch_.commits, 1);
  auto cursor = Customers(stores_);
  ASSERT_TRUE(cursor->Edit().Ok());
  EXPECT_TRUE(stores_.InAction());
  cursor->Set("Unvan", "Veli");
  ASSERT_TRUE(cursor->Update().Ok());
  EXPECT_FALSE(stores_.InAction());
  EXPECT_EQ(watch_.commits, 2);
  ASSERT_TRUE(cursor->Delete().Ok());
  EXPECT_FALSE(stores_.InAction());
  EXPECT_EQ(watch_.commits, 3);
}

TEST_P(EngineContract, a_cancelled_edit_ends_its_action) {
  AddCustomer(stores_, "A", "Ali");
  auto cursor = Customers(stores_);
  ASSERT_TRUE(cursor->Edit().Ok());
  cursor->CancelUpdate();
  EXPECT_FALSE(stores_.InAction());
  ASSERT_TRUE(cursor->Edit().Ok());
  cursor.reset();
  EXPECT_FALSE(stores_.InAction());
}

TEST_P(EngineContract, actions_nest_and_only_the_outermost_commits) {
  watch_ = {};
  ASSERT_TRUE(stores_.Begin("outer").Ok());
  {
    Action inner(stores_, "inner");
    EXPECT_TRUE(inner.Begun().Ok());
    AddCustomer(stores_, "A", "Ali");
    EXPECT_TRUE(inner.Finish().Ok());
  }
  EXPECT_TRUE(stores_.InAction());
  EXPECT_EQ(watch_.commits, 0);
  EXPECT_EQ(RowsOf(stores_, "Cari.mdb", "CariKartlar"), 1);  // reads inside see the action's own writes
  auto other = OtherTerminal();
  EXPECT_EQ(RowsOf(*other, "Cari.mdb", "CariKartlar"), 0);
  ASSERT_TRUE(stores_.Commit().Ok());
  EXPECT_EQ(watch_.commits, 1);
  EXPECT_EQ(RowsOf(*other, "Cari.mdb", "CariKartlar"), 1);
  EXPECT_EQ(stores_.Commit().Kind(), ErrorKind::NotOpen);
}

TEST_P(EngineContract, an_action_left_unfinished_is_undone_over_all_files_and_its_line_is_free_for_others) {
  AddCustomer(stores_, "A", "Ali");
  auto cards = Customers(stores_);
  EXPECT_EQ(cards->Text("Unvan"), "Ali");
  int shown = 0;
  connections += cards->shown.Connect([&] { ++shown; });
  watch_ = {};
  const LoggedLines log;
  {
    Action action(stores_, "left");
    AddLine(stores_, "A", {2026, 3, 1, 0, 0, 0}, 1);
    ASSERT_TRUE(cards->Edit().Ok());
    cards->Set("Unvan", "Veli");
    ASSERT_TRUE(cards->Update().Ok());
    shown = 0;
  }
  EXPECT_FALSE(stores_.InAction());
  EXPECT_EQ(watch_.commits, 0);
  EXPECT_TRUE(log.Holds("left"));
  EXPECT_EQ(shown, 1);
  EXPECT_EQ(cards->Text("Unvan"), "Ali");  // read again, without a refresh
  EXPECT_EQ(RowsOf(stores_, "Karvel.mdb", "Datam"), 0);
  AddCustomer(*OtherTerminal(), "B", "Bilge");
  EXPECT_EQ(RowsOf(stores_, "Cari.mdb", "CariKartlar"), 2);
}

TEST_P(EngineContract, an_action_left_before_it_wrote_anything_costs_no_reading_again_and_no_line_in_the_log) {
  AddCustomer(stores_, "A", "Ali");
  auto cards = Customers(stores_);
  EXPECT_EQ(cards->Text("Unvan"), "Ali");
  const LoggedLines log;
  {
    const Action refused(stores_, "refused");
  }
  EXPECT_FALSE(stores_.InAction());
  EXPECT_TRUE(log.Lines().empty());
  watch_ = {};
  EXPECT_EQ(cards->Text("Unvan"), "Ali");
  EXPECT_EQ(watch_.AllReads(), 0);
  AddCustomer(*OtherTerminal(), "B", "Bilge");  // the line is free
}

TEST_P(EngineContract, an_action_that_says_so_beforehand_is_committed_when_it_is_left) {
  {
    Action action(stores_, "kept");
    action.CommitWhenLeft();
    AddCustomer(stores_, "A", "Ali");
  }
  EXPECT_FALSE(stores_.InAction());
  EXPECT_EQ(RowsOf(*OtherTerminal(), "Cari.mdb", "CariKartlar"), 1);
  Action outer(stores_, "outer");
  {
    Action inner(stores_, "inner");
    inner.CommitWhenLeft();
    AddCustomer(stores_, "B", "Bilge");
  }
  EXPECT_TRUE(outer.Finish().Ok());
  EXPECT_EQ(RowsOf(*OtherTerminal(), "Cari.mdb", "CariKartlar"), 2);
}

TEST_P(EngineContract, an_inner_action_left_unfinished_fails_the_outer_one_at_its_commit) {
  Action outer(stores_, "posting");
  AddCustomer(stores_, "A", "Ali");
  {
    Action middle(stores_, "counting");
    {
      Action inner(stores_, "numbering");
      AddCustomer(stores_, "B", "Bilge");
    }
    EXPECT_TRUE(stores_.InAction());
    EXPECT_TRUE(middle.Finish().Ok());
  }
  auto lines = Opened(stores_, "Karvel.mdb", "Datam");
  ASSERT_TRUE(lines->AddNew().Ok());
  const int writes = watch_.writes;
  EXPECT_EQ(lines->Update().Kind(), ErrorKind::Other);  // refused at once
  EXPECT_EQ(watch_.writes, writes);
  lines->CancelUpdate();
  const Status outcome = outer.Finish();
  EXPECT_EQ(outcome.Kind(), ErrorKind::Other);
  EXPECT_EQ(outcome.Message(), "numbering was left unfinished");
  EXPECT_EQ(RowsOf(stores_, "Cari.mdb", "CariKartlar"), 0);
  AddCustomer(stores_, "C", "Can");  // the desk goes on
  EXPECT_EQ(RowsOf(stores_, "Cari.mdb", "CariKartlar"), 1);
}

TEST_P(EngineContract, abandoning_undoes_what_was_begun_and_does_nothing_without_an_action) {
  stores_.Abandon();
  EXPECT_FALSE(stores_.InAction());
  ASSERT_TRUE(stores_.Begin("posting").Ok());
  AddCustomer(stores_, "A", "Ali");
  stores_.Abandon();
  EXPECT_FALSE(stores_.InAction());
  EXPECT_EQ(stores_.Commit().Kind(), ErrorKind::NotOpen);
  EXPECT_EQ(RowsOf(stores_, "Cari.mdb", "CariKartlar"), 0);
  // The fault of an abandoned action ends with it.
  ASSERT_TRUE(stores_.Begin("failing").Ok());
  watch_.writeFault = {ErrorKind::DiskFull, "no room"};
  EXPECT_EQ(stores_.Execute("Karvel.mdb", "DELETE FROM Datam").Kind(), ErrorKind::DiskFull);
  watch_.writeFault = {};
  stores_.Abandon();
  ASSERT_TRUE(stores_.Begin("next").Ok());
  AddCustomer(stores_, "A", "Ali");
  EXPECT_TRUE(stores_.Commit().Ok());
  EXPECT_EQ(RowsOf(stores_, "Cari.mdb", "CariKartlar"), 1);
}

TEST_P(EngineContract, an_edit_cancelled_keeps_what_others_wrote_in_its_action) {
  AddCustomer(stores_, "A", "Ali");
  auto cards = Customers(stores_);
  ASSERT_TRUE(cards->Edit().Ok());
  AddLine(stores_, "A", {2026, 3, 1, 0, 0, 0}, 1);
  cards->CancelUpdate();
  EXPECT_FALSE(stores_.InAction());
  EXPECT_EQ(RowsOf(*OtherTerminal(), "Karvel.mdb", "Datam"), 1);
}

TEST_P(EngineContract, a_single_write_that_failed_does_not_undo_the_others) {
  AddCustomers(stores_, {"A", "B"});
  Action action(stores_, "two steps");
  auto cursor = Customers(stores_);
  ASSERT_TRUE(cursor->Delete().Ok());
  EXPECT_EQ(cursor->Edit().Kind(), ErrorKind::NoRecord);
  EXPECT_EQ(stores_.Execute("Cari.mdb", "DELETE FROM Yok").Kind(), ErrorKind::BadText);
  AddCustomer(stores_, "C", "C");
  EXPECT_TRUE(action.Finish().Ok());
  EXPECT_EQ(RowsOf(stores_, "Cari.mdb", "CariKartlar"), 2);
}

TEST_P(EngineContract, a_fault_of_the_store_undoes_the_whole_action_and_is_told_at_its_end) {
  AddCustomer(stores_, "A", "Ali", 5);
  auto cursor = Customers(stores_);
  EXPECT_DOUBLE_EQ(cursor->Number("Borc"), 5);
  ASSERT_TRUE(stores_.Begin("posting").Ok());
  AddLine(stores_, "A", {2026, 3, 1, 0, 0, 0}, 1);
  ASSERT_TRUE(cursor->Edit().Ok());
  cursor->Set("Borc", 6);
  ASSERT_TRUE(cursor->Update().Ok());
  auto ledger = Opened(stores_, "Cari.mdb", "CariHareket");
  ASSERT_TRUE(ledger->AddNew().Ok());
  watch_.writeFault = {ErrorKind::DiskFull, "no room"};
  EXPECT_EQ(ledger->Update().Kind(), ErrorKind::DiskFull);
  watch_.writeFault = {};
  const int writes = watch_.writes;
  ASSERT_TRUE(cursor->Edit().Ok());
  cursor->Set("Borc", 7);
  EXPECT_EQ(cursor->Update().Kind(), ErrorKind::DiskFull);  // refused at once
  EXPECT_EQ(watch_.writes, writes);
  const LoggedLines log;
  const Status outcome = stores_.Commit();
  EXPECT_EQ(outcome.Kind(), ErrorKind::DiskFull);
  EXPECT_EQ(outcome.Message(), "no room");
  EXPECT_TRUE(log.Holds("posting"));
  EXPECT_FALSE(stores_.InAction());
  EXPECT_EQ(RowsOf(stores_, "Karvel.mdb", "Datam"), 0);
  cursor->CancelUpdate();
  EXPECT_DOUBLE_EQ(cursor->Number("Borc"), 5);      // read again, without a refresh
  AddLine(stores_, "A", {2026, 3, 1, 0, 0, 0}, 1);  // the desk goes on
  EXPECT_EQ(RowsOf(stores_, "Karvel.mdb", "Datam"), 1);
}

TEST_P(EngineContract, a_read_that_fails_inside_an_action_fails_it_for_its_next_step_would_be_wrong) {
  auto cursor = Opened(stores_, "Index.mdb", "Mdbindex");
  Action action(stores_, "number");
  watch_.readFault = {ErrorKind::Other, "silent disk"};
  EXPECT_EQ(cursor->FindFirst("Tarih='2026'").Kind(), ErrorKind::Other);
  EXPECT_TRUE(cursor->NoMatch());
  watch_.readFault = {};
  ASSERT_TRUE(cursor->AddNew().Ok());  // as a handler does on no match
  EXPECT_EQ(cursor->Update().Kind(), ErrorKind::Other);
  EXPECT_EQ(action.Finish().Kind(), ErrorKind::Other);
  EXPECT_EQ(RowsOf(stores_, "Index.mdb", "Mdbindex"), 0);
}

TEST_P(EngineContract, a_commit_that_fails_leaves_nothing_and_every_cursor_reads_again) {
  AddCustomers(stores_, {"A", "B"});
  auto edited = Customers(stores_);
  auto deleted = Customers(stores_);
  ASSERT_TRUE(deleted->FindFirst("CariKod='B'").Ok());
  int shown = 0;
  connections += edited->shown.Connect([&] { ++shown; });
  Action action(stores_, "failing");
  ASSERT_TRUE(edited->Edit().Ok());
  edited->Set("Unvan", "Veli");
  ASSERT_TRUE(edited->Update().Ok());
  ASSERT_TRUE(deleted->Delete().Ok());
  AddCustomer(stores_, "C", "C");
  watch_.commitFault = {ErrorKind::DiskFull, "no room"};
  shown = 0;
  EXPECT_EQ(action.Finish().Kind(), ErrorKind::DiskFull);
  watch_.commitFault = {};
  EXPECT_EQ(shown, 1);
  EXPECT_EQ(edited->Text("Unvan"), "A");
  EXPECT_EQ(edited->RecordCount(), 2);
  ASSERT_TRUE(deleted->FindFirst("CariKod='B'").Ok());
}

TEST_P(EngineContract, a_lone_update_whose_commit_fails_keeps_its_copy_for_another_try) {
  auto cursor = Customers(stores_);
  ASSERT_TRUE(cursor->AddNew().Ok());
  cursor->Set("CariKod", "A");
  watch_.commitFault = {ErrorKind::DiskFull, "no room"};
  EXPECT_EQ(cursor->Update().Kind(), ErrorKind::DiskFull);
  EXPECT_FALSE(stores_.InAction());
  EXPECT_TRUE(cursor->IsEditing());
  watch_.commitFault = {};
  ASSERT_TRUE(cursor->Update().Ok());
  EXPECT_EQ(cursor->RecordCount(), 1);
  EXPECT_EQ(cursor->Text("CariKod"), "A");
}

TEST_P(EngineContract, grids_are_told_once_when_an_action_wrote_to_their_table) {
  auto cards = Customers(stores_);
  auto lines = Opened(stores_, "Karvel.mdb", "Datam");
  int cardsShown = 0;
  int linesShown = 0;
  connections += cards->shown.Connect([&] { ++cardsShown; });
  connections += lines->shown.Connect([&] { ++linesShown; });
  AddCustomers(stores_, {"A", "B", "C"});
  EXPECT_EQ(cardsShown, 1);
  EXPECT_EQ(linesShown, 0);
  EXPECT_EQ(cards->RecordCount(), 3);
}

TEST_P(EngineContract, execute_deletes_what_its_condition_tells) {
  for (const char* code : {"A", "B"}) AddLine(stores_, code, {2026, 3, 1, 0, 0, 0}, 1);
  watch_ = {};
  ASSERT_TRUE(stores_.Execute("C:\\KarvelData\\Karvel.mdb", "DELETE FROM Datam Where CariKod='a';").Ok());
  EXPECT_EQ(watch_.commits, 1);
  EXPECT_EQ(RowsOf(stores_, "Karvel.mdb", "Datam"), 1);
  EXPECT_EQ(stores_.Execute("Karvel.mdb", "Select * From Datam").Kind(), ErrorKind::BadText);
  EXPECT_EQ(stores_.Execute("Yok.mdb", "DELETE FROM Datam").Kind(), ErrorKind::Missing);
  EXPECT_EQ(stores_.Execute("Karvel.mdb", "DELETE FROM Datam Where CariKod='a'; DELETE FROM Datam").Kind(), ErrorKind::BadText);
  EXPECT_EQ(RowsOf(stores_, "Karvel.mdb", "Datam"), 1);
  ASSERT_TRUE(stores_.Execute("Karvel.mdb", "DELETE FROM Datam").Ok());
  EXPECT_EQ(RowsOf(stores_, "Karvel.mdb", "Datam"), 0);
}

TEST_P(EngineContract, a_sum_is_null_without_rows) {
  Value sum = 1.0;
  ASSERT_TRUE(stores_.QueryValue("Karvel.mdb", "Select Sum(Tutar) FROM Datam Where CariKod='A'", sum).Ok());
  EXPECT_TRUE(std::holds_alternative<std::monostate>(sum));
  AddLine(stores_, "A", {2026, 3, 1, 8, 0, 0}, 1.5);
  AddLine(stores_, "A", {2026, 3, 1, 23, 59, 59}, 2);
  AddLine(stores_, "A", {2026, 3, 2, 0, 0, 0}, 4);
  ASSERT_TRUE(
      stores_
          .QueryValue("Karvel.mdb", "Select Sum(Tutar) FROM Datam Where Tarih>=#03/01/2026 00:00:00# And Tarih<=#03/01/2026 23:59:59#", sum)
          .Ok());
  EXPECT_EQ(sum, Value(3.5));
  EXPECT_EQ(stores_.QueryValue("Karvel.mdb", "Datam", sum).Kind(), ErrorKind::BadText);
  EXPECT_EQ(stores_.QueryValue("Karvel.mdb", "Select Sum(CariKod) FROM Datam", sum).Kind(), ErrorKind::BadText);
}

TEST_P(EngineContract, sums_by_the_texts_of_a_column) {
  std::vector<TextSum> sums{{"old", 1}};
  ASSERT_TRUE(stores_.QuerySumsBy("Karvel.mdb", "Select Sum(Tutar) FROM Datam Where Tutar>1", "CariKod", sums).Ok());
  EXPECT_TRUE(sums.empty());
  for (const auto& [code, amount] : {std::pair{"A", 1.0}, {"A", 2.0}, {"a", 4.0}, {"Ş", 8.0}, {"A", 16.0}})
    AddLine(stores_, code, {2026, 3, 1, 8, 0, 0}, amount);
  ASSERT_TRUE(stores_.QuerySumsBy("Karvel.mdb", "Select Sum(Tutar) FROM Datam Where Tutar>1", "carikod", sums).Ok());
  std::map<std::string, double> byCode;
  for (const TextSum& sum : sums) byCode[sum.text] += sum.sum;
  EXPECT_EQ(byCode, (std::map<std::string, double>{{"A", 18}, {"a", 4}, {"Ş", 8}}));
  EXPECT_EQ(sums.size(), 3U);
  EXPECT_EQ(stores_.QuerySumsBy("Karvel.mdb", "Select Sum(Tutar) FROM Datam", "Yok", sums).Kind(), ErrorKind::BadText);
  EXPECT_EQ(stores_.QuerySumsBy("Karvel.mdb", "Datam", "CariKod", sums).Kind(), ErrorKind::BadText);
  EXPECT_EQ(stores_.QuerySumsBy("Yok.mdb", "Select Sum(Tutar) FROM Datam", "CariKod", sums).Kind(), ErrorKind::Missing);
  watch_.readFault = {ErrorKind::DiskFailed, "no page"};
  EXPECT_EQ(stores_.QuerySumsBy("Karvel.mdb", "Select Sum(Tutar) FROM Datam", "CariKod", sums).Kind(), ErrorKind::DiskFailed);
}

TEST_P(EngineContract, closed_stores_refuse_everything) {
  AddCustomers(stores_, {"A"});
  auto cursor = Customers(stores_);
  stores_.Close();
  EXPECT_FALSE(stores_.IsOpen());
  EXPECT_EQ(stores_.Begin("x").Kind(), ErrorKind::NotOpen);
  EXPECT_FALSE(stores_.InAction());
  EXPECT_FALSE(cursor->HasRows());
  EXPECT_EQ(cursor->Edit().Kind(), ErrorKind::NotOpen);
  ASSERT_TRUE(cursor->AddNew().Ok());
  EXPECT_EQ(cursor->Update().Kind(), ErrorKind::NotOpen);
  cursor->CancelUpdate();
  ASSERT_TRUE(stores_.Open(kind_->Folder()).Ok());
  ASSERT_TRUE(cursor->Refresh().Ok());
  EXPECT_EQ(cursor->Text("CariKod"), "A");
}

TEST_P(EngineContract, stores_opened_anew_give_a_cursor_no_rows_until_its_refresh) {
  AddCustomers(stores_, {"A", "B"});
  auto cursor = Customers(stores_);
  ASSERT_TRUE(cursor->MoveNext().Ok());
  EXPECT_EQ(cursor->Text("CariKod"), "B");
  const GridRow row = cursor->CurrentRow();
  ASSERT_TRUE(stores_.Open(kind_->Folder()).Ok());  // as if it were another firm's
  EXPECT_FALSE(cursor->HasCurrent());
  EXPECT_FALSE(cursor->HasRows());
  EXPECT_EQ(cursor->RecordCount(), 0);
  EXPECT_TRUE(cursor->RowsFromStart(9).empty());
  EXPECT_FALSE(cursor->FindFirst("CariKod='B'").Ok());
  EXPECT_FALSE(cursor->MoveTo(row.key).Ok());
  EXPECT_EQ(cursor->Edit().Kind(), ErrorKind::NoRecord);
  ASSERT_TRUE(cursor->Refresh().Ok());
  EXPECT_EQ(cursor->Text("CariKod"), "A");
  EXPECT_EQ(cursor->RecordCount(), 2);
}

TEST_P(EngineContract, stores_closed_inside_an_action_undo_it_and_tell_so_at_its_end) {
  Action action(stores_, "cut short");
  AddCustomer(stores_, "A", "Ali");
  stores_.Close();
  ASSERT_TRUE(stores_.Open(kind_->Folder()).Ok());
  auto cursor = Customers(stores_);
  ASSERT_TRUE(cursor->AddNew().Ok());
  EXPECT_FALSE(cursor->Update().Ok());
  EXPECT_EQ(action.Finish().Kind(), ErrorKind::NotOpen);
  cursor->CancelUpdate();
  EXPECT_EQ(RowsOf(stores_, "Cari.mdb", "CariKartlar"), 0);
}

TEST_P(EngineContract, a_terminal_waits_in_line_for_anothers_action) {
  auto other = OtherTerminal();
  Action theirs(*other, "theirs");
  AddCustomer(*other, "A", "Ali");
  EXPECT_EQ(stores_.Begin("ours").Kind(), ErrorKind::Busy);  // the test's engines wait shortly
  EXPECT_FALSE(stores_.InAction());
  ASSERT_TRUE(theirs.Finish().Ok());
  ASSERT_TRUE(stores_.Begin("ours").Ok());
  EXPECT_EQ(RowsOf(stores_, "Cari.mdb", "CariKartlar"), 1);
  EXPECT_TRUE(stores_.Commit().Ok());
}

}  // namespace karvel::testing
