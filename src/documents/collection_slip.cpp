#include "documents/collection_slip.h"

#include <cmath>
#include <utility>

#include "books/card_balance.h"
#include "books/day_sums.h"
#include "desk/quiet_line.h"
#include "documents/print_job.h"
#include "documents/slip_selection.h"
#include "platform/clerk_message.h"
#include "platform/clock.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

constexpr int kColumns = 3, kZeros = 9;

void PrintBalance(Pen& pen, const Columns& columns, const std::string& label, const std::string& amount) {
  pen.PrintEndingAt(columns.Edge(0), label);
  PrintFigureEndingAt(pen, columns.Right(), amount);
  pen.PrintLine();
}

}  // namespace

Drawing DrawCollectionSlip(const Measures& measures, PrintFont body, const PrintStyle& style, const CollectionSlip& slip) {
  const Columns columns = CentredColumns(measures, body, kColumns, kZeros);
  const auto money = [&style](double amount) { return Format(amount, style.amountFormat); };
  Pen pen(measures, std::move(body));
  pen.PrintLine();
  PrintCompanyHeader(pen, style);
  PrintCentred(pen, Trim(slip.customerName));
  EndHeading(pen);
  PrintCentred(pen, "Tarih : " + Format(slip.now, "Short Date") + " <> " + Format(slip.now, "dd.mm.yyyy hh:nn:ss"));
  pen.CurrentY += kStep;
  PrintRule(pen, columns);
  const std::pair<const char*, double> means[] = {{"Nakit Tahsilat", slip.paid.cash},
                                                  {"K.Kart Tahsilat", slip.paid.card},
                                                  {"Çek Tahsilat", slip.paid.cheques},
                                                  {"Senet Tahsilat", slip.paid.notes}};
  for (const auto& [label, amount] : means)
    if (amount != 0) PrintLabelled(pen, columns, label, money(amount));
  PrintRule(pen, columns);
  const double paid = WithoutDust(slip.paid.Paid());
  PrintBalance(pen, columns, "Toplam", money(paid));
  pen.PrintLine();
  const double before = WithoutDust(slip.balance + paid);
  PrintBalance(pen, columns, before > 0 ? kDebitSide : kCreditSide, money(std::abs(before)));
  PrintBalance(pen, columns, "Tahsilat", money(paid));
  // The word never changes, also for a customer in credit.
  PrintBalance(pen, columns, std::string("Kalan ") + kDebitSide, money(slip.balance));
  PrintFeed(pen, style);
  return pen.Finish();
}

CollectionSlipPrinting::CollectionSlipPrinting(const DeskParts& parts, CustomerInFront& customer) : parts_(parts), customer_(customer) {
  connections_ += parts.screen.TahsilatCmd.click.Connect([this] { Print(); });
}

void CollectionSlipPrinting::Print() {
  if (!customer_.BringServed()) return;
  const World& world = parts_.world;
  const DateTime now = world.clock.Now();
  parts_.form.CriteriaText = DayCriteria(now);
  PrintJob job(parts_, "Tahsilat fişi");
  std::size_t read = 0;
  const auto lines = ReadDayLines(world.stores, LinesOf(customer_.Code(), parts_.form.CriteriaText), [&] { return job.GoOn(++read, 0); });
  if (job.Stopped()) return;
  const auto balance = lines ? ReadCustomerBalance(world.stores, parts_.cursors.CariData) : std::unexpected(lines.error());
  if (!balance) {
    Tell(parts_.screen, ReadingMessage(balance.error()));
    return;
  }
  const auto font = job.PrepareOnPaperInUse();
  if (!font) return;
  const PrinterMeasures measures(world.printer, ScaleMode::Pixels);
  const CollectionSlip slip{parts_.screen.Text1(0).Text(), now, balance->amount, TotalsOf(*lines)};
  job.Print(DrawCollectionSlip(measures, *font, StyleOf(parts_), slip)).Ignore();  // told
}

}  // namespace karvel
