#include "documents/invoice_drawing.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "documents/amount_in_words.h"
#include "documents/endless_sheet.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

using namespace invoice_box;
// The check marks by what they show.
constexpr std::size_t kDateMark = 0, kTimeMark = 1, kUnitMark = 2, kBalanceMark = 3, kTaxMark = 4, kLineTaxMark = 5, kWordsMark = 6,
                      kSumMark = 7, kTotalMark = 9;
constexpr double kRightMargin = 30, kFootGap = 60;  // twips

std::string Money(double amount) {
  return Format(amount, "#,##0.00");
}

class Writer {
 public:
  Writer(const InvoicePaper& paper, const InvoiceLayout& layout, const Measures& measures, const PrintFont& font)
      : paper_(paper), invoice_(paper.invoice), layout_(layout), sheet_(measures, font, ScaleMode::Twips) {}

  void WriteHead();
  void WriteTaxIdentity();
  void FeedBody();
  void WriteLines();
  void WriteSums();
  void WriteTaxes();
  void WriteBalance();
  Status WriteWords();
  [[nodiscard]] Drawing Cut() const { return sheet_.Cut(); }

 private:
  [[nodiscard]] bool Marked(std::size_t mark) const { return paper_.marks.at(mark); }
  [[nodiscard]] const InvoiceBox& Box(std::size_t number) const { return layout_.boxes.at(number); }
  [[nodiscard]] double RightOf(std::size_t number) const { return Box(number).left + InvoiceLayout::kBoxWidth; }
  // Items of the foot hang below the body, as far from each other as their boxes are.
  [[nodiscard]] double FootOf(std::size_t number) const { return Box(number).top - Box(kAmount).top + foot_; }
  void PutAt(std::size_t number, const std::string& text) { sheet_.Put(Box(number).left, Box(number).top, text); }
  void PutLabel(double y, const std::string& label) { sheet_.PutEndingAt(Box(kLabels).left, y, label); }
  void WriteLine(double y, const InvoiceLine& line);

  const InvoicePaper& paper_;
  const Invoice& invoice_;
  const InvoiceLayout& layout_;
  EndlessSheet sheet_;
  double foot_ = 0;
};

void Writer::WriteHead() {
  const InvoiceBox& date = Box(kDate);
  if (Marked(kDateMark)) {
    sheet_.PutEndingAt(date.left, date.top, "Tarih : ");
    PutAt(kDate, Format(invoice_.time, "Short Date"));
  }
  if (Marked(kTimeMark)) PutAt(kTime, Format(invoice_.time, "hh:nn"));
  PutAt(kTitle, paper_.customer.title);
  PutAt(kAddress, paper_.customer.address);
  PutAt(kAddress2, paper_.customer.address2);
}

// On one line, where the office would run into the number, they follow each other.
void Writer::WriteTaxIdentity() {
  const std::string &office = paper_.customer.taxOffice, &number = paper_.customer.taxNumber;
  const InvoiceBox &officeBox = Box(kTaxOffice), &numberBox = Box(kTaxNumber);
  const bool collide = officeBox.top == numberBox.top && officeBox.left + sheet_.TextWidth(office) >= numberBox.left;
  if (!collide) {
    PutAt(kTaxOffice, office);
    PutAt(kTaxNumber, number);
  } else if (numberBox.left <= officeBox.left) {
    PutAt(kTaxNumber, number + "  " + office);
  } else {
    PutAt(kTaxOffice, office + "  " + number);
  }
}

// Blank lines down to the end of the body, where the foot begins.
void Writer::FeedBody() {
  double y = std::max(Box(kTaxOffice).top, Box(kTaxNumber).top) + sheet_.LineHeight();
  for (int i = 0; i <= paper_.mostLines; ++i, y += sheet_.LineHeight()) sheet_.Put(0, y, " ");
  foot_ = y + kFootGap;
}

void Writer::WriteLines() {
  double y = Box(kBody).top;
  for (const InvoiceLine& line : invoice_.lines) {
    WriteLine(y, line);
    y += sheet_.LineHeight();
  }
}

