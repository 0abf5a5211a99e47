#include "exchange/card_import.h"

#include "exchange/card_export.h"
#include "exchange/csv_sheet.h"
#include "exchange/import_report.h"
#include "tests/support/books_fixture.h"

namespace karvel {
namespace {

using Texts = std::vector<std::string>;

class CardImportTest : public BooksFixture {
 protected:
  CardImport Bring(const std::string& text, ImportMode mode = ImportMode::Write) {
    const CardSheet sheet = ReadCardSheet(*ReadCsv(text));
    CardImport import;
    EXPECT_TRUE(ImportCards(stores, sheet, mode, import).Ok());
    for (const SheetFault& fault : import.faults) told.push_back(FaultLine(fault, sheet));
    return import;
  }
  // "added changed same faults"
  std::string Counts(const std::string& text, ImportMode mode = ImportMode::Write) {
    const CardImport import = Bring(text, mode);
    return std::to_string(import.added) + " " + std::to_string(import.changed) + " " + std::to_string(import.same) + " " +
           std::to_string(import.faults.size());
  }

  Texts told;
};

TEST_F(CardImportTest, a_new_item_has_what_the_file_tells_and_its_opening_quantity) {
  EXPECT_EQ(Counts("Stok Kodu;Stok Adı;Barkod;Kdv;Birim;Gurup;1.Fiyat;Maliyet;Kar Takibi;Kalan;Yeri\n"
                   "2001;İğde çayı;8690000000012;%10;Kutu;Çaylar;1.250,75;900,50;Evet;12,5;A-3\n"
                   "2002;Borçlu mal;;;;;;2;;-3;"),
            "2 0 0 0");
  const Fields card = Card("2001");
  EXPECT_EQ(card.at("StokAdi"), "İğde çayı");
  EXPECT_EQ(card.at("Barkod"), "8690000000012");
  EXPECT_EQ(card.at("Kdv") + card.at("Birim") + card.at("Fiyat") + card.at("gFiyat"), "10.0Kutu1250.75900.5");
  EXPECT_EQ(card.at("Maliyet") + card.at("StokGizle") + card.at("Yeri"), "1.00A-3");
  EXPECT_EQ(card.at("GirenMik") + "|" + card.at("GirenTutar") + "|" + card.at("KalanB") + "|" + card.at("KalanA"),
            "12.5|11256.25|12.5|0.0");
  const Fields sold = Card("2002");
  EXPECT_EQ(sold.at("CikanMik") + "|" + sold.at("CikanTutar") + "|" + sold.at("KalanB") + "|" + sold.at("KalanA"), "3.0|6.0|0.0|3.0");
  EXPECT_EQ(One("Stok.mdb", "SELECT Grp FROM Gurup WHERE Gurup='Çaylar'"), "1");
}

TEST_F(CardImportTest, a_new_customer_has_what_a_card_made_on_the_desk_has_and_his_opening_balance) {
  EXPECT_EQ(Counts("Cari Kodu;Ünvan;E-Mail;Bakiye;Hesap;Gurup\nY1;Yeni Bir;INFO@X.COM;150,255;;\nY2;Yeni İki;;20;Alacak;Bayi"), "2 0 0 0");
  const Fields card = Customer("Y1");
  EXPECT_EQ(card.at("Unvan") + "|" + card.at("Email") + "|" + card.at("Hes") + "|" + card.at("yeni") + "|" + card.at("Gurup"),
            "Yeni Bir|info@x.com|C|1.0|Müşteri");
  EXPECT_EQ(Balance("Y1"), "150.26|0.0|150.26|Borç");
  EXPECT_EQ(Balance("Y2"), "0.0|20.0|20.0|Alacak");
  EXPECT_EQ(One("Cari.mdb", "SELECT Grp FROM Gurup WHERE Gurup='Bayi'"), "1");
}

TEST_F(CardImportTest, a_yes_keeps_the_figure_that_stands_for_it) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET Maliyet=76.9 WHERE StokKod='1001'");
  EXPECT_EQ(Counts("Stok Kodu;Kar Takibi\n1001;Evet"), "0 0 1 0");
  EXPECT_EQ(Card("1001").at("Maliyet"), "76.9");
  EXPECT_EQ(Counts("Stok Kodu;Kar Takibi\n1001;Hayır"), "0 1 0 0");
  EXPECT_EQ(Card("1001").at("Maliyet"), "0.0");
}

TEST_F(CardImportTest, a_try_counts_and_writes_nothing) {
  const Texts before = AllRows();
  EXPECT_EQ(Counts("Stok Kodu;Stok Adı;1.Fiyat\n2001;Yeni;5\n1001;Pirinç;55\n1003;Tuz;8", ImportMode::Try), "1 1 1 0");
  EXPECT_EQ(AllRows(), before);
  EXPECT_FALSE(stores.InAction());
}

TEST_F(CardImportTest, a_card_that_stands_takes_what_differs_and_an_empty_cell_changes_nothing) {
  EXPECT_EQ(Counts("stok kodu;1.Fiyat;Barkod;Stok Adı\n1001;55,5;;Baldo Pirinç\n1002;20;8691002;Şeker"), "0 1 1 0");
  const Fields card = Card("1001");
  EXPECT_EQ(card.at("Fiyat") + card.at("StokAdi") + card.at("Barkod") + card.at("gFiyat"), "55.5Baldo Pirinç869100140.0");
}

TEST_F(CardImportTest, the_same_file_once_more_changes_nothing_though_goods_and_money_have_moved_since) {
  const std::string items = "Stok Kodu;Stok Adı;1.Fiyat;Kalan;Gurup\n2001;Yeni;5,1;10;Çaylar";
  const std::string customers = "Cari Kodu;Ünvan;E-Mail;Bakiye;Hesap\nY1;Yeni Bir;INFO@X.COM;150;Borç";
  Bring(items);
  Bring(customers);
  Texts before = AllRows();
  EXPECT_EQ(Counts(items) + Counts(customers), "0 0 1 00 0 1 0");
  EXPECT_EQ(AllRows(), before);
  Sql("Stok.mdb", "UPDATE StokKartlar SET CikanMik=4, KalanB=6 WHERE StokKod='2001'");
  before = AllRows();
  const CardImport again = Bring(items);
  EXPECT_EQ(again.same, 1);
  EXPECT_EQ(again.openingsPassed, 1);
  EXPECT_EQ(AllRows(), before);
}

TEST_F(CardImportTest, what_was_exported_comes_in_again_without_a_change_and_makes_the_same_cards_elsewhere) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET Fiyat2=0.1+0.2, KalanA=2, CikanMik=2, StokGizle=1 WHERE StokKod='1003'");
  Sql("Cari.mdb", "UPDATE CariKartlar SET Adres1='No; \"3\"', Bakiye=5, Borc=5, Hesap='Borç' WHERE CariKod='C001'");
  Sql("Cari.mdb", "UPDATE CariKartlar SET Hesap='Borç'");
  for (const CardKind* const kind : {&StockCardKind(), &CustomerCardKind()}) {
    const Texts before = AllRows();
    Sheet sheet;
    ASSERT_TRUE(ExportCards(stores, *kind, sheet).Ok());
    EXPECT_EQ(sheet.rows.size(), 4U) << "three cards, no money account";
    EXPECT_EQ(Counts(WriteCsv(sheet)), "0 0 3 0");
    EXPECT_EQ(AllRows(), before);
    Sql(std::string(kind->file), "DELETE FROM " + std::string(kind->table));
    EXPECT_EQ(Counts(WriteCsv(sheet)), "3 0 0 0");
    Sheet made;
    ASSERT_TRUE(ExportCards(stores, *kind, made).Ok());
    EXPECT_EQ(WriteCsv(made), WriteCsv(sheet));
  }
}

