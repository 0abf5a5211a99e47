// Every record source, sum and delete that the desk writes, in the spelling in which it writes it.
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "store/dialect/dialect.h"

namespace karvel::dialect {
namespace {

struct Written {
  const char* file;
  const char* text;
  const char* printed;
};

void PrintTo(const Written& written, std::ostream* out) {
  *out << written.text;
}

class DeskStatement : public testing::TestWithParam<Written> {};

TEST_P(DeskStatement, is_read_as_meant) {
  const Written& written = GetParam();
  const DatabaseFile* file = Catalogue::File(written.file);
  ASSERT_NE(file, nullptr);
  Statement statement;
  const Status status = ParseStatement(written.text, *file, statement);
  ASSERT_TRUE(status.Ok()) << status.Message();
  EXPECT_EQ(Print(statement), written.printed);
  EXPECT_EQ(statement.file, file);

  Statement again;
  ASSERT_TRUE(ParseStatement(Print(statement), *file, again).Ok());
  EXPECT_EQ(Print(again), written.printed);
}

INSTANTIATE_TEST_SUITE_P(
    BareTables, DeskStatement,
    testing::Values(Written{"Cari.Mdb", "CariKartlar", "Select * From CariKartlar"},
                    Written{"Cari.Mdb", "CariHareket", "Select * From CariHareket"}, Written{"Cari.Mdb", "Cari", "Select * From Cari"},
                    Written{"Cari.Mdb", "Gurup", "Select * From Gurup"}, Written{"Cari.Mdb", "VadeGün", "Select * From VadeGün"},
                    Written{"Cari.Mdb", "[vadegün];", "Select * From VadeGün"},
                    Written{"Stok.Mdb", "StokHareket", "Select * From StokHareket"}, Written{"Stok.Mdb", "Gurup", "Select * From Gurup"},
                    Written{"Karvel.Mdb", "Datam", "Select * From Datam"}, Written{"Index.Mdb", "Tarih", "Select * From Tarih"},
                    Written{"Index.Mdb", "Mdbindex", "Select * From Mdbindex"}, Written{"SeriNo.Mdb", "Serino", "Select * From SeriNo"},
                    Written{"Fatura.Mdb", "Faturalar", "Select * From Faturalar"},
                    Written{"Fatura.Mdb", "GirenCikan", "Select * From GirenCikan"},
                    Written{"Temp.mdb", "CariHareket", "Select * From CariHareket"},
                    Written{"Stok.Mdb", "  STOKKARTLAR ; ", "Select * From StokKartlar"}));

INSTANTIATE_TEST_SUITE_P(
    CustomerLists, DeskStatement,
    testing::Values(
        Written{
            "Cari.Mdb",
            "Select * From CariKartlar Where HesKullan=False And Gurup<>'Toptan' And LCase(Gurup)<>'plasiyer' And Left(CariKod,1)<>'=' And "
            "CariKod<>'Merkez' Order By Unvan Asc",
            "Select * From CariKartlar Where HesKullan = False And Gurup <> 'Toptan' And LCase(Gurup) <> 'plasiyer' And Left(CariKod, 1) "
            "<> "
            "'=' And CariKod <> 'Merkez' Order By Unvan Asc"},
        Written{"Cari.Mdb", "Select * From CariKartlar Where HesKullan=False And Gurup='Müşteri' Order By Unvan Asc",
                "Select * From CariKartlar Where HesKullan = False And Gurup = 'Müşteri' Order By Unvan Asc"},
        Written{"Cari.Mdb", "Select * From CariKartlar Where HesKullan=False Order By Unvan Asc",
                "Select * From CariKartlar Where HesKullan = False Order By Unvan Asc"},
        Written{
            "Cari.Mdb",
            "Select * From CariKartlar Where HesKullan=False And lcase(Gurup)<>'plasiyer' And Left(CariKod,1)<>'=' And CariKod<>'Merkez' "
            "Order By Unvan Asc",
            "Select * From CariKartlar Where HesKullan = False And LCase(Gurup) <> 'plasiyer' And Left(CariKod, 1) <> '=' And CariKod <> "
            "'Merkez' Order By Unvan Asc"},
        Written{
            "Cari.Mdb",
            "Select * From CariKartlar Where HesKullan=False And Gurup<>'Toptan' And LCase(Gurup)<>'plasiyer' And Left(CariKod,1)<>'=' And "
            "CariKod<>'Merkez' And Unvan Like 'al?*' And Gurup='Müşteri' Order By Unvan Asc",
            "Select * From CariKartlar Where HesKullan = False And Gurup <> 'Toptan' And LCase(Gurup) <> 'plasiyer' And Left(CariKod, 1) "
            "<> "
            "'=' And CariKod <> 'Merkez' And Unvan Like 'al?*' And Gurup = 'Müşteri' Order By Unvan Asc"},
        Written{"Cari.Mdb",
                "Select * From CariKartlar Where HesKullan=False And Gurup<>'Toptan' And Left(CariKod,1)<>'=' Order By Unvan Asc",
                "Select * From CariKartlar Where HesKullan = False And Gurup <> 'Toptan' And Left(CariKod, 1) <> '=' Order By Unvan Asc"},
        Written{"Cari.Mdb", "Select * From CariHareket Where CariHarKod='O''Neil' Order By Tarih Desc",
                "Select * From CariHareket Where cariharkod = 'O''Neil' Order By Tarih Desc"},
        Written{"Cari.Mdb",
                "Select * From CariHareket Where CariHarkod='M1' And Borc<>0 And Tarih>=#03/01/2026 00:00:00# Order By Tarih Asc",
                "Select * From CariHareket Where cariharkod = 'M1' And Borc <> 0 And Tarih >= #03/01/2026# Order By Tarih Asc"},
        Written{"Cari.Mdb", "Select * From CariHareket Where CariHarkod='M1' And Tarih<#03/01/2026 00:00:00# Order By Tarih Asc",
                "Select * From CariHareket Where cariharkod = 'M1' And Tarih < #03/01/2026# Order By Tarih Asc"},
        Written{"Cari.Mdb", "Select * From CariHareket Where DigerId='26000012'", "Select * From CariHareket Where DigerId = '26000012'"},
        Written{"Cari.Mdb", "Select * From VadeGün Where CariKod='M1' Order By VadeTarih Asc",
                "Select * From VadeGün Where CariKod = 'M1' Order By VadeTarih Asc"},
        Written{"Cari.Mdb", "Select * From Gurup Where Grp=True Order By Gurup Asc",
                "Select * From Gurup Where Grp = True Order By Gurup Asc"}));

INSTANTIATE_TEST_SUITE_P(
    StockLists, DeskStatement,
    testing::Values(Written{"Stok.Mdb", "Select * From StokKartlar Where StokGizle=False Order By StokAdi ASC",
                            "Select * From StokKartlar Where StokGizle = False Order By StokAdi Asc"},
                    Written{"Stok.Mdb", "Select * From StokKartlar Where StokGizle=False And StokAdi Like 'Çay*' Order By StokAdi ASC",
                            "Select * From StokKartlar Where StokGizle = False And StokAdi Like 'Çay*' Order By StokAdi Asc"},
                    Written{"Stok.Mdb", "Select * From StokKartlar Where StokGizle=False And Gurup='İçecek' Order By StokAdi Asc",
                            "Select * From StokKartlar Where StokGizle = False And Gurup = 'İçecek' Order By StokAdi Asc"},
                    Written{"Stok.Mdb",
                            "Select * From StokKartlar Where StokGizle=False  And Gurup='İçecek' And KalanB<>0 Order By StokAdi ASC",
                            "Select * From StokKartlar Where StokGizle = False And Gurup = 'İçecek' And KalanB <> 0 Order By StokAdi Asc"},
                    Written{"Stok.Mdb", "Select * From StokHareket Where Carisi='M1' Order By Tarih Desc",
                            "Select * From StokHareket Where Carisi = 'M1' Order By Tarih Desc"},
                    Written{"Stok.Mdb", "Select * From StokHareket Where Carisi='M1'", "Select * From StokHareket Where Carisi = 'M1'"}));

INSTANTIATE_TEST_SUITE_P(
    DayBook, DeskStatement,
    testing::Values(
        Written{"Karvel.Mdb", "Select * From Datam Where CariKod='M1' Order By Tarih Desc",
                "Select * From Datam Where CariKod = 'M1' Order By Tarih Desc"},
        Written{"Karvel.Mdb", "Select * From Datam Where Durum='Iptal' Order By Tarih Desc",
                "Select * From Datam Where Durum = 'Iptal' Order By Tarih Desc"},
        Written{
            "Karvel.Mdb",
            "Select * From Datam Where CariKod='M1' And SeriNo<>'' And Tarih>=#03/01/2026 00:00:00# And Tarih<=#03/01/2026 23:59:59# Order "
            "By Tarih Asc",
            "Select * From Datam Where CariKod = 'M1' And SeriNo <> '' And Tarih >= #03/01/2026# And Tarih <= #03/01/2026 23:59:59# Order "
            "By Tarih Asc"},
        Written{"Karvel.Mdb", "Select * From Datam Where Tarih>=#12/31/2025 00:00:00# And Tarih<=#3/1/2026 23:59:59# Order By Tarih Asc",
                "Select * From Datam Where Tarih >= #12/31/2025# And Tarih <= #03/01/2026 23:59:59# Order By Tarih Asc"},
        Written{"Karvel.Mdb", "Select * From Datam Where Gurup<>'Toptan' And Tarih>=#03/01/2026 00:00:00# Order By Durum Asc",
                "Select * From Datam Where Gurup <> 'Toptan' And Tarih >= #03/01/2026# Order By Durum Asc"},
        Written{"Karvel.Mdb",
                "Select * From Datam Where Aciklama='' And CariKod='M1' And Sec='' And Tarih>=#03/01/2026 00:00:00# Order By Tarih Asc",
                "Select * From Datam Where Aciklama = '' And CariKod = 'M1' And Sec = '' And Tarih >= #03/01/2026# Order By Tarih Asc"},
        Written{"Temp.mdb", "Select * From Datam Order By Tarih Asc", "Select * From Datam Order By Tarih Asc"},
        Written{"Index.Mdb", "Select * From Mdbindex where Tarih='2026'", "Select * From Mdbindex Where Tarih = '2026'"},
        Written{"Fatura.Mdb", "Select * From FatHareket Where FatHarNo='A1'", "Select * From FatHareket Where FatHarNo = 'A1'"}));

INSTANTIATE_TEST_SUITE_P(
    Sums, DeskStatement,
    testing::Values(
        Written{
            "Karvel.Mdb",
            "Select Sum(Tutar) FROM Datam Where Tarih>=#03/01/2026 00:00:00# And Tarih<=#03/01/2026 23:59:59# And CariAd='Ali' And "
            "Durum='Satış' And Tahsilat=0",
            "Select Sum(Tutar) From Datam Where Tarih >= #03/01/2026# And Tarih <= #03/01/2026 23:59:59# And CariAd = 'Ali' And Durum = "
            "'Satış' And Tahsilat = 0"},
        Written{"Karvel.Mdb", "select sum(Tutar) FROM Datam Where CariKod='M1' And Durum='Satış' And Tarih>=#03/01/2026 00:00:00#",
                "Select Sum(Tutar) From Datam Where CariKod = 'M1' And Durum = 'Satış' And Tarih >= #03/01/2026#"},
        Written{"Karvel.Mdb", "Select sum(Tahsilat) FROM Datam Where Durum='K.Kartı' And Gurup<>'Toptan' And Tarih>=#03/01/2026 00:00:00#",
                "Select Sum(Tahsilat) From Datam Where Durum = 'K.Kartı' And Gurup <> 'Toptan' And Tarih >= #03/01/2026#"},
        Written{"Karvel.Mdb", "Select Sum(Miktar) FROM Datam Where Tarih>=#03/01/2026 00:00:00# And Durum='Satış' And StokKod='S1'",
                "Select Sum(Miktar) From Datam Where Tarih >= #03/01/2026# And Durum = 'Satış' And StokKod = 'S1'"},
        Written{"Cari.Mdb", "Select sum(Alacak) FROM CariHareket Where CariHarKod='=110' And Carisi='M1' And Tarih>=#03/01/2026 00:00:00#",
                "Select Sum(Alacak) From CariHareket Where cariharkod = '=110' And Carisi = 'M1' And Tarih >= #03/01/2026#"},
        Written{"Cari.Mdb", "SELECT SUM([0Fiyat]) FROM Cari;", "Select Sum([0Fiyat]) From Cari"}));

INSTANTIATE_TEST_SUITE_P(
    Deletes, DeskStatement,
    testing::Values(Written{"Cari.Mdb", "DELETE FROM VadeGün Where CariKod='M1';", "Delete From VadeGün Where CariKod = 'M1'"},
                    Written{"SeriNo.Mdb", "DELETE FROM SeriNo WHERE DigerId='';", "Delete From SeriNo Where DigerId = ''"},
                    Written{"Temp.mdb", "DELETE FROM CariHareket;", "Delete From CariHareket"},
                    Written{"Cari.Mdb", "DELETE FROM CariHareket Where Tarih<=#01/30/2026 23:59:59#",
                            "Delete From CariHareket Where Tarih <= #01/30/2026 23:59:59#"},
                    Written{"Stok.Mdb", "DELETE FROM StokHareket Where Tarih<=#01/30/2026 23:59:59#",
                            "Delete From StokHareket Where Tarih <= #01/30/2026 23:59:59#"},
                    Written{"Karvel.Mdb", "delete * from Datam Where Tarih<=#01/30/2026 23:59:59#",
                            "Delete From Datam Where Tarih <= #01/30/2026 23:59:59#"}));

class BadStatement : public testing::TestWithParam<const char*> {};

TEST_P(BadStatement, is_refused_and_leaves_the_result_alone) {
  Statement statement;
  statement.sumPosition = 77;
  const Status status = ParseStatement(GetParam(), *Catalogue::File("Cari.mdb"), statement);
  EXPECT_EQ(status.Kind(), ErrorKind::BadText);
  EXPECT_NE(status.Message(), "");
  EXPECT_EQ(statement.sumPosition, 77);
  EXPECT_EQ(statement.table, nullptr);
}

INSTANTIATE_TEST_SUITE_P(All, BadStatement,
                         testing::Values("", "   ", ";", "Datam", "Select", "Select *", "Select * From", "Select * From Datam",
                                         "Select Unvan From CariKartlar", "Select * From CariKartlar Where",
                                         "Select * From CariKartlar Where Order By Unvan", "Select * From CariKartlar Order Unvan",
                                         "Select * From CariKartlar Order By", "Select * From CariKartlar Order By Unvan,",
                                         "Select * From CariKartlar Order By Unvan Asc Desc", "Select * From CariKartlar Order By YokBoyle",
                                         "Select Sum(Unvan) From CariKartlar", "Select Sum(HesKullan) From CariKartlar",
                                         "Select Sum(YokBoyle) From CariKartlar", "Select Sum(Borc From CariKartlar",
                                         "Select Sum(Borc) From CariKartlar Order By Unvan", "Select Count(*) From CariKartlar",
                                         "Delete CariKartlar", "Delete From CariKartlar Order By Unvan", "Drop Table CariKartlar",
                                         "Update CariKartlar Set Unvan=''", "CariKartlar; Delete From CariKartlar",
                                         "CariKartlar Where Borc=0", "Select * From [CariKartlar", "Select * From CariKartlar -- x",
                                         "Select * From CariKartlar /* x */", "Select * From CariKartlar Where Unvan=''Ali'"));

}  // namespace
}  // namespace karvel::dialect
