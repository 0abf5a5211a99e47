#include "documents/collection_slip.h"

#include "tests/support/accounts_fixture.h"
#include "tests/support/drawn_texts.h"

namespace karvel {
namespace {

using Words = std::vector<std::string>;

// A letter is 16 wide, a column of nine zeros 144; the table lies from 60 to 1540, its names end at 1108.
class CollectionSlipTest : public ::testing::Test {
 protected:
  CollectionSlipTest() {
    style.companyLines = {"Velmora", "", "", "8", "", "Mali Değeri Yoktur."};
    style.amountFormat = "Standard";
    slip.customerName = "Ayşe Yılmaz";
    slip.now = {2026, 3, 1, 10, 15, 7};
  }
  Drawing Draw() { return DrawCollectionSlip(measures, {"MS Sans Serif", 8}, style, slip); }

  RecordingPrinter printer;
  PrinterMeasures measures{printer, ScaleMode::Pixels};
  PrintStyle style;
  CollectionSlip slip;
};

TEST_F(CollectionSlipTest, all_texts_in_their_order) {
  slip.balance = 40;
  slip.paid = {.cash = 10, .card = 20, .cheques = 30, .notes = 40};
  style.feedLines = 1;
  EXPECT_EQ(WordsOf(Draw()), (Words{"Velmora",
                                    "Ayşe Yılmaz",
                                    "Tarih : 01.03.2026 <> 01.03.2026 10:15:07",
                                    "Nakit Tahsilat",
                                    "10,00",
                                    "K.Kart Tahsilat",
                                    "20,00",
                                    "Çek Tahsilat",
                                    "30,00",
                                    "Senet Tahsilat",
                                    "40,00",
                                    "Toplam",
                                    "100,00",
                                    "Borç",
                                    "140,00",
                                    "Tahsilat",
                                    "100,00",
                                    "Kalan Borç",
                                    "40,00",
                                    "."}));
}

TEST_F(CollectionSlipTest, means_that_brought_nothing_have_no_line) {
  slip.paid = {.card = 20, .notes = 5};
  EXPECT_EQ(WordsFrom(Draw(), "K.Kart Tahsilat"), (Words{"K.Kart Tahsilat", "20,00", "Senet Tahsilat", "5,00", "Toplam", "25,00", "Borç",
                                                         "25,00", "Tahsilat", "25,00", "Kalan Borç", "0,00"}));
}

TEST_F(CollectionSlipTest, without_a_payment_the_sums_are_nothing) {
  slip.balance = 0;
  EXPECT_EQ(WordsFrom(Draw(), "Toplam"), (Words{"Toplam", "0,00", "Alacak", "0,00", "Tahsilat", "0,00", "Kalan Borç", "0,00"}));
}

TEST_F(CollectionSlipTest, where_everything_stands) {
  slip.paid = {.cash = 10};
  const Drawing drawing = Draw();
  EXPECT_EQ(TextIn(drawing, "Velmora").y, 32);  // behind an empty line
  EXPECT_EQ(TextIn(drawing, "Ayşe Yılmaz").font.size, 10);
  EXPECT_TRUE(TextIn(drawing, "Ayşe Yılmaz").font.bold);
  EXPECT_EQ(TextIn(drawing, "Nakit Tahsilat").x, 60);
  EXPECT_EQ(EndOf(TextIn(drawing, "10,00")), 1540);
  EXPECT_EQ(EndOf(TextIn(drawing, "Toplam")), 1108);
  const auto rules = RulesOf(drawing);
  ASSERT_EQ(rules.size(), 2U);
  EXPECT_EQ(rules[0].y1, TextIn(drawing, "Tarih : 01.03.2026 <> 01.03.2026 10:15:07").y + 32 + 30);
  EXPECT_EQ(TextIn(drawing, "Nakit Tahsilat").y, rules[0].y1 + 30);
  EXPECT_EQ(rules[1].y1, TextIn(drawing, "Nakit Tahsilat").y + 32);
  EXPECT_EQ(TextIn(drawing, "Toplam").y, rules[1].y1 + 30);
  EXPECT_EQ(TextIn(drawing, "Tahsilat").y, TextIn(drawing, "Toplam").y + 3 * 32);
}

class CollectionSlipPrintingTest : public AccountsFixture {};

TEST_F(CollectionSlipPrintingTest, two_collections_of_a_day_stand_together_and_cancelled_ones_not) {
  Pay("Ayşe Yılmaz", "10");
  Pay("Ayşe Yılmaz", "15");
  Pay("Burak Demir", "99");
  Sql("Karvel.mdb",
      "INSERT INTO Datam(CariKod,StokAd,Tahsilat,Tarih,Durum) VALUES('C001','Nakit Tahsilat',1000,'2026-03-01 10:00:00','Iptal'),"
      "('C001','Nakit Tahsilat',2000,'2026-02-28 10:00:00','Nakit')");
  Front("C001");
  const auto before = Rows("Karvel.mdb", "SELECT * FROM Datam ORDER BY rowid");
  Click("TahsilatCmd");
  ASSERT_EQ(printer.jobs.size(), 1U);
  const auto lines = printer.jobs[0].Lines();
  const auto cash = std::find(lines.begin(), lines.end(), "Nakit Tahsilat");
  ASSERT_NE(cash, lines.end());
  EXPECT_EQ(*(cash + 1), "25,00");
  EXPECT_EQ(printer.jobs[0].end, "EndDoc");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT * FROM Datam ORDER BY rowid"), before);
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C001' Order By Tarih Desc");
}

TEST_F(CollectionSlipPrintingTest, a_balance_that_cannot_be_read_stands_on_no_paper) {
  Pay("Ayşe Yılmaz", "10");
  Front("C001");
  Sql("Cari.mdb", "UPDATE CariKartlar SET Bakiye=77 WHERE CariKod='C001'");
  for (int reads = 0; reads < 40; ++reads) {
    engine.readsBeforeFault = reads;
    engine.readFault = {ErrorKind::Busy, "kept"};
    Click("TahsilatCmd");
    engine.readFault = {};
  }
  ASSERT_FALSE(printer.jobs.empty());
  for (const auto& job : printer.jobs) {
    const auto lines = job.Lines();
    EXPECT_EQ(lines.back(), "77,00");
  }
}

TEST_F(CollectionSlipPrintingTest, a_refused_one_is_thrown_away) {
  Front("C001");
  printer.fault = {ErrorKind::Other, "off"};
  Click("TahsilatCmd");
  EXPECT_EQ(printer.jobs.back().end, "KillDoc");
  EXPECT_TRUE(At("Frame3").Enabled());
}

}  // namespace
}  // namespace karvel
