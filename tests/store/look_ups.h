// What the desk looks up and lists, for the tests of the engines' plans.
#pragma once

#include <array>
#include <ostream>

namespace karvel::testing {

struct LookUp {
  const char* file;
  const char* source;
  const char* criterion;  // "" for the list itself
};

inline void PrintTo(const LookUp& lookUp, std::ostream* out) {
  *out << lookUp.source << " | " << lookUp.criterion;
}

inline constexpr const char* kCustomerList =
    "Select * From CariKartlar Where HesKullan=False And Gurup<>'Toptan' And LCase(Gurup)<>'plasiyer' And Left(CariKod,1)<>'=' And "
    "CariKod<>'Merkez' Order By Unvan Asc";
inline constexpr const char* kStockList = "Select * From StokKartlar Where StokGizle=False Order By StokAdi ASC";

inline const auto kLists = std::to_array<LookUp>(
    {LookUp{"Cari.mdb", kCustomerList, ""}, LookUp{"Stok.mdb", kStockList, ""},
     LookUp{"Cari.mdb", "Select * From CariKartlar Where HesKullan=False Order By Gurup DESC", ""},
     LookUp{"Cari.mdb", "Select * From CariKartlar Where HesKullan=False And Gurup='Toptan' Order By Unvan Asc", ""},
     LookUp{"Stok.mdb", "Select * From StokKartlar Where StokGizle=False And Gurup='İçecek' Order By StokAdi Asc", ""},
     LookUp{"Stok.mdb", "Select * From StokKartlar Where StokGizle=False And StokAdi Like 'ç*' Order By StokAdi ASC", ""},
     LookUp{"Karvel.mdb", "Select * From Datam Where CariKod='A' Order By Tarih Desc", ""},
     LookUp{"Karvel.mdb", "Select * From Datam Where Durum='Iptal' Order By Tarih Desc", ""},
     LookUp{"Cari.mdb", "Select * From CariKartlar Where HesKullan=False Order By Bakiye DESC", ""},
     LookUp{"Stok.mdb", "Select * From StokKartlar Where StokGizle=False Order By KalanB ASC", ""},
     LookUp{"Karvel.mdb", "Select * From Datam Where Tarih>=#03/01/2026 00:00:00# And Tarih<=#03/01/2026 23:59:59# Order By Tarih Asc", ""},
     LookUp{"Cari.mdb", "Select * From CariHareket Where CariHarKod='A' Order By Tarih Desc", ""},
     LookUp{"Stok.mdb", "Select * From StokHareket Where Carisi='A' Order By Tarih Desc", ""},
     LookUp{"Cari.mdb", "Select * From VadeGün Where CariKod='A' Order By VadeTarih Asc", ""}});

inline const auto kFinds =
    std::to_array<LookUp>({LookUp{"Cari.mdb", "CariKartlar", "CariKod='A'"},
                           LookUp{"Cari.mdb", kCustomerList, "CariKod='A'"},
                           LookUp{"Cari.mdb", kCustomerList, "Unvan Like 'ş*'"},
                           LookUp{"Cari.mdb", kCustomerList, "Unvan='A'"},
                           LookUp{"Cari.mdb", kCustomerList, "KartNo='1'"},
                           LookUp{"Cari.mdb", "CariKartlar", "CariKod Like 'A?C'"},
                           LookUp{"Cari.mdb", "Cari", "StokKod='1' And CariKod='A'"},
                           LookUp{"Cari.mdb", "CariHareket", "DigerId='1'"},
                           LookUp{"Cari.mdb", "Select * From VadeGün Where CariKod='A' Order By VadeTarih Asc", "VadeTarih=#03/01/2026#"},
                           LookUp{"Stok.mdb", kStockList, "Barkod='1'"},
                           LookUp{"Stok.mdb", kStockList, "StokKod='1'"},
                           LookUp{"Stok.mdb", kStockList, "StokAdi='1'"},
                           LookUp{"Stok.mdb", kStockList, "StokKod Like '1*'"},
                           LookUp{"Stok.mdb", "StokHareket", "DigerId='1'"},
                           LookUp{"Karvel.mdb", "Datam", "DigerId='1'"},
                           LookUp{"Karvel.mdb", "Datam", "SeriNo='000001'"},
                           LookUp{"SeriNo.mdb", "SeriNo", "Barcode='1'"},
                           LookUp{"SeriNo.mdb", "SeriNo", "BarCode1='1'"},
                           LookUp{"Index.mdb", "Mdbindex", "Tarih='2026'"},
                           LookUp{"Index.mdb", "Tarih", "Tarih='2026'"},
                           LookUp{"Fatura.mdb", "Faturalar", "FaturaNo='1'"},
                           LookUp{"Fatura.mdb", "Select * From FatHareket Where FatHarNo='1'", "FatStok='1'"},
                           LookUp{"Fatura.mdb", "GirenCikan", "StokKod='1'"}});

}  // namespace karvel::testing
