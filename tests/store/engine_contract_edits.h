// The suite's part on adding, editing and deleting.
#pragma once

#include "store/table_rows.h"
#include "tests/store/engine_contract.h"

namespace karvel::testing {

TEST_P(EngineContract, the_record_current_before_an_add_stays_current) {
  AddCustomers(stores_, {"B", "C"});
  auto cursor = Customers(stores_, "Select * From CariKartlar Order By Unvan Asc");
  ASSERT_TRUE(cursor->AddNew().Ok());
  cursor->Set("Unvan", "A");
  ASSERT_TRUE(cursor->Update().Ok());
  EXPECT_EQ(cursor->Text("Unvan"), "B");
  ASSERT_TRUE(cursor->MoveFirst().Ok());
  EXPECT_EQ(cursor->Text("Unvan"), "A");
  ASSERT_TRUE(cursor->MoveLast().Ok());
  ASSERT_TRUE(cursor->AddNew().Ok());
  cursor->Set("Unvan", "D");
  ASSERT_TRUE(cursor->Update().Ok());
  EXPECT_EQ(cursor->Text("Unvan"), "C");
}

TEST_P(EngineContract, the_first_row_added_to_a_source_becomes_current) {
  auto cursor = Customers(stores_);
  EXPECT_FALSE(cursor->HasCurrent());
  ASSERT_TRUE(cursor->AddNew().Ok());
  cursor->Set("CariKod", "A");
  ASSERT_TRUE(cursor->Update().Ok());
  EXPECT_TRUE(cursor->HasRows());
  EXPECT_EQ(cursor->Text("CariKod"), "A");
}

TEST_P(EngineContract, a_new_row_holds_defaults_where_nothing_was_set) {
  auto cursor = Customers(stores_);
  ASSERT_TRUE(cursor->AddNew().Ok());
  cursor->Set("CariKod", "A");
  ASSERT_TRUE(cursor->Update().Ok());
  EXPECT_EQ(cursor->Get("Unvan"), Value(std::string()));
  EXPECT_EQ(cursor->Get("Borc"), Value(0.0));
  EXPECT_EQ(cursor->Get("HesKullan"), Value(false));
  auto due = Opened(stores_, "Cari.mdb", "VadeGün");
  ASSERT_TRUE(due->AddNew().Ok());
  ASSERT_TRUE(due->Update().Ok());
  EXPECT_EQ(due->Get("VadeTarih"), Value(DateTime{}));
}

TEST_P(EngineContract, reading_while_an_add_or_edit_is_open_reads_the_copy) {
  AddCustomer(stores_, "A", "Ali", 5);
  auto cursor = Customers(stores_);
  ASSERT_TRUE(cursor->Edit().Ok());
  EXPECT_TRUE(cursor->IsEditing());
  cursor->Set("Borc", Value(7.0));
  EXPECT_DOUBLE_EQ(cursor->Number("Borc"), 7);
  EXPECT_DOUBLE_EQ(AsNumber(cursor->CurrentRow().values[11]), 5);
  cursor->CancelUpdate();
  EXPECT_FALSE(cursor->IsEditing());
  EXPECT_DOUBLE_EQ(cursor->Number("Borc"), 5);
  ASSERT_TRUE(cursor->AddNew().Ok());
  EXPECT_EQ(cursor->Text("Unvan"), "");
  cursor->CancelUpdate();
  EXPECT_EQ(cursor->Text("Unvan"), "Ali");
  EXPECT_EQ(cursor->RecordCount(), 1);
}

TEST_P(EngineContract, values_are_converted_to_the_fields_type) {
  auto cursor = Opened(stores_, "Karvel.mdb", "Datam");
  ASSERT_TRUE(cursor->AddNew().Ok());
  cursor->Set("Tutar", "1.250,75");
  cursor->Set("CariKod", Value(12.5));
  cursor->Set("Tarih", "01/03/2026");
  cursor->Set("Miktar", Value(true));
  cursor->Set("Aciklama", Value(DateTime{2026, 3, 1, 0, 0, 0}));
  cursor->Set("yeni", 1);
  ASSERT_TRUE(cursor->Update().Ok());
  ASSERT_TRUE(cursor->Refresh().Ok());
  EXPECT_EQ(cursor->Get("Tutar"), Value(1250.75));
  EXPECT_EQ(cursor->Get("CariKod"), Value(std::string("12,5")));
  EXPECT_EQ(cursor->Get("Tarih"), Value(DateTime{2026, 3, 1, 0, 0, 0}));
  EXPECT_EQ(cursor->Get("Miktar"), Value(1.0));
  EXPECT_EQ(cursor->Text("Aciklama"), "01.03.2026");
  EXPECT_EQ(cursor->Get("yeni"), Value(1.0));
  auto groups = Opened(stores_, "Cari.mdb", "Gurup");
  ASSERT_TRUE(groups->AddNew().Ok());
  groups->Set("Grp", "1");
  ASSERT_TRUE(groups->Update().Ok());
  EXPECT_EQ(groups->Get("Grp"), Value(true));
}

TEST_P(EngineContract, a_value_that_cant_be_converted_leaves_the_field_and_is_logged) {
  AddLine(stores_, "A", {2026, 3, 1, 0, 0, 0}, 5);
  auto cursor = Opened(stores_, "Karvel.mdb", "Datam");
  ASSERT_TRUE(cursor->Edit().Ok());
  const LoggedLines log;
  cursor->Set("Tutar", "beş");
  EXPECT_TRUE(log.Holds("Tutar"));
  EXPECT_TRUE(log.Holds("Datam"));
  cursor->Set("Tutar", "");
  cursor->Set("Tarih", "yarın");
  cursor->Set("Yok", "1");
  EXPECT_EQ(log.Lines().size(), 4U);
  ASSERT_TRUE(cursor->Update().Ok());
  EXPECT_DOUBLE_EQ(cursor->Number("Tutar"), 5);
  EXPECT_EQ(cursor->Get("Tarih"), Value(DateTime{2026, 3, 1, 0, 0, 0}));
}

TEST_P(EngineContract, texts_come_back_byte_for_byte) {
  const std::string name = "O'Brien \"Şti.\" %_*?[#] \\ ₺ 100% ;--";
  AddCustomer(stores_, "'; DELETE FROM CariKartlar", name);
  auto cursor = Customers(stores_);
  EXPECT_EQ(cursor->Text("Unvan"), name);
  EXPECT_EQ(cursor->Text("CariKod"), "'; DELETE FROM CariKartlar");
  EXPECT_TRUE(cursor->FindFirst("CariKod=\"'; DELETE FROM CariKartlar\"").Ok());
}

TEST_P(EngineContract, an_update_needs_an_open_copy_and_a_set_too) {
  AddCustomer(stores_, "A", "Ali");
  auto cursor = Customers(stores_);
  EXPECT_EQ(cursor->Update().Kind(), ErrorKind::NotOpen);
  const LoggedLines log;
  cursor->Set("Unvan", "Veli");
  EXPECT_EQ(log.Lines().size(), 1U);
  EXPECT_EQ(cursor->Text("Unvan"), "Ali");
}

TEST_P(EngineContract, a_move_drops_the_open_copy_but_a_find_that_fails_keeps_it) {
  AddCustomers(stores_, {"A", "B"});
  auto cursor = Customers(stores_);
  ASSERT_TRUE(cursor->Edit().Ok());
  cursor->Set("Unvan", "Ali");
  EXPECT_FALSE(cursor->FindFirst("CariKod='Z'").Ok());
  EXPECT_TRUE(cursor->IsEditing());
  ASSERT_TRUE(cursor->MoveNext().Ok());
  EXPECT_FALSE(cursor->IsEditing());
  EXPECT_FALSE(stores_.InAction());
  ASSERT_TRUE(cursor->MoveFirst().Ok());
  EXPECT_EQ(cursor->Text("Unvan"), "A");
}

TEST_P(EngineContract, an_edited_row_stays_current_though_it_has_left_the_source_and_the_walk_goes_on_from_its_old_place) {
  AddCustomers(stores_, {"A", "B", "C"});
  auto cursor = Customers(stores_, "Select * From CariKartlar Where Gurup='' Order By Unvan Asc");
  std::vector<std::string> walked;
  while (!cursor->Eof()) {
    walked.push_back(cursor->Text("CariKod"));
    ASSERT_TRUE(cursor->Edit().Ok());
    cursor->Set("Gurup", "Toptan");
    cursor->Set("Unvan", Value("0" + cursor->Text("CariKod")));
    ASSERT_TRUE(cursor->Update().Ok());
    EXPECT_EQ(cursor->Text("Unvan"), "0" + walked.back());
    ASSERT_TRUE(cursor->MoveNext().Ok());
  }
  EXPECT_THAT(walked, ::testing::ElementsAre("A", "B", "C"));
  EXPECT_EQ(cursor->RecordCount(), 0);
}

TEST_P(EngineContract, after_a_delete_there_is_no_current_record_and_next_goes_to_the_row_behind) {
  AddCustomers(stores_, {"A", "B", "C"});
  auto cursor = Customers(stores_);
  ASSERT_TRUE(cursor->MoveNext().Ok());
  ASSERT_TRUE(cursor->Delete().Ok());
  EXPECT_FALSE(cursor->HasCurrent());
  EXPECT_FALSE(cursor->Bof());
  EXPECT_FALSE(cursor->Eof());
  EXPECT_TRUE(std::holds_alternative<std::monostate>(cursor->Get("CariKod")));
  EXPECT_EQ(cursor->Delete().Kind(), ErrorKind::NoRecord);
  ASSERT_TRUE(cursor->MoveNext().Ok());
  EXPECT_EQ(cursor->Text("CariKod"), "C");
  ASSERT_TRUE(cursor->Delete().Ok());
  ASSERT_TRUE(cursor->MovePrevious().Ok());
  EXPECT_EQ(cursor->Text("CariKod"), "A");
  EXPECT_EQ(cursor->RecordCount(), 1);
}

TEST_P(EngineContract, edit_reads_the_row_afresh_and_update_writes_only_what_was_set) {
  AddCustomer(stores_, "A", "Ali", 5);
  auto cursor = Customers(stores_);
  EXPECT_EQ(cursor->Text("Unvan"), "Ali");
  auto other = OtherTerminal();
  auto theirs = Customers(*other);
  ASSERT_TRUE(theirs->Edit().Ok());
  theirs->Set("Unvan", "Veli");
  theirs->Set("Borc", 6);
  ASSERT_TRUE(theirs->Update().Ok());
  ASSERT_TRUE(cursor->Edit().Ok());
  EXPECT_DOUBLE_EQ(cursor->Number("Borc"), 6);
  cursor->Set("Borc", Value(cursor->Number("Borc") + 1));
  ASSERT_TRUE(cursor->Update().Ok());
  EXPECT_DOUBLE_EQ(cursor->Number("Borc"), 7);
  EXPECT_EQ(cursor->Text("Unvan"), "Veli");
}

TEST_P(EngineContract, an_edit_of_a_row_that_another_terminal_deleted_fails_and_leaves_nothing_open) {
  AddCustomers(stores_, {"A", "B"});
  auto cursor = Customers(stores_);
  EXPECT_EQ(cursor->Text("CariKod"), "A");
  auto other = OtherTerminal();
  ASSERT_TRUE(Customers(*other)->Delete().Ok());
  EXPECT_EQ(cursor->Edit().Kind(), ErrorKind::NoRecord);
  EXPECT_FALSE(cursor->IsEditing());
  EXPECT_FALSE(stores_.InAction());
  EXPECT_FALSE(cursor->HasCurrent());
  ASSERT_TRUE(cursor->MoveNext().Ok());
  EXPECT_EQ(cursor->Text("CariKod"), "B");
}

TEST_P(EngineContract, an_edit_whose_action_has_ended_refuses_to_write_over_another_terminals_change) {
  AddCustomer(stores_, "A", "Ali", 5);
  auto cursor = Customers(stores_);
  {
    Action action(stores_, "unfinished");
    ASSERT_TRUE(cursor->Edit().Ok());
    cursor->Set("Borc", Value(cursor->Number("Borc") + 1));
  }
  auto other = OtherTerminal();
  auto theirs = Customers(*other);
  ASSERT_TRUE(theirs->Edit().Ok());
  theirs->Set("Borc", Value(theirs->Number("Borc") + 10));
  ASSERT_TRUE(theirs->Update().Ok());
  EXPECT_EQ(cursor->Update().Kind(), ErrorKind::Busy);
  EXPECT_FALSE(stores_.InAction());
  cursor->CancelUpdate();
  ASSERT_TRUE(cursor->Refresh().Ok());
  EXPECT_DOUBLE_EQ(cursor->Number("Borc"), 15);
}

inline Status AddMany(Stores& stores, const std::vector<std::string>& codes) {
  TableRows rows(stores, "Cari.mdb", "CariKartlar");
  return rows.Add(static_cast<std::int64_t>(codes.size()), [&](std::int64_t i, Row& row) { row[0] = codes[static_cast<std::size_t>(i)]; });
}

TEST_P(EngineContract, rows_added_by_the_thousand_stand_in_their_order_and_are_found_like_any_other) {
  AddCustomers(stores_, {"önce"});
  std::vector<std::string> codes;
  for (int i = 0; i < 3000; ++i) codes.push_back("K" + std::to_string(i));
  for (int round = 0; round < 2; ++round) {
    Action action(stores_, "many");
    ASSERT_TRUE(AddMany(stores_, codes).Ok());
    ASSERT_TRUE(AddMany(stores_, {"son"}).Ok());
    ASSERT_TRUE(action.Finish().Ok());
  }
  auto other = OtherTerminal();
  std::vector<std::string> read;
  ASSERT_TRUE(
      TableRows(*other, "Cari.mdb", "CariKartlar").ForEach([&](const GridRow& row) { read.push_back(AsText(row.values[0])); }).Ok());
  ASSERT_EQ(read.size(), 6003U);
  EXPECT_EQ(read[0], "önce");
  EXPECT_EQ(read[1], "K0");
  EXPECT_EQ(read[3001], "son");
  EXPECT_EQ(read[6001], "K2999");
  auto cursor = Customers(*other);
  ASSERT_TRUE(cursor->FindFirst("CariKod='k2999'").Ok());
  EXPECT_EQ(cursor->Get("Borc"), Value(0.0));
  EXPECT_EQ(cursor->Get("HesKullan"), Value(false));
}

TEST_P(EngineContract, rows_added_by_the_thousand_go_with_an_action_that_is_left_and_need_one) {
  const std::vector<std::string> codes(2000, "K");
  EXPECT_EQ(AddMany(stores_, codes).Kind(), ErrorKind::NotOpen);
  AddCustomers(stores_, {"A"});
  {
    const Action left(stores_, "left");
    EXPECT_TRUE(AddMany(stores_, codes).Ok());
  }
  AddCustomers(stores_, {"B"});
  EXPECT_EQ(Customers(*OtherTerminal())->RecordCount(), 2);
  EXPECT_TRUE(Customers(stores_)->FindFirst("Unvan='B'").Ok());
}

TEST_P(EngineContract, a_failure_among_rows_added_by_the_thousand_undoes_the_action) {
  AddCustomers(stores_, {"A"});
  Action action(stores_, "many");
  AddCustomer(stores_, "B", "B");
  watch_.writeFault = {ErrorKind::DiskFull, "full"};
  EXPECT_EQ(AddMany(stores_, {"C"}).Kind(), ErrorKind::DiskFull);
  watch_.writeFault = {};
  EXPECT_EQ(action.Finish().Kind(), ErrorKind::DiskFull);
  EXPECT_EQ(Customers(stores_)->RecordCount(), 1);
}

TEST_P(EngineContract, fields_are_changed_by_the_key_of_a_row_that_was_read) {
  AddCustomers(stores_, {"A", "B"});
  Action action(stores_, "change");
  TableRows rows(stores_, "Cari.mdb", "CariKartlar");
  RowKey key = 0;
  ASSERT_TRUE(rows.ForEach([&](const GridRow& row) { key = row.key; }).Ok());
  ASSERT_TRUE(rows.Change(key, std::vector<FieldValue>{{1, Value(std::string("Bilge"))}}).Ok());
  EXPECT_EQ(rows.Change(key + 1, std::vector<FieldValue>{{1, Value(std::string("Bilge"))}}).Kind(), ErrorKind::NoRecord);
  ASSERT_TRUE(action.Finish().Ok());
  EXPECT_EQ(Walk(*Customers(*OtherTerminal()), "Unvan"), (std::vector<std::string>{"A", "Bilge"}));
}

TEST_P(EngineContract, every_table_takes_a_row_and_gives_it_back) {
  for (const DatabaseFile& file : Catalogue::Files()) {
    for (const Table& table : file.tables) {
      SCOPED_TRACE(std::string(file.name) + " " + std::string(table.name));
      auto cursor = Opened(stores_, std::string(file.name), std::string(table.name));
      ASSERT_TRUE(cursor->AddNew().Ok());
      for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const int at = static_cast<int>(i);
        switch (table.columns[i].type) {
          case ColumnType::Text:
            cursor->Set(at, Value("ş" + std::to_string(i)));
            break;
          case ColumnType::Number:
            cursor->Set(at, Value(static_cast<double>(i) + 0.5));
            break;
          case ColumnType::Date:
            cursor->Set(at, Value(DateTime{2026, 3, 1, 23, 59, static_cast<std::int8_t>(i)}));
            break;
          case ColumnType::Boolean:
            cursor->Set(at, Value(true));
            break;
        }
      }
      ASSERT_TRUE(cursor->Update().Ok());
      auto again = Opened(stores_, std::string(file.name), "Select * From " + std::string(table.name));
      for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const Value value = again->Get(static_cast<int>(i));
        switch (table.columns[i].type) {
          case ColumnType::Text:
            EXPECT_EQ(value, Value("ş" + std::to_string(i)));
            break;
          case ColumnType::Number:
            EXPECT_EQ(value, Value(static_cast<double>(i) + 0.5));
            break;
          case ColumnType::Date:
            EXPECT_EQ(value, Value(DateTime{2026, 3, 1, 23, 59, static_cast<std::int8_t>(i)}));
            break;
          case ColumnType::Boolean:
            EXPECT_EQ(value, Value(true));
            break;
        }
      }
      ASSERT_TRUE(again->Delete().Ok());
      EXPECT_FALSE(again->HasRows());
    }
  }
}

}  // namespace karvel::testing
