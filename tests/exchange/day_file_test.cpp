#include "exchange/day_file.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <random>

#include "tests/support/accounts_fixture.h"
#include "tests/support/memory_files.h"

namespace karvel {
namespace {

using Words = std::vector<std::string>;

TEST(DayFileName, is_the_terminal_and_the_document) {
  EXPECT_EQ(DayFileName("Velmora Karvel1", "000123"), "01000123.csv");
  EXPECT_EQ(DayFileName("Velmora Karvel12", "000123"), "12000123.csv");
  EXPECT_EQ(DayFileName("Velmora Karvel", "000123"), "00000123.csv");
  EXPECT_EQ(DayFileName("Velmora KarvelB", "000123"), "b000123.csv");
  EXPECT_EQ(DayFileName("Velmora Karvel1", ""), "01.csv");
}

TEST(DelimitedRecord, writes_each_kind_of_item_as_any_language_reads_it) {
  const Row items{
      std::string("Ağaç, 5\" boy"), DateTime{2026, 3, 1, 9, 5, 0}, -1234.5, true, false, std::monostate(), std::string(), DateTime()};
  EXPECT_EQ(DelimitedRecord(items), "\"Ağaç, 5\"\" boy\",#2026-03-01 09:05:00#,-1234.5,#TRUE#,#FALSE#,#NULL#,\"\",#NULL#\r\n");
}

// The files of a desk that is killed at one of its steps: before the step or right behind it.
class KillingFiles final : public Files {
 public:
  KillingFiles(Files& inner, int dieAt) : inner_(inner), dieAt_(dieAt) {}
  [[nodiscard]] std::string RealPath(const std::string& path) const override { return inner_.RealPath(path); }
  [[nodiscard]] std::string ProgramFolder() const override { return inner_.ProgramFolder(); }
  [[nodiscard]] std::string HomeFolder() const override { return inner_.HomeFolder(); }
  [[nodiscard]] bool Exists(const std::string& path) const override { return inner_.Exists(path); }
  [[nodiscard]] bool IsFolder(const std::string& path) const override { return inner_.IsFolder(path); }
  Status MakeFolder(const std::string& path) override { return inner_.MakeFolder(path); }
  Status Read(const std::string& path, std::string& bytes) const override { return inner_.Read(path, bytes); }
  Status Write(const std::string& path, const std::string& bytes) override {
    return Step([&] { return inner_.Write(path, bytes); });
  }
  Status Copy(const std::string& from, const std::string& to) override { return inner_.Copy(from, to); }
  Status CopyNew(const std::string& from, const std::string& to) override { return inner_.CopyNew(from, to); }
  Status Move(const std::string& from, const std::string& to) override {
    return Step([&] { return inner_.Move(from, to); });
  }
  Status Delete(const std::string& path) override {
    return Step([&] { return inner_.Delete(path); });
  }
  [[nodiscard]] std::vector<std::string> List(const std::string& folder) const override { return inner_.List(folder); }
  [[nodiscard]] std::vector<std::string> Drives() const override { return inner_.Drives(); }
  [[nodiscard]] std::optional<std::uint64_t> Room(const std::string& path) const override { return inner_.Room(path); }