TEST_F(CardImportTest, one_fault_anywhere_and_nothing_is_written_and_every_fault_is_told_in_order) {
  const Texts before = AllRows();
  EXPECT_EQ(Counts("Stok Kodu;Stok Adı;Barkod;1.Fiyat\n"
                   "2001;İyi;1;5\n"
                   "2002;;2;5\n"
                   ";Kodsuz;3;5\n"
                   "2001;Aynı kod;4;5\n"
                   "2004;Fiyat;5;beş\n"
                   "2005;Barkod;8691001;5\n"
                   "2006;Bir;7;5\n"
                   "2007;İki;7;5"),
            "8 0 0 7");
  EXPECT_EQ(AllRows(), before);
  Texts places;
  for (const std::string& line : told) places.push_back(line.substr(0, line.find(':')));
  EXPECT_EQ(places,
            (Texts{"Satır 3, sütun B (Stok Adı)", "Satır 4, sütun A (Stok Kodu)", "Satır 5, sütun A (Stok Kodu)",
                   "Satır 6, sütun D (1.Fiyat)", "Satır 7, sütun C (Barkod)", "Satır 8, sütun C (Barkod)", "Satır 9, sütun C (Barkod)"}));
}

TEST_F(CardImportTest, a_barcode_may_pass_from_one_card_to_another_in_one_file) {
  EXPECT_EQ(Counts("Stok Kodu;Barkod\n1001;8691002\n1002;8691001"), "0 2 0 0");
  EXPECT_EQ(Card("1001").at("Barkod"), "8691002");
}

