// A shop in which lines were posted, each row put there by plain SQL as the desk writes it.
#pragma once

#include <fmt/format.h>

#include <string>

#include "tests/support/failing_books.h"
#include "text/turkish.h"

namespace karvel {

class PostedLines : public FailingBooks {
 protected:
  struct Line {
    std::string id;
    std::string customer = "C001", item = "1001", mode = "Satış";
    double price = 50, quantity = 2, profit = 0, cost = 40;
  };

  // A code or name as it stands between quotes.
  static std::string Q(const std::string& text) { return ReplaceAll(text, "'", "''"); }

  // The rows of a line of goods, and its cards raised.
  void PutLine(const Line& line) {
    const double amount = line.price * line.quantity;
    const bool sale = line.mode == "Satış";
    const std::string item = Q(line.item), customer = Q(line.customer);
    Sql("Karvel.mdb", fmt::format("INSERT INTO Datam(CariKod, StokKod, CariAd, StokAd, Fiyat, Miktar, Tutar, Tarih, DigerId, Birim, yeni, "
                                  "Durum, Plasiyer, tGurup, SeriNo, Kar) VALUES('{}','{}','Kim','Ne',{},{},{},'2026-03-01 09:00:00','{}',"
                                  "'Adet',1,'{}','WinKarvel0','WinKarvel0','000001',{})",
                                  customer, item, line.price, line.quantity, amount, line.id, line.mode, line.profit));
    Sql("Stok.mdb", fmt::format("INSERT INTO StokHareket(StokHarKod, Tarih, Aciklama, Tutar, Birim, Miktar, Fiyat, GirisCikis, Carisi, "
                                "DigerId, Nerde, StokAd, Maliyet, yeni, Kar) VALUES('{}','2026-03-01 00:00:00','Ne {} İle',{},'Adet',{},{},"
                                "'{}','{}','{}','C','Ne',{},1,{})",
                                item, line.mode, amount, line.quantity, line.price, line.mode, customer, line.id, line.cost, line.profit));
    Sql("Cari.mdb", fmt::format("INSERT INTO CariHareket(cariharkod, Tarih, Aciklama, Bilgi1, Birim, Borc, Alacak, Carisi, DigerId, Nerde, "
                                "Miktar, Fiyat, yeni) VALUES('{0}','2026-03-01 09:00:00','Ne {1}','{2}','Adet',{3},{4},'{2}','{5}','S',"
                                "{6},{7},1)",
                                customer, line.mode, item, sale ? amount : 0, sale ? 0 : amount, line.id, line.quantity, line.price));
    const std::string side = sale ? "Cikan" : "Giren";
    Sql("Stok.mdb", fmt::format("UPDATE StokKartlar SET {0}Mik={0}Mik+{1}, {0}Tutar={0}Tutar+{2}, Kar=Kar+{3} WHERE StokKod='{4}'", side,
                                line.quantity, amount, line.profit, item));
    Sql("Stok.mdb", "UPDATE StokKartlar SET KalanA=max(CikanMik-GirenMik,0), KalanB=max(GirenMik-CikanMik,0) WHERE StokKod='" + item + "'");
    Raise(customer, sale ? amount : 0, sale ? 0 : amount);
  }
  void PutSale(const std::string& id, double quantity = 2) { PutLine({.id = id, .quantity = quantity}); }

  // The rows of a collection in cash, and its cards raised.
  void PutCollection(const std::string& id, const std::string& customer, double amount) {
    Sql("Karvel.mdb", fmt::format("INSERT INTO Datam(CariKod, CariAd, StokAd, Tarih, DigerId, Tahsilat, Durum, yeni) VALUES('{}','Kim',"
                                  "'Nakit Tahsilat','2026-03-01 09:30:00','{}',{},'Nakit',1)",
                                  customer, id, amount));
    Sql("Cari.mdb", fmt::format("INSERT INTO CariHareket(cariharkod, Tarih, Aciklama, Borc, Alacak, Carisi, DigerId, Nerde, yeni) VALUES"
                                "('=100','2026-03-01 09:30:00','Nakit Tahsilat',{0},0,'=100','{1}','C',1),"
                                "('{2}','2026-03-01 09:30:00','Kim Tahsilat İle',0,{0},'{2}','{1}','C',1)",
                                amount, id, customer));
    Raise("=100", amount, 0);
    Raise(customer, 0, amount);
  }
  void PutDue(const std::string& customer, const std::string& day, double amount) {
    Sql("Cari.mdb", fmt::format("INSERT INTO \"VadeGün\" VALUES('{}','{} 00:00:00',{})", Q(customer), day, amount));
  }

  void Raise(const std::string& customer, double debit, double credit) {
    Sql("Cari.mdb", fmt::format("UPDATE CariKartlar SET Borc=Borc+{}, Alacak=Alacak+{} WHERE CariKod='{}'", debit, credit, customer));
    Sql("Cari.mdb",
        "UPDATE CariKartlar SET Bakiye=abs(Borc-Alacak), Hesap=iif(Alacak>Borc,'Alacak','Borç') WHERE CariKod='" + customer + "'");
  }
};

}  // namespace karvel
