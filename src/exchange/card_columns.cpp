#include "exchange/card_columns.h"

#include <array>
#include <string>

#include "text/turkish.h"

namespace karvel {
namespace {

constexpr std::array<CardColumn, 17> kStockColumns{{{"Stok Kodu", "StokKod", CellKind::Digits},
                                                    {"Stok Adı", "StokAdi", CellKind::Text},
                                                    {"Barkod", "Barkod", CellKind::Digits},
                                                    {"Gurup", "Gurup", CellKind::Text},
                                                    {"Birim", "Birim", CellKind::Text},
                                                    {"2.Birim", "Birim2", CellKind::Text},
                                                    {"2.Birim Adedi", "Adet2", CellKind::Count},
                                                    {"3.Fiyat Adedi", "Adet3", CellKind::Count},
                                                    {"Kdv", "Kdv", CellKind::Tax},
                                                    {"Maliyet", "gFiyat", CellKind::Price},
                                                    {"1.Fiyat", "Fiyat", CellKind::Price},
                                                    {"2.Fiyat", "Fiyat2", CellKind::Price},
                                                    {"3.Fiyat", "Fiyat3", CellKind::Price},
                                                    {"Kar Takibi", "Maliyet", CellKind::YesNo},
                                                    {"Yeri", "Yeri", CellKind::Text},
                                                    {"Gizli", "StokGizle", CellKind::YesNo},
                                                    {"Kalan", "KalanB", CellKind::Quantity, true}}};

constexpr std::array<CardColumn, 14> kCustomerColumns{{{"Cari Kodu", "CariKod", CellKind::Digits},
                                                       {"Ünvan", "Unvan", CellKind::Text},
                                                       {"Adres", "Adres1", CellKind::Text},
                                                       {"Şehir", "Adres2", CellKind::Text},
                                                       {"E-Mail", "Email", CellKind::Text},
                                                       {"Vergi Dairesi", "VergiDa", CellKind::Text},
                                                       {"Vergi No", "VergiNo", CellKind::Digits},
                                                       {"Telefon", "Telefon", CellKind::Digits},
                                                       {"GSM", "Gsm", CellKind::Digits},
                                                       {"Kart No", "KartNo", CellKind::Digits},
                                                       {"Gurup", "Gurup", CellKind::Text},
                                                       {"Gizli", "HesKullan", CellKind::YesNo},
                                                       {"Bakiye", "Bakiye", CellKind::Price, true},
                                                       {"Hesap", "Hesap", CellKind::Side, true}}};

constexpr std::array<std::string_view, 1> kStockAlone{"Barkod"};
constexpr std::array<std::string_view, 2> kCustomerAlone{"Unvan", "KartNo"};

std::string HeadingKey(std::string_view heading) {
  std::string letters = AnyKindOfI(std::string(heading));
  for (const std::string_view sign : {" ", ".", "-", "_"}) letters = ReplaceAll(letters, sign, "");
  return FoldKey(letters);
}

}  // namespace

const CardColumn* CardKind::Find(std::string_view heading) const {
  const std::string wanted = HeadingKey(heading);
  for (const CardColumn& column : columns)
    if (HeadingKey(column.heading) == wanted) return &column;
  for (const CardColumn& column : columns)
    if (HeadingKey(column.field) == wanted) return &column;
  return nullptr;
}

const CardKind& StockCardKind() {
  static const CardKind kind{"Stok.mdb", "StokKartlar", "StokKod", "StokAdi", kStockAlone, kStockColumns};
  return kind;
}

const CardKind& CustomerCardKind() {
  static const CardKind kind{"Cari.mdb", "CariKartlar", "CariKod", "Unvan", kCustomerAlone, kCustomerColumns};
  return kind;
}

}  // namespace karvel
