#include "bench/bare_posting.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "store/catalogue.h"
#include "text/turkish.h"

namespace karvel::bench {

namespace {

// A look-up on the same compare key as the desk's, so that both sides use the same index.
std::string Key(std::string_view column) {
  return FoldKeySql(fmt::format("\"{}\"", column));
}

// An insert of a whole row, as the desk writes it.
std::string InsertAll(std::string_view schema, const char* file, const char* table) {
  const Table& known = *Catalogue::File(file)->Find(table);
  std::string names, places;
  for (const Column& column : known.columns) {
    names += fmt::format("{}\"{}\"", names.empty() ? "" : ",", column.name);
    places += places.empty() ? "?" : ",?";
  }
  return fmt::format("INSERT INTO {}.\"{}\" ({}) VALUES ({})", schema, table, names, places);
}

double Rounded(double value, double digits) {
  return std::round(value * digits) / digits;
}

}  // namespace

BarePosting::BarePosting(BareShop& shop)
    : shop_(shop),
      readNumber_(shop.Connection(), fmt::format("SELECT Indexi FROM indeks.Mdbindex WHERE {}=?1", Key("Tarih"))),
      moveNumber_(shop.Connection(), fmt::format("UPDATE indeks.Mdbindex SET Indexi=?2 WHERE {}=?1", Key("Tarih"))),
      findSpecial_(shop.Connection(),
                   fmt::format("SELECT \"0Fiyat\" FROM cari.Cari WHERE {}=?1 AND {}=?2", Key("StokKod"), Key("CariKod"))),
      findDue_(shop.Connection(), fmt::format("SELECT rowid, Tutar FROM cari.\"VadeGün\" WHERE {}=?1 AND VadeTarih=?2", Key("CariKod"))),
      addDue_(shop.Connection(), "INSERT INTO cari.\"VadeGün\" VALUES (?,?,?)"),
      moveDue_(shop.Connection(), "UPDATE cari.\"VadeGün\" SET Tutar=?2 WHERE rowid=?1"),
      readCard_(shop.Connection(),
                fmt::format("SELECT rowid, StokAdi, Birim, Barkod, Fiyat, gFiyat, Gurup, Maliyet, GirenMik, CikanMik, CikanTutar, Kar FROM "
                            "stok.StokKartlar WHERE {}=?1",
                            Key("StokKod"))),
      moveCard_(shop.Connection(), "UPDATE stok.StokKartlar SET CikanMik=?2, CikanTutar=?3, Kar=?4, KalanA=?5, KalanB=?6 WHERE rowid=?1"),
      readCustomer_(shop.Connection(), fmt::format("SELECT rowid, Unvan, Borc, Alacak FROM cari.CariKartlar WHERE {}=?1", Key("CariKod"))),
      moveCustomer_(shop.Connection(), "UPDATE cari.CariKartlar SET Borc=?2, Bakiye=?3, Hesap=?4 WHERE rowid=?1"),
      addMovement_(shop.Connection(), InsertAll("stok", "Stok.mdb", "StokHareket")),
      addDay_(shop.Connection(), InsertAll("main", "Karvel.mdb", "Datam")),
      addLedger_(shop.Connection(), InsertAll("cari", "Cari.mdb", "CariHareket")) {}

void BarePosting::Post(const std::string& customerCode, const std::string& stockCode, int quantity) {
  static const std::string kNow = "2026-03-01 10:15:00", kDay = "2026-03-01 00:00:00", kYear = "2026";
  const std::string customerKey = FoldKey(customerCode), stockKey = FoldKey(stockCode);
  shop_.Execute("BEGIN IMMEDIATE");

  readNumber_.With(kYear).Step();
  const std::string number = readNumber_.Text(0);
  readNumber_.Rest();
  const std::string next = number.substr(0, 2) + std::to_string(std::stol(number.substr(2)) + 1);
  moveNumber_.With(kYear, next).Run();
  const std::string id = fmt::format("1{:0>10}", next);

  readCard_.With(stockKey).Step();
  const double cardRow = readCard_.Number(0), price = readCard_.Number(4), cost = readCard_.Number(5);
  const std::string name = readCard_.Text(1), unit = readCard_.Text(2), barcode = readCard_.Text(3), group = readCard_.Text(6);
  const bool tracksProfit = readCard_.Number(7) != 0;
  const double moved = readCard_.Number(8), out = readCard_.Number(9) + quantity, outAmount = readCard_.Number(10),
               cardProfit = readCard_.Number(11);
  readCard_.Rest();
  readCustomer_.With(customerKey).Step();
  const double customerRow = readCustomer_.Number(0), credit = readCustomer_.Number(3), amount = price * quantity;
  const double debit = readCustomer_.Number(2) + amount, profit = tracksProfit ? std::max(0.0, amount - quantity * cost) : 0;
  const std::string customerName = readCustomer_.Text(1);
  readCustomer_.Rest();

  findSpecial_.With(stockKey, customerKey).Run();
  findDue_.With(customerKey, kDay);
  if (findDue_.Step()) {
    const double row = findDue_.Number(0), due = findDue_.Number(1);
    findDue_.Rest();
    moveDue_.With(row, due + amount).Run();
  } else {
    findDue_.Rest();
    addDue_.With(customerCode, kDay, amount).Run();
  }
  addMovement_
      .With(stockCode, kDay, name + " Satış İle", amount, unit, quantity, price, "Satış", customerCode, id, "C", kDay, name, customerName,
            barcode, cost, "", group, 1, "WinKarvel01", "WinKarvel01", profit, 0)
      .Run();
  addDay_
      .With(customerCode, stockCode, customerName, name, price, quantity, amount, kNow, id, unit, 1, "Satış", group, "WinKarvel0",
            "WinKarvel0", "000001", profit, 0, "", "", 0, "", "")
      .Run();
  addLedger_.With(customerCode, kNow, name + " Satış", stockCode, name, unit, amount, 0, stockCode, name, id, "S", quantity, price, 1, "")
      .Run();
  moveCard_
      .With(cardRow, out, outAmount + amount, cardProfit + profit, Rounded(std::max(0.0, out - moved), 1000),
            Rounded(std::max(0.0, moved - out), 1000))
      .Run();
  moveCustomer_.With(customerRow, debit, Rounded(std::abs(debit - credit), 100), credit > debit ? "Alacak" : "Borç").Run();
  shop_.Execute("COMMIT");
}

}  // namespace karvel::bench