void Writer::WriteLine(double y, const InvoiceLine& line) {
  struct Item {
    double x;
    std::string text;
  };
  std::vector<Item> items;
  const auto add = [&](double right, const std::string& text) { items.push_back({right - sheet_.TextWidth(text), text}); };
  if (Marked(kLineTaxMark)) add(RightOf(kRate), PlainNumber(line.taxRate));
  if (Marked(kUnitMark)) items.push_back({Box(kUnit).left, line.unit});
  add(RightOf(kQuantity) - kRightMargin, Format(line.quantity, paper_.quantityFormat));
  add(RightOf(kPrice) - kRightMargin, Money(line.price));
  add(RightOf(kAmount) - kRightMargin, Money(line.amount));
  // A long name must not be printed over the figures: it ends where the next item begins.
  const double left = Box(kName).left;
  double room = std::numeric_limits<double>::max();
  for (const Item& item : items)
    if (item.x > left) room = std::min(room, item.x - left);
  std::string name = line.itemName;
  while (!name.empty() && sheet_.TextWidth(name) > room) name = LeftLetters(name, LetterCount(name) - 1);
  sheet_.Put(left, y, name);
  for (const Item& item : items) sheet_.Put(item.x, y, item.text);
}

void Writer::WriteSums() {
  const double y = FootOf(kSum);
  if (Marked(kSumMark)) PutLabel(y, "Toplam...:");
  sheet_.PutEndingAt(RightOf(kSum) - kRightMargin, y, Money(invoice_.total - invoice_.tax));
}

void Writer::WriteTaxes() {
  double y = FootOf(kTax);
  const double right = RightOf(kTax) - kRightMargin, tax = invoice_.taxes.Sum();
  const auto& entries = invoice_.taxes.Entries();
  if (entries.front().tax != 0) {
    for (const TaxTable::Entry& entry : entries) {
      if (entry.tax <= 0) continue;
      if (Marked(kTaxMark)) PutLabel(y, "Kdv % : " + PlainNumber(entry.rate));
      sheet_.PutEndingAt(right, y, Money(entry.tax));
      y += sheet_.LineHeight();
    }
  }
  if (tax > 0 && tax > entries.front().tax && Marked(kTaxMark)) {
    PutLabel(y, "Kdv Toplamı...:");
    sheet_.PutEndingAt(right, y, Money(tax));
  }
  const double total = FootOf(kTotal);
  if (Marked(kTotalMark)) PutLabel(total, "Genel Toplam...:");
  sheet_.PutEndingAt(RightOf(kTotal) - kRightMargin, total, Money(invoice_.total));
}

void Writer::WriteBalance() {
  const CardBalance& balance = invoice_.balance;
  if (!Marked(kBalanceMark) || balance.amount == 0) return;
  const std::string now = Format(paper_.now, "dd.mm.yyyy hh:nn:ss");
  sheet_.Put(Box(kBalance).left, FootOf(kBalance), now + " itibari ile bakiyeniz : " + PlainNumber(balance.amount) + " " + balance.side);
}

Status Writer::WriteWords() {
  if (!Marked(kWordsMark)) return {};
  const auto words = YazıylaTutar(Money(invoice_.total));
  if (!words) return words.error();
  sheet_.Put(Box(kWords).left, FootOf(kWords), "Yalnız ; " + *words);
  return {};
}

}  // namespace

std::expected<Drawing, Status> DrawInvoice(const InvoicePaper& paper, const InvoiceLayout& layout, const Measures& measures,
                                           const PrintFont& font) {
  Writer writer(paper, layout, measures, font);
  writer.WriteHead();
  writer.WriteTaxIdentity();
  writer.FeedBody();
  writer.WriteLines();
  writer.WriteSums();
  writer.WriteTaxes();
  writer.WriteBalance();
  if (const Status spelled = writer.WriteWords(); !spelled.Ok()) return std::unexpected(spelled);
  return writer.Cut();
}

}  // namespace karvel
