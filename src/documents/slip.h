// The slip of a sale, the day's slip and the statement of a customer, drawn from his lines of the day book:
//
//            Velmora                          company, centred and bold
//            Adres
//
//          Ayşe Yılmaz                        with A5: "Sayın ; Ayşe Yılmaz" at the left, the date on its line at the right
//       Seri No : 000123                      not with A5, and a barcode of the number below it
//            |||||||
//      Tarih : 01.03.2026
//   ─────────────────────────────────────
//    Ürün     Miktar  Birim  Fiyat  Tutar
//   ─────────────────────────────────────
//   01.03.2026                                statement: at each day
//   Pirinç       2 Adet     50,00  100,00
//   Nakit Tahsilat                  60,00
//             Fiş Toplamı          100,00     where the next day begins: the sum since the start
//   ─────────────────────────────────────
//   Satışlar Toplamı               100,00     and what else is not 0
//   Kalan Borç                      40,00
//          Mali Değeri Yoktur.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "documents/day_lines.h"
#include "documents/drawing.h"
#include "documents/page_preparation.h"

namespace karvel {

struct Slip {
  std::string customerName;
  bool untilToday = false;  // the statement from a date on, else what stands on one slip or day
  DateTime from, today;
  std::string slipNo;              // "" where the lines belong to none
  std::optional<Picture> barcode;  // of the number
  double balance = 0;              // the customer's now
  std::string side;
  double tax = 0;           // KdvTutar
  bool collecting = false;  // the collection panel is open: what is left isn't known yet
  std::string discount = "0";
  std::vector<DayLine> lines;
};

// What the customer owed, or had to get, before these lines: the sum behind "Eski Borç" or "Eski Alacak". `returned` and `bought` are the
// sums of those lines. The two sides are no mirrors of each other.
double OldBalance(const Slip& slip, const LineTotals& totals, double returned, double bought);

Drawing DrawSlip(const Measures& measures, PrintFont body, const PrintStyle& style, const Slip& slip);

}  // namespace karvel
