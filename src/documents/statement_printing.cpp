#include "documents/statement_printing.h"

#include <cmath>
#include <utility>
#include <vector>

#include "books/book_cursor.h"
#include "books/day_sums.h"
#include "books/sources.h"
#include "books/steps.h"
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
    TellUnprinted(order.error());
  }
  End();
}

void StatementPrinting::AskForStart() {
  screen_.Command5(kDay).SetVisible(false);
  screen_.Command5(kStatement).SetCaption(caption::kPrintFromDate);
}

StatementPrinting::Order StatementPrinting::StatementOrder() {
  form_.CriteriaText = FromDay(screen_.DTPicker1.Date());
  screen_.Command5(kDay).SetVisible(true);
  screen_.Command5(kStatement).SetCaption(caption::kPrintAll);
  return Order{.untilToday = true, .dates = form_.CriteriaText, .criteria = form_.CriteriaText};
}

std::expected<StatementPrinting::Order, Status> StatementPrinting::DayOrder(const DateTime& day) {
  const BookCursor newest(world_.stores, "newest line", "Karvel.Mdb", sources::DayBookOf(customer_.Code()));
  std::vector<GridRow> rows;
  if (const Status read = newest.RowsFromStart(1, rows); !read.Ok()) return std::unexpected(read);
  if (rows.empty()) return std::unexpected(Status(ErrorKind::NoRecord, "no line"));
  const SlipChoice choice{
      .openSlipMeant = !screen_.DökNoYaz.Visible(),
      .collecting = screen_.TahsilatFrame.Visible(),
      .newestSlipNo = AsText(rows.front().values.at(static_cast<std::size_t>(newest.SourceTable()->Position("SeriNo")))),
      .openSlipNo = form_.SlipNo};
  form_.CriteriaText = DayCriteria(day.IsEmpty() ? world_.clock.Now() : day);
  Order order{.dates = form_.CriteriaText, .criteria = SlipCriteria(choice, day)};
  // Without a date only the open slip can be told.
  if (day.IsEmpty() && order.criteria.find("Tarih") != std::string::npos) return std::unexpected(Status(ErrorKind::NoRecord, "no day"));
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
  if (job.Stopped()) return false;
  Status readable = lines ? Status() : lines.error();
  if (lines && lines->empty()) readable = {ErrorKind::NoRecord, "no line"};
  if (readable.Ok()) readable = ReadBalance(order, slip);
  if (!readable.Ok()) {
    TellUnprinted(readable);
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
  slip.collecting = screen_.TahsilatFrame.Visible();
  slip.discount = screen_.Text2(3).Text();
  const PrinterMeasures measures(world_.printer, ScaleMode::Pixels);
  return job.Print(DrawSlip(measures, *font, style, slip)).Ok();
}

Status StatementPrinting::ReadBalance(const Order& order, Slip& slip) const {
  const auto balance = ReadCustomerBalance(world_.stores, cursors_.CariData);
  if (!balance) return balance.error();
  const auto tax = TaxOf(customer_.Code(), order.dates);
  if (!tax) return tax.error();
  slip.balance = balance->amount;
  slip.side = balance->side;
  slip.tax = *tax;
  return {};
}

// Tax that the central site booked against the customer. Our own invoices book theirs in another way.
std::expected<double, Status> StatementPrinting::TaxOf(const std::string& customerCode, const std::string& dates) const {
  Value sum;
  const Status read = world_.stores.QueryValue(
      "Cari.Mdb",
      "Select sum(Alacak) FROM CariHareket Where CariHarKod='=110' And Carisi=" + sources::Quoted(customerCode) + " And " + dates, sum);
  if (!read.Ok()) return std::unexpected(read);
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

// What can't be read is not gone.
void StatementPrinting::TellUnprinted(const Status& why) {
  const bool nothing = why.Kind() == ErrorKind::NoRecord;
  Tell(screen_, nothing ? "Yazdırılacak satır yok: " + screen_.Text1(0).Text() : ReadingMessage(why));
}

void StatementPrinting::End() {
  screen_.DökNoYaz.SetVisible(true);
  customer_.OpenDayBook();
  if (!screen_.TahsilatFrame.Visible() && !screen_.Frame2.Visible()) screen_.Command1.SetFocus();
}

}  // namespace karvel
