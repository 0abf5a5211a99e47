#include "documents/slip.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "books/card_balance.h"
#include "books/line_mode.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

constexpr int kQuantity = 1, kUnit = 2, kPrice = 3, kAmount = 4;  // the columns of figures
constexpr double kBarcodeOffset = 180;                            // pixels right of the middle
constexpr double kDateMargin = 30;

// Draws one slip: one member a block, in the order in which they stand on the paper.
class SlipDrawing {
 public:
  SlipDrawing(const Measures& measures, PrintFont body, const PrintStyle& style, const Slip& slip)
      : style_(style), slip_(slip), columns_(SlipColumns(measures, body)), pen_(measures, std::move(body)) {}

  Drawing Draw() {
    PrintCompanyHeader(pen_, style_);
    PrintCustomer();
    EndHeading(pen_);
    if (!style_.smallPaper) PrintNumber();
    PrintDate();
    PrintHeadings();
    for (const DayLine& line : slip_.lines) PrintDayLine(line);
    pen_.CurrentY += kTableEndStep + kBlockStep;
    PrintRule(pen_, columns_);
    PrintTotals();
    PrintFoot(pen_, style_);
    return pen_.Finish();
  }

 private:
  [[nodiscard]] std::string Money(double amount) const { return Format(amount, style_.amountFormat); }

