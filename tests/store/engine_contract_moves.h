// The suite's part on reading: sources, moves, finds, order, and rows for grids.
#pragma once

#include <algorithm>

#include "tests/store/engine_contract.h"
#include "text/turkish.h"

namespace karvel::testing {

using ::testing::ElementsAre;

TEST_P(EngineContract, refresh_stands_on_the_first_record) {
  AddCustomers(stores_, {"C", "A", "B"});
  auto cursor = Customers(stores_, "Select * From CariKartlar Order By Unvan Asc");
  EXPECT_TRUE(cursor->HasCurrent());
  EXPECT_EQ(cursor->Text("Unvan"), "A");
  ASSERT_TRUE(cursor->MoveLast().Ok());
  EXPECT_EQ(cursor->Text("Unvan"), "C");
  ASSERT_TRUE(cursor->Refresh().Ok());
  EXPECT_EQ(cursor->Text("Unvan"), "A");
}

TEST_P(EngineContract, refresh_and_first_and_last_read_nothing_before_they_are_asked) {
  AddCustomers(stores_, {"A", "B"});
  auto cursor = Customers(stores_);
  watch_ = {};
  ASSERT_TRUE(cursor->Refresh().Ok());
  ASSERT_TRUE(cursor->MoveLast().Ok());
  ASSERT_TRUE(cursor->MoveFirst().Ok());
  ASSERT_TRUE(cursor->MoveLast().Ok());
  EXPECT_EQ(watch_.AllReads(), 0);
  EXPECT_EQ(cursor->Text("Unvan"), "B");
  EXPECT_EQ(watch_.AllReads(), 1);
  EXPECT_TRUE(cursor->HasRows());
  EXPECT_EQ(watch_.AllReads(), 1);
}

TEST_P(EngineContract, behind_the_last_row_nothing_is_read_and_what_is_added_stays_behind_the_cursor) {
  AddCustomers(stores_, {"A", "B"});
  auto cursor = Customers(stores_);
  watch_ = {};
  ASSERT_TRUE(cursor->MoveBehindLast().Ok());
  EXPECT_TRUE(cursor->Eof());
  EXPECT_FALSE(cursor->HasCurrent());
  ASSERT_TRUE(cursor->AddNew().Ok());
  cursor->Set("CariKod", "C");
  ASSERT_TRUE(cursor->Update().Ok());
  EXPECT_EQ(watch_.AllReads(), 0);
  EXPECT_TRUE(cursor->Eof());
  ASSERT_TRUE(cursor->MovePrevious().Ok());
  EXPECT_EQ(cursor->Text("CariKod"), "C");
}

TEST_P(EngineContract, a_source_without_rows_is_at_both_ends) {
  auto cursor = Customers(stores_);
  EXPECT_TRUE(cursor->Bof());
  EXPECT_TRUE(cursor->Eof());
  EXPECT_FALSE(cursor->HasRows());
  EXPECT_FALSE(cursor->HasCurrent());
  EXPECT_EQ(cursor->RecordCount(), 0);
  EXPECT_EQ(cursor->CurrentKey(), 0);
  EXPECT_EQ(cursor->CurrentRow().key, 0);
  EXPECT_TRUE(std::holds_alternative<std::monostate>(cursor->Get("Unvan")));
  EXPECT_EQ(cursor->MoveNext().Kind(), ErrorKind::NoRecord);
  EXPECT_EQ(cursor->MovePrevious().Kind(), ErrorKind::NoRecord);
  EXPECT_EQ(cursor->Edit().Kind(), ErrorKind::NoRecord);
  EXPECT_EQ(cursor->Delete().Kind(), ErrorKind::NoRecord);
}

TEST_P(EngineContract, a_source_takes_effect_at_the_next_refresh_only) {
  AddCustomers(stores_, {"A", "B"});
  auto cursor = Customers(stores_);
  cursor->SetRecordSource("Select * From CariKartlar Where CariKod='B'");
  EXPECT_EQ(cursor->Text("CariKod"), "A");
  ASSERT_TRUE(cursor->Refresh().Ok());
  EXPECT_EQ(cursor->Text("CariKod"), "B");
  EXPECT_EQ(cursor->RecordCount(), 1);
}

TEST_P(EngineContract, one_cursor_moves_between_files_and_tables) {
  AddCustomers(stores_, {"A"});
  auto cursor = Customers(stores_);
  cursor->SetDatabaseName("C:\\KarvelData\\STOK.mdb");
  ASSERT_TRUE(cursor->Open("Select * From StokKartlar Where StokGizle=False Order By StokAdi ASC").Ok());
  EXPECT_EQ(cursor->SourceTable()->name, "StokKartlar");
  EXPECT_FALSE(cursor->HasRows());
  cursor->SetDatabaseName("Cari.mdb");
  ASSERT_TRUE(cursor->Open("carikartlar").Ok());
  EXPECT_EQ(cursor->Text("CariKod"), "A");
}

TEST_P(EngineContract, a_refresh_that_fails_leaves_no_rows) {
  AddCustomers(stores_, {"A"});
  auto cursor = Customers(stores_);
  const LoggedLines log;
  EXPECT_EQ(cursor->Open("Select * From Yok").Kind(), ErrorKind::BadText);
  EXPECT_TRUE(log.Holds("CariKartlar"));  // the cursor's name
  EXPECT_EQ(cursor->SourceTable(), nullptr);
  EXPECT_FALSE(cursor->HasRows());
  EXPECT_TRUE(cursor->Eof());
  EXPECT_EQ(cursor->FindFirst("CariKod='A'").Kind(), ErrorKind::NotOpen);
  EXPECT_TRUE(cursor->NoMatch());
  EXPECT_EQ(cursor->AddNew().Kind(), ErrorKind::NotOpen);
  cursor->SetDatabaseName("Yok.mdb");
  EXPECT_EQ(cursor->Open("CariKartlar").Kind(), ErrorKind::Missing);
  EXPECT_EQ(cursor->Open("DELETE FROM CariKartlar").Kind(), ErrorKind::Missing);
  cursor->SetDatabaseName("Cari.mdb");
  EXPECT_EQ(cursor->Open("DELETE FROM CariKartlar").Kind(), ErrorKind::BadText);
  EXPECT_EQ(cursor->Open("Select Sum(Borc) From CariKartlar").Kind(), ErrorKind::BadText);
}

TEST_P(EngineContract, a_closed_cursor_has_no_rows_until_the_next_refresh) {
  AddCustomers(stores_, {"A"});
  auto cursor = Customers(stores_);
  cursor->Close();
  EXPECT_FALSE(cursor->HasRows());
  EXPECT_FALSE(cursor->HasCurrent());
  EXPECT_EQ(cursor->SourceTable(), nullptr);
  ASSERT_TRUE(cursor->Refresh().Ok());
  EXPECT_EQ(cursor->Text("CariKod"), "A");
}

TEST_P(EngineContract, next_and_previous_walk_the_whole_order_and_stop_at_its_ends) {
  std::vector<std::string> names;
  for (int i = 100; i < 300; ++i) names.push_back(std::to_string(i));
  AddCustomers(stores_, names);
  auto cursor = Customers(stores_, "Select * From CariKartlar Order By Unvan Asc");
  EXPECT_EQ(Walk(*cursor, "Unvan"), names);
  EXPECT_TRUE(cursor->Eof());
  EXPECT_FALSE(cursor->Bof());
  EXPECT_FALSE(cursor->HasCurrent());
  EXPECT_EQ(cursor->MoveNext().Kind(), ErrorKind::NoRecord);
  std::vector<std::string> back;
  while (cursor->MovePrevious().Ok() && !cursor->Bof()) back.insert(back.begin(), cursor->Text("Unvan"));
  EXPECT_EQ(back, names);
  EXPECT_TRUE(cursor->Bof());
  EXPECT_FALSE(cursor->HasCurrent());
  ASSERT_TRUE(cursor->MoveNext().Ok());
  EXPECT_EQ(cursor->Text("Unvan"), "100");
  ASSERT_TRUE(cursor->MoveNext().Ok());
  ASSERT_TRUE(cursor->MovePrevious().Ok());
  EXPECT_EQ(cursor->Text("Unvan"), "100");
}

TEST_P(EngineContract, a_walk_reads_ahead) {
  std::vector<std::string> names(300, "x");
  AddCustomers(stores_, names);
  auto cursor = Customers(stores_, "Select * From CariKartlar Order By Unvan Asc");
  watch_ = {};
  EXPECT_EQ(Walk(*cursor, "Unvan").size(), 300U);
  EXPECT_LT(watch_.AllReads(), 12);
}

TEST_P(EngineContract, a_row_added_behind_during_a_walk_is_seen) {
  AddCustomers(stores_, {"A", "B", "C"});
  auto cursor = Customers(stores_, "Select * From CariKartlar Order By Unvan Asc");
  ASSERT_TRUE(cursor->MoveNext().Ok());
  EXPECT_EQ(cursor->Text("Unvan"), "B");
  AddCustomers(stores_, {"BB"});
  ASSERT_TRUE(cursor->MoveNext().Ok());
  EXPECT_EQ(cursor->Text("Unvan"), "BB");
}

TEST_P(EngineContract, texts_order_by_the_turkish_alphabet) {
  AddCustomers(stores_, {"Zeytin", "şeker", "Süt", "izgara", "İzmir", "ığdır", "Çay", "ciklet", "hurma", "ödün", "Odun", "ürün", "un"});
  auto cursor = Customers(stores_, "Select * From CariKartlar Order By Unvan Asc");
  EXPECT_THAT(Walk(*cursor, "Unvan"),
              ElementsAre("ciklet", "Çay", "hurma", "ığdır", "izgara", "İzmir", "Odun", "ödün", "Süt", "şeker", "un", "ürün", "Zeytin"));
}

TEST_P(EngineContract, texts_are_equal_whatever_the_case_but_each_dotted_letter_is_its_own) {
  AddCustomers(stores_, {"ILIK", "İlik", "ılık", "ÇAĞRI ŞÜKÖ"});
  auto cursor = Customers(stores_);
  EXPECT_TRUE(cursor->FindFirst("Unvan='ilik'").Ok());
  EXPECT_EQ(cursor->Text("Unvan"), "ILIK");
  EXPECT_EQ(cursor->FindNext("Unvan='ilik'").Kind(), ErrorKind::NoRecord);
  EXPECT_TRUE(cursor->FindFirst("Unvan='İLİK'").Kind() == ErrorKind::NoRecord);
  EXPECT_TRUE(cursor->FindFirst("Unvan='İLIK'").Ok());
  EXPECT_TRUE(cursor->FindFirst("Unvan='ılık'").Ok());
  EXPECT_EQ(cursor->Text("Unvan"), "ılık");
  EXPECT_TRUE(cursor->FindFirst("Unvan='çağrI şükö'").Ok());
  EXPECT_TRUE(cursor->FindFirst("Unvan Like 'çağ*'").Ok());
  EXPECT_TRUE(cursor->FindFirst("Unvan Like '*şük?'").Ok());
}

TEST_P(EngineContract, rows_alike_in_order_stand_by_age_the_newest_on_top_when_it_falls) {
  const DateTime day{2026, 3, 1, 0, 0, 0};
  for (const char* id : {"1", "2", "3"}) AddLine(stores_, "A", day, 1, id);
  AddLine(stores_, "A", day.PlusDays(1), 1, "4");
  auto falling = Opened(stores_, "Karvel.mdb", "Select * From Datam Where CariKod='A' Order By Tarih Desc");
  EXPECT_THAT(Walk(*falling, "DigerId"), ElementsAre("4", "3", "2", "1"));
  auto rising = Opened(stores_, "Karvel.mdb", "Select * From Datam Where CariKod='A' Order By Tarih Asc");
  EXPECT_THAT(Walk(*rising, "DigerId"), ElementsAre("1", "2", "3", "4"));
  auto plain = Opened(stores_, "Karvel.mdb", "Datam");
  EXPECT_THAT(Walk(*plain, "DigerId"), ElementsAre("1", "2", "3", "4"));
}

TEST_P(EngineContract, orders_of_several_terms_with_directions_of_their_own_walk_both_ways) {
  for (const auto& [customer, amount] : std::vector<std::pair<std::string, double>>{{"b", 1}, {"a", 1}, {"a", 2}, {"b", 2}, {"a", 1}}) {
    AddLine(stores_, customer, {2026, 3, 1, 0, 0, 0}, amount, customer + std::to_string(static_cast<int>(amount)));
  }
  auto cursor = Opened(stores_, "Karvel.mdb", "Select * From Datam Order By CariKod Desc, Tutar Asc");
  EXPECT_THAT(Walk(*cursor, "DigerId"), ElementsAre("b1", "b2", "a1", "a1", "a2"));
  std::vector<std::string> back;
  while (cursor->MovePrevious().Ok() && !cursor->Bof()) back.push_back(cursor->Text("DigerId"));
  EXPECT_THAT(back, ElementsAre("a2", "a1", "a1", "b2", "b1"));
}

TEST_P(EngineContract, a_find_stays_within_the_source_and_takes_its_order) {
  AddCustomers(stores_, {"B1", "A", "B2", "B0"});
  auto cursor = Customers(stores_, "Select * From CariKartlar Where CariKod<>'B0' Order By Unvan Desc");
  EXPECT_TRUE(cursor->FindFirst("Unvan Like 'b*'").Ok());
  EXPECT_FALSE(cursor->NoMatch());
  EXPECT_EQ(cursor->Text("Unvan"), "B2");
  EXPECT_TRUE(cursor->FindNext("Unvan Like 'b*'").Ok());
  EXPECT_EQ(cursor->Text("Unvan"), "B1");
  EXPECT_EQ(cursor->FindNext("Unvan Like 'b*'").Kind(), ErrorKind::NoRecord);
  EXPECT_TRUE(cursor->NoMatch());
}

TEST_P(EngineContract, a_failed_find_leaves_the_current_record_and_sets_no_match) {
  AddCustomers(stores_, {"A", "B"});
  auto cursor = Customers(stores_);
  ASSERT_TRUE(cursor->FindFirst("CariKod='B'").Ok());
  int fired = 0;
  connections += cursor->repositioned.Connect([&] { ++fired; });
  const LoggedLines log;
  EXPECT_EQ(cursor->FindFirst("CariKod='Z'").Kind(), ErrorKind::NoRecord);
  EXPECT_TRUE(cursor->NoMatch());
  EXPECT_EQ(cursor->Text("CariKod"), "B");
  EXPECT_TRUE(log.Lines().empty());
  EXPECT_EQ(cursor->FindFirst("CariKod='it's'").Kind(), ErrorKind::BadText);
  EXPECT_TRUE(cursor->NoMatch());
  EXPECT_TRUE(log.Holds("CariKartlar"));
  EXPECT_EQ(cursor->FindFirst("Yok=1").Kind(), ErrorKind::BadText);
  EXPECT_EQ(cursor->Text("CariKod"), "B");
  EXPECT_EQ(fired, 0);
  ASSERT_TRUE(cursor->FindFirst("CariKod='A'").Ok());
  EXPECT_FALSE(cursor->NoMatch());
  EXPECT_EQ(fired, 1);
}

TEST_P(EngineContract, find_next_goes_on_behind_the_current_record_and_behind_a_deleted_one) {
  AddCustomers(stores_, {"A1", "B", "A2", "A3"});
  auto cursor = Customers(stores_);
  ASSERT_TRUE(cursor->FindFirst("CariKod Like 'A*'").Ok());
  ASSERT_TRUE(cursor->Delete().Ok());
  ASSERT_TRUE(cursor->FindNext("CariKod Like 'A*'").Ok());
  EXPECT_EQ(cursor->Text("CariKod"), "A2");
  ASSERT_TRUE(cursor->FindNext("CariKod Like 'A*'").Ok());
  EXPECT_EQ(cursor->Text("CariKod"), "A3");
}

TEST_P(EngineContract, finds_compare_numbers_dates_and_booleans) {
  AddLine(stores_, "A", {2026, 3, 1, 10, 15, 0}, 12.5, "1");
  AddLine(stores_, "A", {2026, 3, 2, 0, 0, 0}, 7, "2");
  auto cursor = Opened(stores_, "Karvel.mdb", "Datam");
  ASSERT_TRUE(cursor->FindFirst("Tutar<12").Ok());
  EXPECT_EQ(cursor->Text("DigerId"), "2");
  ASSERT_TRUE(cursor->FindFirst("Tarih>=#03/01/2026 00:00:00# And Tarih<=#03/01/2026 23:59:59#").Ok());
  EXPECT_EQ(cursor->Text("DigerId"), "1");
  ASSERT_TRUE(cursor->FindFirst("Tarih=#03/02/2026#").Ok());
  EXPECT_EQ(cursor->Text("DigerId"), "2");
  AddCustomers(stores_, {"A"});
  auto cards = Customers(stores_, "Select * From CariKartlar Where HesKullan=True");
  EXPECT_FALSE(cards->HasRows());
  ASSERT_TRUE(cards->Open("Select * From CariKartlar Where HesKullan=False").Ok());
  EXPECT_TRUE(cards->HasRows());
}

TEST_P(EngineContract, the_count_is_exact_and_made_once_until_something_changes) {
  AddCustomers(stores_, {"A", "B", "C"});
  auto cursor = Customers(stores_, "Select * From CariKartlar Where CariKod<>'B'");
  watch_ = {};
  EXPECT_EQ(cursor->RecordCount(), 2);
  EXPECT_EQ(cursor->RecordCount(), 2);
  EXPECT_EQ(watch_.counts, 1);
  AddCustomers(stores_, {"D"});
  EXPECT_EQ(cursor->RecordCount(), 3);
}

TEST_P(EngineContract, move_to_reaches_a_row_that_a_grid_showed) {
  AddCustomers(stores_, {"A", "B", "C"});
  auto cursor = Customers(stores_);
  const std::vector<GridRow> rows = cursor->RowsFromStart(3);
  ASSERT_TRUE(cursor->MoveTo(rows[1].key).Ok());
  EXPECT_EQ(cursor->Text("CariKod"), "B");
  EXPECT_EQ(cursor->CurrentKey(), rows[1].key);
  ASSERT_TRUE(cursor->Delete().Ok());
  ASSERT_TRUE(cursor->MoveFirst().Ok());
  EXPECT_EQ(cursor->MoveTo(rows[1].key).Kind(), ErrorKind::NoRecord);
  EXPECT_EQ(cursor->Text("CariKod"), "A");
}

TEST_P(EngineContract, grids_read_rows_without_moving_the_current_record) {
  std::vector<std::string> names;
  for (int i = 10; i < 60; ++i) names.push_back(std::to_string(i));
  AddCustomers(stores_, names);
  auto cursor = Customers(stores_, "Select * From CariKartlar Order By Unvan Asc");
  ASSERT_TRUE(cursor->FindFirst("Unvan='30'").Ok());
  const std::vector<GridRow> first = cursor->RowsFromStart(3);
  EXPECT_THAT(Texts(first, 1), ElementsAre("10", "11", "12"));
  EXPECT_THAT(Texts(cursor->RowsAfter(first[2], 2), 1), ElementsAre("13", "14"));
  EXPECT_THAT(Texts(cursor->RowsBefore(first[2], 5), 1), ElementsAre("10", "11"));
  const std::vector<GridRow> last = cursor->RowsFromEnd(3);
  EXPECT_THAT(Texts(last, 1), ElementsAre("57", "58", "59"));
  EXPECT_THAT(Texts(cursor->RowsBefore(last[0], 2), 1), ElementsAre("55", "56"));
  EXPECT_THAT(Texts(cursor->RowsAt(40, 2), 1), ElementsAre("50", "51"));
  EXPECT_TRUE(cursor->RowsAfter(last[2], 2).empty());
  EXPECT_TRUE(cursor->RowsAt(50, 2).empty());
  EXPECT_TRUE(cursor->RowsFromStart(0).empty());
  EXPECT_EQ(cursor->PositionOf(first[0]), 0);
  EXPECT_EQ(cursor->PositionOf(last[2]), 49);
  EXPECT_EQ(cursor->PositionOf(cursor->CurrentRow()), 20);
  EXPECT_EQ(cursor->Text("Unvan"), "30");
}

TEST_P(EngineContract, rows_beside_a_row_that_is_gone_are_still_found) {
  AddCustomers(stores_, {"A", "B", "C", "D"});
  auto cursor = Customers(stores_, "Select * From CariKartlar Order By Unvan Desc");
  const std::vector<GridRow> rows = cursor->RowsFromStart(4);
  ASSERT_TRUE(cursor->MoveTo(rows[1].key).Ok());
  ASSERT_TRUE(cursor->Delete().Ok());
  EXPECT_THAT(Texts(cursor->RowsAfter(rows[1], 9), 1), ElementsAre("B", "A"));
  EXPECT_THAT(Texts(cursor->RowsBefore(rows[1], 9), 1), ElementsAre("D"));
  EXPECT_EQ(cursor->PositionOf(rows[3]), 2);
}

TEST_P(EngineContract, a_field_is_read_by_name_in_any_case_or_by_position) {
  AddCustomer(stores_, "A", "Ali", 12.5);
  auto cursor = Customers(stores_);
  EXPECT_EQ(cursor->Text("unvan"), "Ali");
  EXPECT_EQ(cursor->Text(1), "Ali");
  EXPECT_EQ(cursor->Text("BORC"), "12,5");
  EXPECT_DOUBLE_EQ(cursor->Number("Borc"), 12.5);
  EXPECT_DOUBLE_EQ(cursor->Number(11), 12.5);
  const LoggedLines log;
  EXPECT_TRUE(std::holds_alternative<std::monostate>(cursor->Get("Yok")));
  EXPECT_TRUE(log.Holds("Yok"));
  EXPECT_TRUE(std::holds_alternative<std::monostate>(cursor->Get(99)));
  EXPECT_TRUE(std::holds_alternative<std::monostate>(cursor->Get(-1)));
}

TEST_P(EngineContract, every_change_of_the_current_record_and_every_refresh_fires_once) {
  AddCustomers(stores_, {"A", "B"});
  auto cursor = Customers(stores_);
  int fired = 0;
  int shown = 0;
  connections += cursor->repositioned.Connect([&] { ++fired; });
  connections += cursor->shown.Connect([&] { ++shown; });
  ASSERT_TRUE(cursor->Refresh().Ok());
  EXPECT_EQ(fired, 1);
  ASSERT_TRUE(cursor->MoveNext().Ok());
  EXPECT_EQ(fired, 2);
  ASSERT_TRUE(cursor->FindFirst("CariKod='A'").Ok());
  EXPECT_EQ(fired, 3);
  ASSERT_TRUE(cursor->MoveLast().Ok());
  EXPECT_EQ(fired, 4);
  ASSERT_TRUE(cursor->MoveNext().Ok());  // behind the last
  EXPECT_EQ(fired, 5);
  EXPECT_FALSE(cursor->MoveNext().Ok());
  EXPECT_EQ(fired, 5);
  ASSERT_TRUE(cursor->MoveFirst().Ok());
  ASSERT_TRUE(cursor->Edit().Ok());
  EXPECT_EQ(fired, 6);
  ASSERT_TRUE(cursor->Update().Ok());
  EXPECT_EQ(fired, 7);
  ASSERT_TRUE(cursor->Delete().Ok());
  EXPECT_EQ(fired, 8);
  cursor->Close();
  EXPECT_EQ(fired, 9);
  EXPECT_EQ(shown, 9);
}

TEST_P(EngineContract, a_handler_of_a_move_may_use_and_move_its_own_cursor) {
  AddCustomers(stores_, {"A", "B", "C"});
  auto cursor = Customers(stores_);
  auto other = Customers(stores_);
  int depth = 0;
  std::string seen;
  connections += cursor->repositioned.Connect([&] {
    if (++depth == 1) {
      seen = cursor->Text("CariKod");
      EXPECT_TRUE(other->FindFirst("CariKod='" + seen + "'").Ok());
      EXPECT_TRUE(cursor->Refresh().Ok());
      EXPECT_TRUE(cursor->MoveLast().Ok());
    }
    --depth;
  });
  ASSERT_TRUE(cursor->FindFirst("CariKod='B'").Ok());
  EXPECT_EQ(seen, "B");
  EXPECT_EQ(other->Text("CariKod"), "B");
  EXPECT_EQ(cursor->Text("CariKod"), "C");
}

TEST_P(EngineContract, a_row_that_another_cursor_deleted_is_no_current_record_any_more) {
  AddCustomers(stores_, {"A", "B", "C"});
  auto cursor = Customers(stores_);
  ASSERT_TRUE(cursor->FindFirst("CariKod='B'").Ok());
  ASSERT_TRUE(stores_.Execute("Cari.mdb", "DELETE FROM CariKartlar Where CariKod='B'").Ok());
  EXPECT_FALSE(cursor->HasCurrent());
  EXPECT_TRUE(cursor->HasRows());
  ASSERT_TRUE(cursor->MoveNext().Ok());
  EXPECT_EQ(cursor->Text("CariKod"), "C");
}

// Names whose pattern begins with any letter: each list must hold the very rows, in the very order, that a look at every row gives.
TEST_P(EngineContract, a_pattern_that_begins_with_any_letter_gives_every_row_that_fits_in_order) {
  std::vector<std::string> names;
  for (const char* const first :
       {"", "a", "Ç", "i", "I", "ı", "İ", "Ğ", "z", "â", "Î", "û", "Q", "7", "=", " ", "'", "{", "~", "é", "Я", "€", "😀"})
    for (const char* const rest : {"brahim", "brah", "bRAHİM", "xbrahim", "lker"}) names.push_back(std::string(first) + rest);
  for (const char* const first : {"i", "I", "ı", "İ", "Î", "h", "z"})
    for (const char* const rest :
         {"brahim k", "brahım Ka", "brahİm k", "BRAHIM K", "brahîm k", "brahjm k", "brahhm k", "brah€m k", "brahm k"})
      names.push_back(std::string(first) + rest);
  names.insert(names.end(), {"İbrahim", "İbrahim", "Kâbrahim", "Kıbrahim", "kebrahim", "K😀brahim", "K", ""});
  AddCustomers(stores_, names);
  auto all = Customers(stores_, "Select * From CariKartlar Order By Unvan Asc");
  const int position = all->SourceTable()->Position("Unvan");
  const std::vector<GridRow> every = all->RowsFromStart(1000);
  ASSERT_EQ(every.size(), names.size());

  for (const std::string pattern : {"?brah*", "?brah?m", "?brah*m", "?brahim", "K?brah*", "k?b*", "?b*", "?x*", "?=*", "?*", "??rah*",
                                    "[ai]brah*", "?qq*", "?brah?m k*", "?b?ah?m*", "?brah??"}) {
    for (const std::string direction : {"Asc", "Desc"}) {
      SCOPED_TRACE(pattern + " " + direction);
      std::vector<GridRow> wanted;
      for (const GridRow& row : every)
        if (karvel::Like(AsText(row.values[static_cast<std::size_t>(position)]), pattern)) wanted.push_back(row);
      if (direction == "Desc") std::ranges::reverse(wanted);
      auto list = Customers(stores_,
                            "Select * From CariKartlar Where HesKullan=False And Unvan Like '" + pattern + "' Order By Unvan " + direction);
      const auto keys = [](const std::vector<GridRow>& rows) {
        std::vector<RowKey> theirs;
        for (const GridRow& row : rows) theirs.push_back(row.key);
        return theirs;
      };
      const std::vector<RowKey> expected = keys(wanted);
      EXPECT_EQ(keys(list->RowsFromStart(1000)), expected);
      EXPECT_EQ(keys(list->RowsFromEnd(1000)), expected);
      EXPECT_EQ(list->RecordCount(), static_cast<std::int64_t>(expected.size()));
      EXPECT_EQ(list->HasRows(), !expected.empty());
      for (std::size_t i = 0; i < wanted.size(); i += 1 + wanted.size() / 16) {
        EXPECT_EQ(keys(list->RowsAfter(wanted[i], 1000)),
                  std::vector<RowKey>(expected.begin() + static_cast<std::ptrdiff_t>(i) + 1, expected.end()));
        EXPECT_EQ(keys(list->RowsBefore(wanted[i], 1000)),
                  std::vector<RowKey>(expected.begin(), expected.begin() + static_cast<std::ptrdiff_t>(i)));
        EXPECT_EQ(list->PositionOf(wanted[i]), static_cast<std::int64_t>(i));
        const auto here = list->RowsAt(static_cast<std::int64_t>(i), 2);
        ASSERT_FALSE(here.empty());
        EXPECT_EQ(here.size(), std::min<std::size_t>(2, wanted.size() - i));
        EXPECT_EQ(here.front().key, expected[i]);
      }
      // The same as a find in the whole list.
      auto finder = Customers(stores_, "Select * From CariKartlar Order By Unvan " + direction);
      std::vector<RowKey> found;
      for (Status next = finder->FindFirst("Unvan Like '" + pattern + "'"); next.Ok();
           next = finder->FindNext("Unvan Like '" + pattern + "'"))
        found.push_back(finder->CurrentKey());
      EXPECT_EQ(found, expected);
    }
  }
}

TEST_P(EngineContract, a_list_known_to_be_empty_is_not_read_again_until_something_is_written) {
  AddCustomers(stores_, {"A"});
  auto list = Customers(stores_, "Select * From CariKartlar Where Unvan='B'");
  EXPECT_FALSE(list->HasRows());
  watch_ = {};
  EXPECT_FALSE(list->HasRows());
  EXPECT_EQ(watch_.AllReads(), 0);
  AddCustomers(stores_, {"B"});
  EXPECT_TRUE(list->HasRows());
}

}  // namespace karvel::testing