 private:
  template <typename Work>
  Status Step(const Work& work) {
    if (steps_++ == dieAt_) _exit(7);
    Status done = work();
    if (steps_++ == dieAt_) _exit(7);
    return done;
  }
  Files& inner_;
  const int dieAt_;
  int steps_ = 0;
};

class DayFileTest : public AccountsFixture {
 protected:
  void AddLine(const std::string& item, const std::string& more, const std::string& date, const std::string& sent = "") {
    Sql("Karvel.mdb", "INSERT INTO Datam(CariKod,StokKod,CariAd,StokAd,Tarih,Birim,SeriNo,Sube,Fiyat,Miktar,Tutar,Durum) VALUES('C001','" +
                          item + "','Ayşe Yılmaz','x','" + date + "','Adet','000007','" + sent + "'," + more + ")");
  }
  Outcome<std::string> Lay(Files& into) {
    return LayDayFile(desk->Parts().shop, into,
                      {"01000007.csv", "C001", "Select * From Datam Where CariKod='C001' And SeriNo='000007' Order By Tarih Asc"});
  }
  std::string Bytes(const std::string& name = "01000007.csv") {
    std::string bytes = "none";
    files.Read("C:\\" + name, bytes).Ignore();
    return bytes;
  }
  // What lies in the root of C: beside the data.
  Words Root() {
    Words names = files.List("C:\\");
    std::erase(names, "KarvelData");
    return names;
  }
  Words Marks() { return Rows("Karvel.mdb", "SELECT Sube FROM Datam ORDER BY rowid"); }
};

TEST_F(DayFileTest, holds_every_line_of_any_state_byte_for_byte) {
  AddLine("1002", "12.5,2.25,28.13,'Satış'", "2026-03-01 10:00:00");
  AddLine("1001", "50,1,50,'Iptal'", "2026-03-01 09:00:00");
  AddLine("Şğı\"1", "-0.5,1000000,-500000,'İade'", "2026-03-01 11:00:00");
  AddLine("", "0,0,0,'Nakit'", "2026-03-01 12:00:00");
  ASSERT_EQ(Lay(files).value_or("failed"), "01000007.csv");
  EXPECT_EQ(Bytes(),
            "\"C001\",#2026-03-01 10:15:00#\r\n"
            "\"1001\",\"1\",\"50\",\"50\"\r\n"
            "\"1002\",\"2,25\",\"12,5\",\"28,13\"\r\n"
            "\"\xDE\xF0\xFD\"\"1\",\"1000000\",\"-0,5\",\"-500000\"\r\n"
            "\"\",\"0\",\"0\",\"0\"\r\n");
  EXPECT_EQ(Marks(), (Words{"x", "x", "x", "x"}));
  EXPECT_EQ(Root(), Words{"01000007.csv"});
}

TEST_F(DayFileTest, new_lines_beside_old_send_all_of_them_over_the_older_file) {
  AddLine("1001", "50,1,50,'Satış'", "2026-03-01 09:00:00");
  ASSERT_TRUE(Lay(files));
  AddLine("1002", "20,1,20,'Satış'", "2026-03-01 09:30:00");
  ASSERT_TRUE(Lay(files));
  EXPECT_EQ(Bytes(), "\"C001\",#2026-03-01 10:15:00#\r\n\"1001\",\"1\",\"50\",\"50\"\r\n\"1002\",\"1\",\"20\",\"20\"\r\n");
  EXPECT_EQ(Marks(), (Words{"x", "x"}));
}

TEST_F(DayFileTest, an_unsent_file_of_another_document_under_the_same_name_is_kept_beside) {
  const auto lay = [&](const std::string& customer, const std::string& item) {
    return LayDayFile(desk->Parts().shop, files, {"01.csv", customer, "Select * From Datam Where StokKod='" + item + "'"})
        .value_or("failed");
  };
  AddLine("1001", "50,1,50,'Satış'", "2026-03-01 09:00:00");
  ASSERT_EQ(lay("C001", "1001"), "01.csv");
  const std::string first = Bytes("01.csv");
  AddLine("1002", "20,1,20,'Satış'", "2026-03-01 09:30:00");
  ASSERT_EQ(lay("C002", "1002"), "01.csv");
  const std::string second = Bytes("01.csv");
  AddLine("1003", "5,1,5,'Satış'", "2026-03-01 09:40:00");
  ASSERT_EQ(lay("C002", "1003"), "01.csv");
  EXPECT_EQ(Root(), (Words{"01-2.csv", "01-3.csv", "01.csv"}));
  EXPECT_EQ(Bytes("01-2.csv"), first);
  EXPECT_EQ(Bytes("01-3.csv"), second);
  EXPECT_NE(Bytes("01.csv").find("1003"), std::string::npos);
}

TEST_F(DayFileTest, a_file_that_the_new_one_holds_too_gives_way_also_without_a_number) {
  const auto lay = [&] {
    return LayDayFile(desk->Parts().shop, files, {"01.csv", "C001", "Select * From Datam Order By Tarih Asc"}).value_or("failed");
  };
  AddLine("1001", "50,1,50,'Satış'", "2026-03-01 09:00:00");
  ASSERT_EQ(lay(), "01.csv");
  AddLine("1002", "20,1,20,'Satış'", "2026-03-01 09:30:00");
  ASSERT_EQ(lay(), "01.csv");
  EXPECT_EQ(Root(), Words{"01.csv"});
}

TEST_F(DayFileTest, a_numbered_file_of_another_customer_is_kept_beside) {
  AddLine("1001", "50,1,50,'Satış'", "2026-03-01 09:00:00");
  files.Write("C:\\01000007.csv", "\"C009\",#2026-02-01 10:15:00#\r\n\"1\",\"1\",\"1\",\"1\"\r\n").Ignore();
  ASSERT_TRUE(Lay(files));
  EXPECT_EQ(Root(), (Words{"01000007-2.csv", "01000007.csv"}));
}

TEST_F(DayFileTest, lines_that_have_gone_meanwhile_or_are_none_make_no_file) {
  EXPECT_EQ(Lay(files).error().Kind(), ErrorKind::NoRecord);
  AddLine("1001", "50,1,50,'Satış'", "2026-03-01 09:00:00");
  AddLine("1002", "20,1,20,'Satış'", "2026-03-01 09:30:00", "x");
  EXPECT_EQ(Lay(files).error().Kind(), ErrorKind::NoRecord);
  EXPECT_EQ(Root(), Words{});
  EXPECT_EQ(Marks(), (Words{"", "x"}));
  EXPECT_FALSE(stores->InAction());
}

TEST_F(DayFileTest, however_many_lines_there_are_they_are_read_once) {
  constexpr int kLines = 700;
  for (int i = 0; i < kLines; ++i) AddLine(std::to_string(1000 + i), "50,1,50,'Satış'", "2026-03-01 09:00:00");
  engine = {};
  ASSERT_TRUE(Lay(files));
  EXPECT_LE(engine.AllReads(), 5);
  EXPECT_EQ(engine.writes, kLines);
  EXPECT_EQ(engine.commits, 1);
  EXPECT_EQ(Marks(), Words(kLines, "x"));
  EXPECT_EQ(std::ranges::count(Bytes(), '\n'), kLines + 1);
}

TEST_F(DayFileTest, a_number_that_names_a_folder_makes_no_file) {
  AddLine("1001", "50,1,50,'Satış'", "2026-03-01 09:00:00");
  const auto laid = LayDayFile(desk->Parts().shop, files, {"01A\\1.csv", "C001", "Datam"});
  EXPECT_EQ(laid.error().Kind(), ErrorKind::BadText);
  EXPECT_EQ(Marks(), Words{""});
}

TEST_F(DayFileTest, what_the_stores_refuse_leaves_neither_file_nor_mark) {
  AddLine("1001", "50,1,50,'Satış'", "2026-03-01 09:00:00");
  for (Status* const fault : {&engine.writeFault, &engine.commitFault, &engine.readFault}) {
    *fault = {ErrorKind::DiskFull, "no room"};
    const auto laid = Lay(files);
    *fault = {};
    ASSERT_FALSE(laid);
    EXPECT_EQ(laid.error().Kind(), ErrorKind::DiskFull);
    EXPECT_EQ(Root(), Words{});
    EXPECT_EQ(Marks(), Words{""});
  }
}

TEST_F(DayFileTest, a_drive_that_takes_no_file_leaves_no_mark) {
  AddLine("1001", "50,1,50,'Satış'", "2026-03-01 09:00:00");
  MemoryFiles full;
  full.FailWrites({ErrorKind::DiskFull, "no room"});
  const auto laid = Lay(full);
  ASSERT_FALSE(laid);
  EXPECT_EQ(laid.error().Kind(), ErrorKind::DiskFull);
  EXPECT_EQ(Marks(), Words{""});
}

TEST_F(DayFileTest, an_outcome_that_was_unknown_finds_its_file_when_the_marks_stand) {
  AddLine("1001", "50,1,50,'Satış'", "2026-03-01 09:00:00");
  engine.commitFault = {ErrorKind::Unknown, "silent disk"};
  const auto laid = Lay(files);
  engine.commitFault = {};
  ASSERT_FALSE(laid);
  EXPECT_EQ(laid.error().ifItStands.value_or(""), "01000007.csv");
  ASSERT_EQ(Root().size(), 1U);
  EXPECT_EQ(Bytes(), "none");
  Sql("Karvel.mdb", "UPDATE Datam SET Sube='x'");  // the commit stands
  ASSERT_TRUE(Start());
  EXPECT_EQ(Root(), Words{"01000007.csv"});
}

TEST_F(DayFileTest, a_file_whose_line_is_gone_is_kept) {
  Sql("Karvel.mdb", "DELETE FROM Datam");
  ASSERT_TRUE(files.Write("C:\\01000007.csv.45.bekliyor", "rows").Ok());
  ASSERT_TRUE(PlaceDayFiles(desk->Parts().shop, files).status.Ok());
  EXPECT_EQ(Bytes(), "rows");
}

TEST_F(DayFileTest, where_a_folder_has_the_name_no_line_is_marked) {
  AddLine("1001", "50,1,50,'Satış'", "2026-03-01 09:00:00");
  ASSERT_TRUE(files.MakeFolder("C:\\01000007.csv").Ok());
  EXPECT_FALSE(Lay(files));
  EXPECT_EQ(Root(), Words{"01000007.csv"});
  EXPECT_EQ(Marks(), Words{""});
}

TEST_F(DayFileTest, a_file_that_waits_for_its_place_hinders_no_other_and_takes_it_when_it_is_free) {
  AddLine("1001", "50,1,50,'Satış'", "2026-03-01 09:00:00");
  ASSERT_TRUE(files.MakeFolder("C:\\01000006.csv").Ok());
  ASSERT_TRUE(files.Write("C:\\01000006.csv.4500.bekliyor", "rows").Ok());
  ASSERT_TRUE(Lay(files));
  EXPECT_EQ(Root(), (Words{"01000006.csv", "01000006.csv.4500.bekliyor", "01000007.csv"}));
  PlacedDayFiles left = PlaceDayFiles(desk->Parts().shop, files);
  EXPECT_EQ(left.waiting, "01000006.csv");
  EXPECT_FALSE(left.status.Ok());
  ASSERT_TRUE(files.Delete("C:\\01000006.csv").Ok());
  left = PlaceDayFiles(desk->Parts().shop, files);
  EXPECT_EQ(left.placed, Words{"01000006.csv"});
  EXPECT_TRUE(left.status.Ok());
  EXPECT_EQ(Bytes("01000006.csv"), "rows");
}

TEST_F(DayFileTest, one_that_waits_for_the_same_name_is_never_passed) {
  AddLine("1001", "50,1,50,'Satış'", "2026-03-01 09:00:00");
  MemoryFiles broken;
  broken.Put("C:\\01000007.csv.4500.bekliyor", "rows");
  broken.FailRead("C:\\01000007.csv", {ErrorKind::DiskFailed, "no page"});
  EXPECT_EQ(Lay(broken).error().Kind(), ErrorKind::DiskFailed);
  EXPECT_EQ(Marks(), Words{""});
  EXPECT_EQ(broken.Bytes("C:\\01000007.csv.4500.bekliyor"), "rows");
}

TEST_F(DayFileTest, other_files_of_the_drive_stay) {
  for (const char* const name : {"notlar.bekliyor", ".45.bekliyor", "01.csv.4x.bekliyor", "01.csv"})
    ASSERT_TRUE(files.Write(std::string("C:\\") + name, "mine").Ok());
  const Words before = Root();
  ASSERT_TRUE(PlaceDayFiles(desk->Parts().shop, files).status.Ok());
  EXPECT_EQ(Root(), before);
}

TEST_F(DayFileTest, a_desk_killed_at_any_step_leaves_file_and_marks_together_or_none_of_both) {
  const std::string older = "\"C001\",#2026-03-01 09:00:00#\r\n";  // of the same document
  AddLine("1001", "50,1,50,'Satış'", "2026-03-01 09:00:00");
  AddLine("1002", "20,1,20,'Satış'", "2026-03-01 09:30:00");
  ASSERT_TRUE(files.Write("C:\\01000007.csv", older).Ok());
  int kills = 0, sent = 0;
  for (int step = 0;; ++step) {
    Sql("Karvel.mdb", "UPDATE Datam SET Sube=''");
    ASSERT_TRUE(files.Write("C:\\01000007.csv", older).Ok());
    Stop();
    const pid_t child = fork();
    if (child == 0) {
      KillingFiles killing(files, step);
      _exit(Start() && Lay(killing) ? 0 : 1);
    }
    int outcome = 0;
    ASSERT_EQ(waitpid(child, &outcome, 0), child);
    ASSERT_TRUE(WIFEXITED(outcome) && WEXITSTATUS(outcome) != 1) << "step " << step;
    ASSERT_TRUE(Start());
    const bool marked = Marks() == Words{"x", "x"};
    ASSERT_TRUE(marked || Marks() == (Words{"", ""})) << "step " << step;
    EXPECT_EQ(Root(), Words{"01000007.csv"}) << "step " << step;
    EXPECT_EQ(Bytes() != older, marked) << "step " << step;
    if (marked) ++sent;
    if (WEXITSTATUS(outcome) == 0) break;
    ++kills;
  }
  EXPECT_GE(kills, 4);
  EXPECT_GE(sent, 2);
}

// KARVEL_KILLS sets how often; the usual run is short.
TEST_F(DayFileTest, a_desk_killed_at_any_moment_leaves_file_and_marks_together_or_none_of_both) {
  AddLine("1001", "50,1,50,'Satış'", "2026-03-01 09:00:00");
  AddLine("1002", "20,1,20,'Satış'", "2026-03-01 09:30:00");
  const char* const wanted = getenv("KARVEL_KILLS");
  const int kills = wanted != nullptr ? std::atoi(wanted) : 20;
  std::mt19937 random(20260301);
  for (int kill = 0; kill < kills; ++kill) {
    Sql("Karvel.mdb", "UPDATE Datam SET Sube=''");
    files.Delete("C:\\01000007.csv").Ignore();
    Stop();
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
      if (!Start() || write(ready[1], "1", 1) != 1) _exit(1);
      if (!Lay(files)) _exit(1);
      pause();
    }
    close(ready[1]);
    char sign = 0;
    ASSERT_EQ(read(ready[0], &sign, 1), 1);
    close(ready[0]);
    usleep(std::uniform_int_distribution<useconds_t>(0, 6'000)(random));
    ::kill(child, SIGKILL);
    int outcome = 0;
    ASSERT_EQ(waitpid(child, &outcome, 0), child);
    ASSERT_TRUE(WIFSIGNALED(outcome));
    ASSERT_TRUE(Start());
    const bool marked = Marks() == Words{"x", "x"};
    ASSERT_TRUE(marked || Marks() == (Words{"", ""})) << "kill " << kill;
    EXPECT_EQ(Root(), marked ? Words{"01000007.csv"} : Words{}) << "kill " << kill;
  }
}

}  // namespace
}  // namespace karvel