TEST_F(CardImportTest, doubles_that_were_there_before_stop_no_other_change) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET Barkod='1' WHERE StokKod IN ('1001','1002')");
  EXPECT_EQ(Counts("Stok Kodu;Barkod;1.Fiyat\n1001;1;77\n1002;1;78"), "0 2 0 0");
  EXPECT_EQ(Counts("Stok Kodu;Barkod\n1003;1\n1001;1"), "0 1 1 1");
  EXPECT_TRUE(told[0].starts_with("Satır 2, sütun B")) << told[0];
}

TEST_F(CardImportTest, customers_are_told_apart_as_the_desk_does) {
  AddCustomer("ali", "Ali Kaya", "KartNo='K1'");
  EXPECT_EQ(Counts("Cari Kodu;Ünvan\nALİ;Başka"), "1 0 0 1") << "only the i differs";
  EXPECT_EQ(Counts("Cari Kodu;Ünvan\nX;ALI KAYA"), "1 0 0 1") << "the name of another";
  EXPECT_EQ(Counts("Cari Kodu;Ünvan;Kart No\nX;Başka;k1"), "1 0 0 1") << "the card of another";
  EXPECT_EQ(Counts("Cari Kodu;Ünvan\nX;Ya*\nY?;Başka"), "2 0 0 2") << "signs of a pattern";
  EXPECT_EQ(Counts("Cari Kodu;Ünvan\n=100;Kasa"), "0 1 0 1") << "the shop's own account";
  EXPECT_EQ(Counts("Cari Kodu;Ünvan;Gurup\nX;Başka;WinKarvel3"), "1 0 0 1");
  EXPECT_EQ(Counts("Cari Kodu;Ünvan\nALI;Ali Kaya\nX;Başka"), "1 0 1 0");
}

TEST_F(CardImportTest, a_full_disk_writes_no_card) {
  const CardSheet sheet = ReadCardSheet(*ReadCsv("Stok Kodu;Stok Adı;Gurup\n2001;Yeni;Çaylar\n1001;Başka;"));
  for (int before = 0; before < 3; ++before) {
    engine = {};
    engine.writeFault = {ErrorKind::DiskFull, "full"};
    engine.writesBeforeFault = before;
    CardImport import;
    EXPECT_EQ(ImportCards(stores, sheet, ImportMode::Write, import).Kind(), ErrorKind::DiskFull);
    engine = {};
    EXPECT_EQ(One("Stok.mdb", "SELECT count(*) FROM StokKartlar WHERE StokKod='2001' OR StokAdi='Başka'"), "0");
  }
  CardImport import;
  EXPECT_TRUE(ImportCards(stores, sheet, ImportMode::Write, import).Ok());
  EXPECT_EQ(Card("1001").at("StokAdi"), "Başka");
}

TEST_F(CardImportTest, the_report_tells_what_came_and_what_would_come) {
  const CardSheet sheet = ReadCardSheet(*ReadCsv("Stok Kodu;Stok Adı\n2001;Yeni\n1001;Başka\n1003;Tuz"));
  CardImport import;
  ASSERT_TRUE(ImportCards(stores, sheet, ImportMode::Try, import).Ok());
  EXPECT_EQ(
      ImportReport(import, sheet, ImportMode::Try),
      "1 yeni stok kartı yazılacak, 1 kart değişecek, 1 kart aynı.\nBu bir denemeydi, hiçbir şey yazılmadı. Yazmak için sonuna --write "
      "ekleyin.\n");
  EXPECT_EQ(ImportReport(import, sheet, ImportMode::Write), "1 yeni stok kartı yazıldı, 1 kart değişti, 1 kart aynı.\n");
}

}  // namespace
}  // namespace karvel
