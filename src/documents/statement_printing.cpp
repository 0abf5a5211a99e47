#include "documents/statement_printing.h"

#include <cmath>
#include <utility>

#include "books/book_cursor.h"
#include "books/day_sums.h"
#include "books/sources.h"
#include "books/steps.h"
#include "books/stored_cards.h"
#include "desk/captions.h"
#include "desk/quiet_line.h"
#include "documents/print_job.h"
#include "platform/barcode.h"
#include "platform/clerk_message.h"
#include "platform/clock.h"
#include "platform/printer.h"
#include "text/format.h"

namespace karvel {
namespace {

const Steps step("StatementPrinting");
constexpr int kDay = 1, kStatement = 2;                    // of Command5
constexpr double kBarMillimetres = 0.25, kBarHeight = 10;  // what a hand scanner reads at arm's length
constexpr double kMillimetresAnInch = 25.4, kTwipsAnInch = 1440;

}  // namespace

StatementPrinting::StatementPrinting(const DeskParts& parts, CustomerInFront& customer, BalanceView& balances)
    : parts_(parts),
      screen_(parts.screen),
      form_(parts.form),
      cursors_(parts.cursors),
      world_(parts.world),
      customer_(customer),
      balances_(balances) {
  for (const int index : {kDay, kStatement}) connections_ += screen_.Command5(index).click.Connect([this, index] { Pressed(index); });
}

void StatementPrinting::Pressed(int index) {
  if (!customer_.BringServed()) {
    screen_.DökNoYaz.SetVisible(true);
    return;
  }
  const bool dateAsked = screen_.Command5(kStatement).Caption() == caption::kPrintFromDate;
  DateTime day;  // none while the date of the statement is asked for
  if (!dateAsked) {
    day = screen_.DTPicker1.Date();
    balances_.Rebuild(customer_.Code(), day);
    if (balances_.ShowIfAsked()) {
      screen_.DökNoYaz.SetVisible(true);
      return;
    }
  }
  if (index == kStatement && !dateAsked) {
    AskForStart();
    return;
  }
  const auto order = index == kStatement ? StatementOrder() : DayOrder(day);
  if (order) {
    Print(*order);
  } else {
    TellNothing();
  }
  End();
}

void StatementPrinting::AskForStart() {
  screen_.Command5(kDay).SetVisible(false);
  screen_.Command5(kStatement).SetCaption(caption::kPrintFromDate);
}

std::optional<StatementPrinting::Order> StatementPrinting::StatementOrder() {
  form_.CriteriaText = FromDay(screen_.DTPicker1.Date());
  screen_.Command5(kDay).SetVisible(true);
  screen_.Command5(kStatement).SetCaption(caption::kPrintAll);
  return Order{.untilToday = true, .dates = form_.CriteriaText, .criteria = form_.CriteriaText};
}

std::optional<StatementPrinting::Order> StatementPrinting::DayOrder(const DateTime& day) {
  const BookCursor newest(world_.stores, "newest line", "Karvel.Mdb", sources::DayBookOf(customer_.Code()));
  if (!newest.HasCurrent()) return std::nullopt;
  const SlipChoice choice{.openSlipMeant = !screen_.DökNoYaz.Visible(),
                          .collecting = screen_.TahsilatFrame.Visible(),
                          .newestSlipNo = newest.Text("SeriNo"),
                          .openSlipNo = form_.SlipNo};
  form_.CriteriaText = DayCriteria(day.IsEmpty() ? world_.clock.Now() : day);
  Order order{.dates = form_.CriteriaText, .criteria = SlipCriteria(choice, day)};
  // Without a date only the open slip can be told.
  if (day.IsEmpty() && order.criteria.find("Tarih") != std::string::npos) return std::nullopt;
  return order;
}

void StatementPrinting::Print(const Order& order) {
  Slip slip;
  slip.untilToday = order.untilToday;
  const std::string source = LinesOf(customer_.Code(), order.criteria);
  const std::string openSlip = form_.SlipNo;
  const bool printed = PrintLines(order, source, slip);
  if (printed && !order.untilToday) {
    dayPrinted(PrintedDay{customer_.Code(), source, slip.lines.back().sent});
    form_.SlipNo.clear();
  } else {
    form_.SlipNo = openSlip;
  }
}

bool StatementPrinting::PrintLines(const Order& order, const std::string& source, Slip& slip) {
  PrintJob job(parts_, order.untilToday ? "Hesap dökümü" : "Fiş");
  std::size_t read = 0;
  auto lines = ReadDayLines(world_.stores, source, [&] { return job.GoOn(++read, 0); });
  if (!lines) {
    Tell(screen_, ReadingMessage(lines.error()));
    return false;
  }
  if (job.Stopped()) return false;
  if (lines->empty()) {
    TellNothing();
    return false;
  }
  const auto font = job.PrepareSlip();
  if (!font) return false;
  slip.lines = std::move(*lines);
  slip.slipNo = form_.SlipNo = slip.lines.front().slipNo;
  slip.customerName = screen_.Text1(0).Text();
  slip.from = screen_.DTPicker1.Date();
  slip.today = world_.clock.Now();
  const PrintStyle style = StyleOf(parts_);
  if (!style.smallPaper) slip.barcode = BarcodeOf(slip.slipNo);
  Cursor card(world_.stores, "balance");
  const Cursor& present = OpenStoredCustomer(card, cursors_.CariData) == Stored::There ? card : cursors_.CariData;
  slip.balance = present.Number("Bakiye");
  slip.side = present.Text("Hesap");
  slip.tax = TaxOf(customer_.Code(), order.dates);
  slip.collecting = screen_.TahsilatFrame.Visible();
  slip.discount = screen_.Text2(3).Text();
  const PrinterMeasures measures(world_.printer, ScaleMode::Pixels);
  return job.Print(DrawSlip(measures, *font, style, slip)).Ok();
}

// Tax that the central site booked against the customer. Our own invoices book theirs in another way.
double StatementPrinting::TaxOf(const std::string& customerCode, const std::string& dates) const {
  Value sum;
  step("tax", world_.stores.QueryValue("Cari.Mdb",
                                       "Select sum(Alacak) FROM CariHareket Where CariHarKod='=110' And Carisi=" +
                                           sources::Quoted(customerCode) + " And " + dates,
                                       sum));
  return AsNumber(sum);
}

std::optional<Picture> StatementPrinting::BarcodeOf(const std::string& slipNo) const {
  const double twips = PrinterMeasures(world_.printer, ScaleMode::Twips).ScaleWidth();
  const double dotsAnInch = kTwipsAnInch * PrinterMeasures(world_.printer, ScaleMode::Pixels).ScaleWidth() / twips;
  const auto dots = [dotsAnInch](double millimetres) {
    return std::max(1, static_cast<int>(std::lround(millimetres / kMillimetresAnInch * dotsAnInch)));
  };
  const std::string number = "01" + Format(slipNo.empty() ? "0" : slipNo, "000000");
  const auto picture = world_.barcodes.Code128(number, dots(kBarMillimetres), dots(kBarHeight));
  if (picture) return *picture;
  step("barcode", picture.error());
  return std::nullopt;
}

void StatementPrinting::TellNothing() {
  Tell(screen_, "Yazdırılacak satır yok: " + screen_.Text1(0).Text());
}

void StatementPrinting::End() {
  screen_.DökNoYaz.SetVisible(true);
  customer_.OpenDayBook();
  if (!screen_.TahsilatFrame.Visible() && !screen_.Frame2.Visible()) screen_.Command1.SetFocus();
}

}  // namespace karvel