  void PrintCustomer() {
    if (!style_.smallPaper) {
      PrintCentred(pen_, slip_.customerName);
      return;
    }
    // The last piece stays without a line end: the date follows it.
    const auto pieces = BrokenText(pen_, "Sayın ; " + slip_.customerName, columns_.Right() - columns_.left);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
      pen_.CurrentX = columns_.left;
      pen_.Print(pieces[i]);
      if (i + 1 < pieces.size()) pen_.PrintLine();
    }
    if (pen_.CurrentX > DateLeft()) pen_.PrintLine();
  }

  void PrintNumber() {
    PrintCentred(pen_, "Seri No : " + slip_.slipNo);
    if (!slip_.barcode) return;
    const double width = slip_.barcode->width;
    const double inside = std::max(0.0, pen_.ScaleWidth() - width);
    pen_.Paint(*slip_.barcode, std::min((pen_.ScaleWidth() - width) / 2 + kBarcodeOffset, inside), width, slip_.barcode->height);
  }

  [[nodiscard]] std::string DateText() const {
    const std::string from = "Tarih : " + Format(slip_.from, "Short Date");
    return slip_.untilToday ? from + " <> " + Format(slip_.today, "Short Date") : from;
  }
  [[nodiscard]] double DateLeft() const { return pen_.ScaleWidth() - pen_.TextWidth(DateText()) - kDateMargin; }

  void PrintDate() {
    if (style_.smallPaper) {
      pen_.PrintLineEndingAt(pen_.ScaleWidth() - kDateMargin, DateText());
    } else {
      PrintCentred(pen_, DateText());
    }
    pen_.CurrentY += kStep;
  }

  void PrintHeadings() {
    PrintRule(pen_, columns_);
    int column = 0;
    for (const char* const heading : {"Ürün", "Miktar", "Birim", "Fiyat", "Tutar"}) PrintHeading(pen_, columns_, column++, heading);
    pen_.PrintLine();
    pen_.CurrentY += kStep;
    PrintRule(pen_, columns_);
  }

  void PrintDayLine(const DayLine& line) {
    BeginDay(line.date.Date());
    if (line.kind == kSaleName) soldSoFar_ = WithoutDust(soldSoFar_ + line.amount);
    if (line.kind == kReturnName) returned_ = WithoutDust(returned_ + line.amount);
    if (line.salesman.empty()) return;
    const bool purchase = line.kind == kPurchaseName;
    if (purchase) bought_ = WithoutDust(bought_ + line.amount);
    if (line.kind == kCancelledName) return;
    const std::string name = NameInColumn(line.itemName, purchase ? " Alış" : "");
    if (line.paid == 0) {
      PrintGoods(line, name);
    } else {
      PrintPayment(line, name);
    }
  }

  // The sum of the sales so far closes a day where another begins. It runs on: each shows the sales since the start.
  void BeginDay(const DateTime& day) {
    if (day == day_) return;
    if (!day_.IsEmpty()) {
      const std::string sum = Money(soldSoFar_);
      pen_.PrintEndingAt(std::min(columns_.Edge(kPrice), columns_.Edge(kAmount) - pen_.TextWidth(" " + sum)), "Fiş Toplamı");
      pen_.PrintLineEndingAt(columns_.Edge(kAmount), sum);
      PrintRule(pen_, columns_);
    }
    if (slip_.untilToday) {
      pen_.CurrentX = columns_.left;
      pen_.font.underline = true;
      pen_.PrintLine(Format(day, "Short Date"));
      pen_.font.underline = false;
      pen_.CurrentY += kBlockStep;
    }
    day_ = day;
  }

  // A name that was cut ends in a point before the suffix.
  [[nodiscard]] std::string NameInColumn(std::string name, std::string suffix) const {
    while (!name.empty() && pen_.TextWidth(name + suffix) > columns_.NameWidth()) {
      name = LeftLetters(name, LetterCount(name) - 1);
      if (suffix.starts_with(' ')) suffix = "." + Trim(suffix);
    }
    return name + suffix;
  }

  void PrintGoods(const DayLine& line, const std::string& name) {
    pen_.CurrentX = columns_.left;
    pen_.font.underline = true;
    pen_.Print(name);
    if (style_.nameOnOwnLine) pen_.PrintLine();
    pen_.font.underline = false;
    const bool counted = line.quantity != 0 && !line.itemCode.empty();
    const std::string amount = Money(counted ? line.amount : line.paid);
    const PrintFont font = counted ? FontBeside(pen_, columns_.Edge(kPrice), columns_.Edge(kAmount), amount) : pen_.font;
    if (counted) PrintCount(line, font == pen_.font ? columns_.Edge(kAmount) - pen_.TextWidth(amount) : columns_.Edge(kPrice));
    PrintEndingAtIn(pen_, font, columns_.Edge(kAmount), amount);
    pen_.PrintLine();
    pen_.CurrentY += kStep;
  }

  // `amountLeft` is where the amount begins.
  void PrintCount(const DayLine& line, double amountLeft) {
    const std::string quantity = Format(line.quantity, style_.quantityFormat);
    pen_.CurrentX = columns_.Edge(kQuantity) - pen_.TextWidth(quantity + "  ");
    pen_.Print(quantity + " ");
    pen_.CurrentX = columns_.Edge(kQuantity);
    const std::string price = Format(line.price, "#,##0.00");
    // An amount wider than its column moves the price to the left.
    const double edge = columns_.Edge(kPrice);
    const double priceRight = amountLeft < edge - 1 ? amountLeft - pen_.TextWidth(" ") : edge;
    // A unit of many letters ends where the price begins.
    pen_.Print(CutToWidth(pen_, " " + line.unit, priceRight - pen_.TextWidth(price) - columns_.Edge(kQuantity)));
    pen_.PrintEndingAt(priceRight, price);
  }

  void PrintPayment(const DayLine& line, const std::string& name) {
    pen_.CurrentX = columns_.left;
    pen_.Print(name);
    pen_.PrintLineEndingAt(columns_.Edge(kAmount), Money(line.paid));
  }

  void PrintTotal(bool shown, const std::string& label, double amount) {
    if (shown) PrintLabelled(pen_, columns_, label, Money(amount));
  }

  void PrintTotals() {
    const LineTotals totals = TotalsOf(slip_.lines);
    PrintTotal(totals.sold + bought_ > 0, bought_ > 0 ? "Alışlar Toplamı" : "Satışlar Toplamı", bought_ > 0 ? bought_ : totals.sold);
    PrintTotal(returned_ != 0, "İadeler Toplamı", returned_);
    const double old = OldBalance(slip_, totals, returned_, bought_);
    PrintTotal(old > 0, slip_.side == kDebitSide ? "Eski Borç" : "Eski Alacak", old);
    PrintTotal(slip_.tax > 0, "Kdv", slip_.tax);
    PrintTotal(totals.cash > 0, "Nakit Tahsilat", totals.cash);
    PrintTotal(totals.card > 0, "K.Kartı Tahsilat", totals.card);
    PrintTotal(totals.cheques > 0, "Çek Tahsilat", totals.cheques);
    PrintTotal(totals.notes > 0, "Senet Tahsilat", totals.notes);
    if (slip_.collecting) return;
    PrintTotal(true, "Kalan " + slip_.side, slip_.balance);
    PrintDiscount(totals.sold);
  }

  // What the goods cost more without it. All of it can't be taken off: then no price tells what they cost.
  void PrintDiscount(double sold) {
    const double percent = NumberOrZero(slip_.discount);
    if (percent == 0 || percent >= 100) return;
    pen_.CurrentX = columns_.left;
    pen_.Print("%" + slip_.discount);
    pen_.CurrentX += pen_.TextWidth(" ");
    pen_.Print(Money(100 * sold / (100 - percent) - sold));
    pen_.PrintLine(" İskonto Yapıldı.");
  }

  const PrintStyle& style_;
  const Slip& slip_;
  Columns columns_;
  Pen pen_;
  DateTime day_;
  double soldSoFar_ = 0, returned_ = 0, bought_ = 0;
};

}  // namespace

double OldBalance(const Slip& slip, const LineTotals& totals, double returned, double bought) {
  if (slip.side == kDebitSide) return RoundTo(slip.balance + totals.cash + totals.card - totals.sold + returned + bought + totals.notes, 2);
  return std::abs(RoundTo(slip.balance - totals.cash - totals.card + totals.sold - bought, 2));
}

Drawing DrawSlip(const Measures& measures, PrintFont body, const PrintStyle& style, const Slip& slip) {
  return SlipDrawing(measures, std::move(body), style, slip).Draw();
}

}  // namespace karvel
