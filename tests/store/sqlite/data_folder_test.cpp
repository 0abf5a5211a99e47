// What a start meets in a data folder: files in any case, of any journal, damaged, missing, read-only, or left by a dead writer.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "tests/store/sqlite/sqlite_kind.h"

namespace karvel::testing {
namespace {

namespace fs = std::filesystem;

// What another program, which knows nothing of the desk, does with a file. The first field of the first row comes back.
std::string Foreign(const std::string& path, const std::string& sql, int* result = nullptr) {
  sqlite3* database = nullptr;
  sqlite3_open(path.c_str(), &database);
  std::string answer;
  const int code = sqlite3_exec(
      database, sql.c_str(),
      [](void* to, int count, char** fields, char**) {
        auto& text = *static_cast<std::string*>(to);
        if (text.empty() && count > 0 && fields[0] != nullptr) text = fields[0];
        return 0;
      },
      &answer, nullptr);
  if (result != nullptr) {
    *result = code;
  } else {
    EXPECT_EQ(code, SQLITE_OK) << sqlite3_errmsg(database) << ": " << sql;
  }
  sqlite3_close(database);
  return answer;
}

std::unique_ptr<Stores> Terminal(const SqliteKind& kind) {
  return std::make_unique<Stores>(MakeSqliteEngine(TestOptions(kind.Folder())));
}

}  // namespace

TEST(DataFolder, finds_its_files_whatever_the_case_of_their_names) {
  const SqliteKind kind;
  fs::rename(kind.Path("Cari.mdb"), kind.Path("CARI.MDB"));
  fs::rename(kind.Path("DataTemp.Mdb"), kind.Path("datatemp.mdb"));
  auto stores = Terminal(kind);
  ASSERT_TRUE(stores->Open(kind.Folder()).Ok());
  AddCustomer(*stores, "A", "Ali");
  EXPECT_EQ(Foreign(kind.Path("CARI.MDB"), "SELECT Unvan FROM CariKartlar"), "Ali");
  auto lines = Opened(*stores, "DataTemp.Mdb", "CariHareket");
  EXPECT_FALSE(lines->HasRows());
  EXPECT_NE(lines->SourceTable(), nullptr);
}

TEST(DataFolder, a_terminal_has_a_scratch_file_of_its_own_made_from_the_first) {
  const SqliteKind kind;
  const std::string own = kind.Path("home/program/DataTemp2.Mdb");
  SqliteOptions options = TestOptions(kind.Folder());
  options.scratchFile = own;
  const auto add = [&](const SqliteOptions& with) {
    Stores stores(MakeSqliteEngine(with));
    EXPECT_TRUE(stores.Open(kind.Folder()).Ok());
    Cursor lines(stores, "lines");
    lines.SetDatabaseName("DataTemp.Mdb");
    EXPECT_TRUE(lines.Open("CariHareket").Ok());
    EXPECT_TRUE(lines.AddNew().Ok());
    lines.Set("Aciklama", "Satış");
    EXPECT_TRUE(lines.Update().Ok());
  };
  fs::permissions(kind.Path("DataTemp.Mdb"), fs::perms::owner_read);  // an installed one
  add(options);
  add(options);
  EXPECT_EQ(Foreign(own, "SELECT count(*) FROM CariHareket"), "2");
  EXPECT_EQ(Foreign(kind.Path("DataTemp.Mdb"), "SELECT count(*) FROM CariHareket"), "0");
  options.scratchFile = kind.Path("DataTemp.Mdb");
  fs::permissions(kind.Path("DataTemp.Mdb"), fs::perms::owner_all);
  add(options);
  EXPECT_EQ(Foreign(kind.Path("DataTemp.Mdb"), "SELECT count(*) FROM CariHareket"), "1");
}

TEST(DataFolder, a_missing_file_is_told_by_name_and_nothing_is_open) {
  const SqliteKind kind;
  fs::remove(kind.Path("SeriNo.mdb"));
  auto stores = Terminal(kind);
  const Status opened = stores->Open(kind.Folder());
  EXPECT_EQ(opened.Kind(), ErrorKind::Missing);
  EXPECT_TRUE(opened.Message().starts_with("SeriNo.mdb")) << opened.Message();
  EXPECT_FALSE(stores->IsOpen());
  EXPECT_FALSE(fs::exists(kind.Path("SeriNo.mdb")));
  EXPECT_EQ(stores->Open("/nowhere/at/all").Kind(), ErrorKind::Missing);
}

TEST(DataFolder, a_damaged_file_is_told_by_name) {
  for (const std::string name : {"Stok.mdb", "Karvel.mdb", "DataStok.mdb"}) {
    const SqliteKind kind;
    std::ofstream(kind.Path(name), std::ios::trunc) << std::string(5000, 'x');
    const Status opened = Terminal(kind)->Open(kind.Folder());
    EXPECT_EQ(opened.Kind(), ErrorKind::Damaged);
    EXPECT_TRUE(opened.Message().starts_with(name)) << opened.Message();
  }
}

TEST(DataFolder, a_file_without_its_tables_is_damaged) {
  const SqliteKind kind;
  Foreign(kind.Path("Fatura.mdb"), "DROP TABLE FatHareket");
  const Status opened = Terminal(kind)->Open(kind.Folder());
  EXPECT_EQ(opened.Kind(), ErrorKind::Damaged);
  EXPECT_TRUE(opened.Message().starts_with("Fatura.mdb")) << opened.Message();
  std::ofstream(kind.Path("Index.mdb"), std::ios::trunc).close();
  EXPECT_TRUE(Terminal(kind)->Open(kind.Folder()).Message().starts_with("Index.mdb"));
}

TEST(DataFolder, a_page_damaged_later_is_told_when_it_is_read_and_hinders_no_other_file) {
  const SqliteKind kind;
  auto stores = Terminal(kind);
  ASSERT_TRUE(stores->Open(kind.Folder()).Ok());
  AddCustomer(*stores, "A", "Ali");
  stores->Close();
  {
    std::fstream file(kind.Path("Cari.mdb"), std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(4096);
    file << std::string(4096, '\xFF');
  }
  ASSERT_TRUE(stores->Open(kind.Folder()).Ok());
  auto cursor = Customers(*stores);
  const LoggedLines log;
  EXPECT_FALSE(cursor->HasRows());
  EXPECT_FALSE(log.Lines().empty());
  EXPECT_EQ(cursor->FindFirst("Borc=0").Kind(), ErrorKind::Damaged);
  AddLine(*stores, "A", {2026, 3, 1, 0, 0, 0}, 1);
  EXPECT_TRUE(Opened(*stores, "Karvel.mdb", "Datam")->HasRows());
}

TEST(DataFolder, a_file_with_a_write_ahead_log_is_set_back_to_a_journal) {
  const SqliteKind kind;
  Foreign(kind.Path("Stok.mdb"), "PRAGMA journal_mode=WAL; INSERT INTO StokKartlar (StokKod) VALUES ('S1')");
  Foreign(kind.Path("Karvel.mdb"), "PRAGMA journal_mode=PERSIST");
  auto stores = Terminal(kind);
  ASSERT_TRUE(stores->Open(kind.Folder()).Ok());
  EXPECT_EQ(Opened(*stores, "Stok.mdb", "StokKartlar")->Text("StokKod"), "S1");
  stores->Close();
  EXPECT_EQ(Foreign(kind.Path("Stok.mdb"), "PRAGMA journal_mode"), "delete");
}

TEST(DataFolder, a_super_journal_left_behind_is_swept_but_one_that_a_journal_names_stays) {
  const SqliteKind kind;
  std::ofstream(kind.Path("Karvel.mdb-mjABCDEF912")) << "x";
  std::ofstream(kind.Path("Karvel.mdb-mj123456934")) << "x";
  std::ofstream(kind.Path("Baska.mdb-journal")) << std::string(600, '\xD9') << kind.Path("Karvel.mdb-mj123456934");
  std::ofstream(kind.Path("Cari.mdb-journal")) << std::string(600, '\0') << kind.Path("Karvel.mdb-mjABCDEF912");  // never synced
  ASSERT_TRUE(Terminal(kind)->Open(kind.Folder()).Ok());
  EXPECT_FALSE(fs::exists(kind.Path("Karvel.mdb-mjABCDEF912")));
  EXPECT_FALSE(fs::exists(kind.Path("Cari.mdb-journal"))) << "another program would begin its own over it";
  EXPECT_TRUE(fs::exists(kind.Path("Karvel.mdb-mj123456934")));
}

TEST(DataFolder, other_programs_write_the_files_without_the_desks_functions) {
  const SqliteKind kind;
  auto stores = Terminal(kind);
  ASSERT_TRUE(stores->Open(kind.Folder()).Ok());
  auto cursor = Customers(*stores);
  EXPECT_FALSE(cursor->HasRows());
  Foreign(kind.Path("Cari.mdb"),
          "INSERT INTO CariKartlar (CariKod, Unvan, Borc) VALUES ('Ş1', 'ŞEKERCİ', 5); UPDATE CariKartlar SET Unvan='Çaycı', Borc=7;"
          "INSERT INTO CariKartlar (CariKod, Unvan) VALUES ('Ş2', 'ŞAH'); DELETE FROM CariKartlar WHERE CariKod='Ş2'");
  ASSERT_TRUE(cursor->Refresh().Ok());
  ASSERT_TRUE(cursor->FindFirst("Unvan='ÇAYCI'").Ok() || cursor->FindFirst("Unvan='çaycı'").Ok());
  EXPECT_EQ(cursor->Text("CariKod"), "Ş1");
  EXPECT_DOUBLE_EQ(cursor->Number("Borc"), 7);
  EXPECT_EQ(Foreign(kind.Path("Cari.mdb"), "PRAGMA integrity_check"), "ok");
}

TEST(DataFolder, what_other_programs_left_in_a_column_never_stops_a_walk) {
  const SqliteKind kind;
  Foreign(
      kind.Path("Karvel.mdb"),
      "INSERT INTO Datam (CariKod, Tarih, Tutar, DigerId) VALUES ('A', '2026-03-01', 'beş', '1'), ('A', NULL, NULL, '2'), (NULL, 'dün', "
      "'2,5', '3'), ('A', '', 4, '4'), ('A', '2026-03-01 00:00:00', '12 elma', '5'), ('A', NULL, 1, '6'), (7, '2026-03-01', 1e300, '7')");
  auto stores = Terminal(kind);
  ASSERT_TRUE(stores->Open(kind.Folder()).Ok());
  for (const std::string order : {"", " Order By Tarih Asc", " Order By Tarih Desc", " Order By Tutar Asc", " Order By Tutar Desc",
                                  " Order By CariKod Asc, Tarih Desc", " Order By CariKod Desc, Tutar Asc", " Order By Aciklama Asc"}) {
    SCOPED_TRACE(order);
    auto cursor = Opened(*stores, "Karvel.mdb", "Select * From Datam" + order);
    std::vector<std::string> there = Walk(*cursor, "DigerId");
    EXPECT_EQ(there.size(), 7U);
    EXPECT_EQ(there, Texts(cursor->RowsFromStart(10), 8));
    std::vector<std::string> back;
    for (int guard = 0; guard < 20 && cursor->MovePrevious().Ok() && !cursor->Bof(); ++guard)
      back.insert(back.begin(), cursor->Text("DigerId"));
    EXPECT_EQ(back, there);
    const std::vector<GridRow> rows = cursor->RowsFromEnd(10);
    for (std::size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(cursor->PositionOf(rows[i]), static_cast<std::int64_t>(i));
  }
  auto cursor = Opened(*stores, "Karvel.mdb", "Datam");
  ASSERT_TRUE(cursor->FindFirst("DigerId='3'").Ok());
  EXPECT_DOUBLE_EQ(cursor->Number("Tutar"), 2.5);
  EXPECT_TRUE(std::holds_alternative<std::monostate>(cursor->Get("CariKod")));
  EXPECT_EQ(cursor->Text("CariKod"), "");
  ASSERT_TRUE(cursor->Edit().Ok());
  cursor->Set("Aciklama", "x");
  EXPECT_TRUE(cursor->Update().Ok());
}

TEST(DataFolder, another_programs_lock_is_waited_for_and_then_told_as_busy) {
  const SqliteKind kind;
  auto stores = Terminal(kind);
  ASSERT_TRUE(stores->Open(kind.Folder()).Ok());
  sqlite3* foreign = nullptr;
  sqlite3_open(kind.Path("Temp.mdb").c_str(), &foreign);
  ASSERT_EQ(sqlite3_exec(foreign, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_EQ(stores->Begin("posting").Kind(), ErrorKind::Busy);
  EXPECT_FALSE(stores->InAction());
  EXPECT_TRUE(Terminal(kind)->Open(kind.Folder()).Ok()) << "reading goes on";
  sqlite3_close(foreign);
  ASSERT_TRUE(stores->Begin("posting").Ok());
  EXPECT_TRUE(stores->Commit().Ok());
}

TEST(DataFolder, a_reader_that_never_ends_fails_the_commit_as_busy_and_nothing_lands) {
  const SqliteKind kind;
  auto stores = Terminal(kind);
  ASSERT_TRUE(stores->Open(kind.Folder()).Ok());
  sqlite3* foreign = nullptr;
  sqlite3_open(kind.Path("Cari.mdb").c_str(), &foreign);
  ASSERT_EQ(sqlite3_exec(foreign, "BEGIN; SELECT * FROM CariKartlar", nullptr, nullptr, nullptr), SQLITE_OK);
  ASSERT_TRUE(stores->Begin("posting").Ok());
  AddCustomer(*stores, "A", "Ali");
  AddLine(*stores, "A", {2026, 3, 1, 0, 0, 0}, 1);
  EXPECT_EQ(stores->Commit().Kind(), ErrorKind::Busy);
  sqlite3_close(foreign);
  EXPECT_FALSE(Customers(*stores)->HasRows());
  EXPECT_FALSE(Opened(*stores, "Karvel.mdb", "Datam")->HasRows());
  AddCustomer(*stores, "A", "Ali");
  EXPECT_TRUE(Customers(*stores)->HasRows());
}

// Rights don't bind the superuser, so these run as nobody.
class ReadOnly : public ::testing::Test {
 protected:
  ReadOnly() {
    for (const auto& entry : fs::directory_iterator(kind_.Folder())) fs::permissions(entry.path(), fs::perms(0666));
    fs::permissions(kind_.Folder(), fs::perms(0777));
    Stores stores(MakeSqliteEngine(TestOptions(kind_.Folder())));
    EXPECT_TRUE(stores.Open(kind_.Folder()).Ok());
    AddCustomer(stores, "A", "Ali");
    stores.Close();
    fs::permissions(kind_.Path("karvel.lock"), fs::perms(0666));
  }

  bool AsNobody(const std::function<bool(Stores&)>& work) const {
    return InChild([&] {
      if (geteuid() == 0 && seteuid(65534) != 0) return false;
      Stores stores(MakeSqliteEngine(TestOptions(kind_.Folder())));
      return stores.Open(kind_.Folder()).Ok() && work(stores);
    });
  }

  SqliteKind kind_;
};

TEST_F(ReadOnly, a_folder_is_read_and_an_action_on_it_fails_at_its_beginning) {
  fs::remove(kind_.Path("karvel.lock"));
  fs::permissions(kind_.Folder(), fs::perms(0555));
  EXPECT_TRUE(AsNobody([](Stores& stores) {
    auto cursor = Customers(stores);
    const bool read = cursor->Text("Unvan") == "Ali";
    const bool refused = stores.Begin("posting").Kind() == ErrorKind::NoRights && !stores.InAction();
    return read && refused && cursor->Edit().Kind() == ErrorKind::NoRights && !cursor->IsEditing();
  }));
  fs::permissions(kind_.Folder(), fs::perms(0755));
}

TEST_F(ReadOnly, a_file_is_read_and_an_action_that_writes_to_it_is_undone_whole) {
  fs::permissions(kind_.Path("Cari.mdb"), fs::perms(0444));
  EXPECT_TRUE(AsNobody([](Stores& stores) {
    auto lines = Opened(stores, "Karvel.mdb", "Datam");
    auto cursor = Customers(stores);
    Action action(stores, "posting");
    bool well = lines->AddNew().Ok() && lines->Update().Ok();
    well = well && cursor->Edit().Ok();
    cursor->Set("Borc", 5);
    well = well && cursor->Update().Kind() == ErrorKind::NoRights;
    cursor->CancelUpdate();
    well = well && action.Finish().Kind() == ErrorKind::NoRights && !lines->HasRows();
    return well && lines->AddNew().Ok() && lines->Update().Ok() && lines->HasRows();
  }));
}

TEST_F(ReadOnly, a_file_whose_right_is_given_back_is_written_by_the_next_action) {
  fs::permissions(kind_.Path("Cari.mdb"), fs::perms(0444));
  EXPECT_TRUE(AsNobody([this](Stores& stores) {
    auto cursor = Customers(stores);
    const auto books = [&] {
      Action action(stores, "posting");
      const bool begun = cursor->Edit().Ok();
      cursor->Set("Borc", 5);
      const bool written = cursor->Update().Ok();
      cursor->CancelUpdate();
      return action.Finish().Ok() && begun && written;
    };
    if (books() || books()) return false;
    const uid_t nobody = geteuid();
    if (seteuid(getuid()) != 0) return false;
    fs::permissions(kind_.Path("Cari.mdb"), fs::perms(0666));
    if (seteuid(nobody) != 0) return false;
    return books() && Customers(stores)->Number("Borc") == 5;
  }));
}

TEST(DataFolder, a_file_that_is_a_link_is_not_opened_but_a_folder_behind_one_is) {
  const SqliteKind kind;
  const TempFolder elsewhere;
  const std::string link = elsewhere.Path() + "/books";
  std::filesystem::create_directory_symlink(kind.Folder(), link);
  auto stores = Terminal(kind);
  EXPECT_TRUE(stores->Open(link).Ok());
  for (const std::string name : {"Stok.mdb", "Karvel.mdb", "karvel.lock"}) {
    stores->Close();
    std::filesystem::remove(elsewhere.Path() + "/theirs");
    std::filesystem::rename(kind.Path(name), elsewhere.Path() + "/theirs");
    std::filesystem::create_symlink(elsewhere.Path() + "/theirs", kind.Path(name));
    const Status opened = stores->Open(kind.Folder());
    if (name == "karvel.lock") {
      EXPECT_FALSE(stores->Begin("posting").Ok()) << "without a gate nothing is written";
    } else {
      EXPECT_EQ(opened.Kind(), ErrorKind::Damaged) << opened.Message();
      EXPECT_NE(opened.Place().find(name), std::string::npos) << opened.Place();
    }
    std::filesystem::rename(elsewhere.Path() + "/theirs", kind.Path(name));
  }
  EXPECT_TRUE(stores->Open(kind.Folder()).Ok());
}

TEST(DataFolder, the_lock_file_has_the_rights_of_the_books) {
  const SqliteKind kind;
  namespace fs = std::filesystem;
  for (const fs::perms rights : {fs::perms(0600), fs::perms(0660)}) {
    fs::permissions(kind.Path("Karvel.mdb"), rights);
    fs::remove(kind.Path("karvel.lock"));
    auto stores = Terminal(kind);
    ASSERT_TRUE(stores->Open(kind.Folder()).Ok());
    EXPECT_EQ(fs::status(kind.Path("karvel.lock")).permissions(), rights);
  }
}

TEST(DataFolder, a_number_field_that_holds_none_is_named_in_the_log_once) {
  const SqliteKind kind;
  Foreign(kind.Path("Stok.mdb"),
          "INSERT INTO StokKartlar (StokKod, StokAdi, Fiyat) VALUES ('S1', 'Pirinç', 'elli'), ('S2', 'Tuz', 9e999), "
          "('S3', 'Un', ''), ('S4', 'Şeker', NULL)");
  auto stores = Terminal(kind);
  ASSERT_TRUE(stores->Open(kind.Folder()).Ok());
  const LoggedLines log;
  for (int i = 0; i < 2; ++i) EXPECT_EQ(Opened(*stores, "Stok.mdb", "StokKartlar")->RowsFromStart(10).size(), 4U);
  EXPECT_TRUE(log.Holds("StokKartlar, row 1: Fiyat is no number: elli"));
  EXPECT_TRUE(log.Holds("StokKartlar, row 2: Fiyat is no number"));
  EXPECT_EQ(log.Lines().size(), 2U);
}

}  // namespace karvel::testing
