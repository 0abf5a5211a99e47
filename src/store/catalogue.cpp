#include "store/catalogue.h"

#include <string>

#include "text/turkish.h"

namespace karvel {

namespace {

const ColumnType T = ColumnType::Text;
const ColumnType N = ColumnType::Number;
const ColumnType D = ColumnType::Date;
const ColumnType B = ColumnType::Boolean;

// Names of tables and columns carry no letter that differs by language but "I" and "i", which are alike.
bool SameName(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; };
    if (lower(a[i]) != lower(b[i])) return false;
  }
  return true;
}

std::string_view LastPiece(std::string_view path) {
  const auto slash = path.find_last_of("/\\");
  return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

// The group stands in two indexes: with the name for the list of one group, alone for a list that is sorted by group, where equal ones
// stand by age. Each column whose heading sorts the list has an index too.
Table CustomerCards() {
  return {"CariKartlar",
          {{"CariKod", T}, {"Unvan", T},  {"Adres1", T},    {"Adres2", T}, {"Email", T},  {"VergiDa", T}, {"VergiNo", T},
           {"Telefon", T}, {"Gsm", T},    {"KartNo", T},    {"Gurup", T},  {"Borc", N},   {"Alacak", N},  {"Bakiye", N},
           {"Hesap", T},   {"Hes", T},    {"HesKullan", B}, {"dBorc", N},  {"eBorc", N},  {"dBakiye", N}, {"eBakiye", N},
           {"Yedek1", T},  {"Yedek2", T}, {"Yedek3", T},    {"Yedek4", T}, {"Yedek5", T}, {"Yedek6", T},  {"yeni", N}},
          {{{"CariKod"}}, {{"Unvan"}}, {{"Gurup", "Unvan"}}, {{"Gurup"}}, {{"KartNo"}}, {{"Bakiye"}}, {{"Hesap"}}}};
}

Table Ledger() {
  return {"CariHareket",
          {{"cariharkod", T},
           {"Tarih", D},
           {"Aciklama", T},
           {"Bilgi1", T},
           {"Bilgi2", T},
           {"Birim", T},
           {"Borc", N},
           {"Alacak", N},
           {"Carisi", T},
           {"Unvan", T},
           {"DigerId", T},
           {"Nerde", T},
           {"Miktar", N},
           {"Fiyat", N},
           {"yeni", N},
           {"Gurup", T}},
          {{{"cariharkod", "Tarih"}}, {{"DigerId"}}, {{"Tarih"}}}};
}

Table Groups() {
  return {"Gurup", {{"Gurup", T}, {"Grp", B}}, {{{"Gurup"}}}};
}

Table SpecialPrices() {
  return {"Cari", {{"StokKod", T}, {"CariKod", T}, {"0Fiyat", N}, {"1Fiyat", N}, {"2Fiyat", N}}, {{{"StokKod", "CariKod"}}}};
}

Table DueDates() {
  return {"VadeGün", {{"CariKod", T}, {"VadeTarih", D}, {"Tutar", N}}, {{{"CariKod", "VadeTarih"}}}};
}

Table StockCards() {
  return {"StokKartlar",
          {{"StokKod", T},    {"StokAdi", T},  {"Kdv", N},        {"Birim", T},  {"Birim2", T},    {"Adet2", N},  {"Adet3", N},
           {"Gurup", T},      {"Kar", N},      {"Maliyet", N},    {"Yeri", T},   {"StokGizle", B}, {"Yedek1", T}, {"Yedek2", T},
           {"Yedek3", T},     {"Barkod", T},   {"Fiyat", N},      {"Fiyat2", N}, {"Fiyat3", N},    {"gFiyat", N}, {"GirenMik", N},
           {"GirenTutar", N}, {"CikanMik", N}, {"CikanTutar", N}, {"KalanA", N}, {"KalanB", N}},
          {{{"StokKod"}},
           {{"StokAdi"}},
           {{"Barkod"}},
           {{"Gurup", "StokAdi"}},
           {{"Gurup"}},
           {{"GirenMik"}},
           {{"CikanMik"}},
           {{"KalanB"}},
           {{"KalanA"}}}};
}

Table StockMovements() {
  return {
      "StokHareket",
      {{"StokHarKod", T}, {"Tarih", D},   {"Aciklama", T}, {"Tutar", N},    {"Birim", T},  {"Miktar", N}, {"Fiyat", N},  {"GirisCikis", T},
       {"Carisi", T},     {"DigerId", T}, {"Nerde", T},    {"SatTar", D},   {"StokAd", T}, {"Unvan", T},  {"Barkod", T}, {"Maliyet", N},
       {"SeriNo", T},     {"Gurup", T},   {"yeni", N},     {"Plasiyer", T}, {"tGurup", T}, {"Kar", N},    {"Kdv", N}},
      {{{"Carisi", "Tarih"}}, {{"DigerId"}}, {{"Tarih"}}}};
}

Table DayBook() {
  return {"Datam",
          {{"CariKod", T}, {"StokKod", T},  {"CariAd", T}, {"StokAd", T}, {"Fiyat", N}, {"Miktar", N},   {"Tutar", N},  {"Tarih", D},
           {"DigerId", T}, {"Birim", T},    {"yeni", N},   {"Durum", T},  {"Gurup", T}, {"Plasiyer", T}, {"tGurup", T}, {"SeriNo", T},
           {"Kar", N},     {"Tahsilat", N}, {"Sec", T},    {"Secc", T},   {"Eksik", N}, {"Aciklama", T}, {"Sube", T}},
          // Of two indexes that fit alike the engine takes the one that was made later. So the state comes first here: it shall not be what
          // a customer's day is looked for by.
          {{{"Durum", "Tarih"}}, {{"CariKod", "Tarih"}}, {{"CariAd", "Tarih"}}, {{"DigerId"}}, {{"Tarih"}}, {{"SeriNo"}}}};
}

Table SerialNumbers() {
  return {"SeriNo",
          {{"StokKod", T},
           {"CariKod", T},
           {"StokAd", T},
           {"CariAd", T},
           {"Tarih", D},
           {"alsat", T},
           {"yeni", N},
           {"DigerId", T},
           {"AlFiyat", N},
           {"barcode", T},
           {"BarCode1", T}},
          {{{"barcode"}}, {{"BarCode1"}}, {{"DigerId"}}}};
}

Table Invoices() {
  return {"Faturalar",
          {{"FaturaNo", T},
           {"FatTarih", D},
           {"FatCari", T},
           {"FatGirisCikis", N},
           {"Nakit", N},
           {"DigerId", T},
           {"Unvan", T},
           {"yeni", N},
           {"FatTop", N},
           {"FatKdvTut", N},
           {"Toplam", N},
           {"Gurup", T},
           {"FatKar", N}},
          {{{"FaturaNo"}}}};
}

Table InvoiceLines() {
  return {"FatHareket",
          {{"FatHarNo", T}, {"FatGirisCikis", N}, {"Tarih", D},       {"FatCari", T}, {"FatStok", T},   {"FatAciklama", T}, {"FatKdv", N},
           {"Nerde", T},    {"DigerId", T},       {"SeriNoDiger", T}, {"Birim", T},   {"FatMiktar", N}, {"Fiyat", N},       {"FatFiyat", N},
           {"Kdvsi", N},    {"FatTutar", N},      {"FatTotal", N},    {"Maliyet", N}, {"FatKar", N},    {"yeni", N}},
          {{{"FatHarNo"}}}};
}

// The statement's own ledger, with a running balance in each line.
Table StatementLines() {
  return {"CariHareket", {{"Tarih", D}, {"Aciklama", T}, {"Borc", N}, {"Alacak", N}, {"Bakiye", N}, {"Hesap", T}}, {{{"Tarih"}}}};
}

// "temp", "main" and "index" are words of the engines, so these schemas have names of their own.
const std::vector<DatabaseFile>& AllFiles() {
  static const std::vector<DatabaseFile> files{
      {"Cari.mdb", "cari", {CustomerCards(), Ledger(), Groups(), SpecialPrices(), DueDates()}},
      {"Stok.mdb", "stok", {StockCards(), StockMovements(), Groups()}},
      {"Index.mdb",
       "indeks",
       {{"Tarih", {{"Tarih", T}}, {{{"Tarih"}}}}, {"Mdbindex", {{"Tarih", T}, {"Serino", T}, {"Indexi", T}}, {{{"Tarih"}}}}}},
      {"Karvel.mdb", "karvel", {DayBook()}},
      {"SeriNo.mdb", "serino", {SerialNumbers()}},
      {"Fatura.mdb", "fatura", {Invoices(), InvoiceLines(), {"GirenCikan", {{"StokKod", T}, {"Giren", N}, {"Cikan", N}}, {{{"StokKod"}}}}}},
      {"Temp.mdb", "gecici", {DayBook(), Ledger()}},
      {"DataStok.mdb", "datastok", {}},
      {"DataTemp.Mdb", "datatemp", {StatementLines()}},
  };
  return files;
}

}  // namespace

int Table::Position(std::string_view column) const {
  for (std::size_t i = 0; i < columns.size(); ++i)
    if (SameName(columns[i].name, column)) return static_cast<int>(i);
  return -1;
}

const Table* DatabaseFile::Find(std::string_view table) const {
  for (const Table& candidate : tables)
    if (SameName(candidate.name, table)) return &candidate;
  for (const Table& candidate : tables)
    if (EqualText(candidate.name, table)) return &candidate;
  return nullptr;
}

std::span<const DatabaseFile> Catalogue::Files() {
  return AllFiles();
}

const DatabaseFile* Catalogue::File(std::string_view pathOrName) {
  const std::string_view name = LastPiece(pathOrName);
  for (const DatabaseFile& file : AllFiles())
    if (SameName(file.name, name)) return &file;
  return nullptr;
}

}  // namespace karvel
