#include "documents/invoice_panel.h"

#include <utility>
#include <vector>

#include "books/book_cursor.h"
#include "books/find_card.h"
#include "books/invoice_numbers.h"
#include "books/sources.h"
#include "books/steps.h"
#include "desk/captions.h"
#include "desk/quiet_line.h"
#include "desk/refusal.h"
#include "desk/unknown_outcome.h"
#include "documents/amount_in_words.h"
#include "documents/invoice_print.h"
#include "platform/clerk_message.h"
#include "platform/messages.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

constexpr int kNumber = 0, kTitle = 1, kStreet = 2, kCity = 3, kTaxOffice = 4, kTaxNumber = 5, kAmount = 6, kQuantity = 7, kPrice = 8,
              kEmail = 9;
constexpr int kClose = 0, kPrint = 1;
constexpr int kTickColumn = 4;
constexpr int kInWords = 6;  // of MnPop
const Steps step("InvoicePanel");

}  // namespace

InvoicePanel::InvoicePanel(const DeskParts& parts, CustomerInFront& customer, PrinterSelection& printers)
    : parts_(parts),
      shop_(parts.shop),
      screen_(parts.screen),
      form_(parts.form),
      cursors_(parts.cursors),
      world_(parts.world),
      customer_(customer),
      printers_(printers) {
  Screen& screen = screen_;
  connections_ += screen.CariGrid.altered.Connect([this] { screen_.Command4.SetVisible(AtRest(screen_)); });
  connections_ += screen.Command4.click.Connect([this] { Open(); });
  for (int i = 0; i < screen.Fat.Count(); ++i) connections_ += screen.Fat(i).gotFocus.Connect([&box = screen.Fat(i)] { box.SelectAll(); });
  for (const int i : {kAmount, kQuantity}) connections_ += screen.Fat(i).changed.Connect([this] { FollowAmount(); });
  connections_ += screen.FatDTPicker.changed.Connect([this] { DateChanged(); });
  connections_ += screen.FatDüzChk.click.Connect([this] { PlainToggled(); });
  connections_ += screen.FatGrid.click.Connect([this] { TurnLine(); });
  // A second tap that follows soon is one more; Enter, which comes as two, is one.
  connections_ += screen.FatGrid.keyDown.Connect([this](const KeyEvent&) { byKey_ = true; });
  connections_ += screen.FatGrid.mouseDown.Connect([this](const MouseEvent&) { byKey_ = false; });
  connections_ += screen.FatGrid.dblClick.Connect([this] {
    if (!byKey_) TurnLine();
  });
  connections_ += screen.FatGrid.headClick.Connect([this](int column) { TurnAll(column); });
  connections_ += screen.FatCmd(kPrint).click.Connect([this] { Print(); });
  connections_ += screen.FatCmd(kClose).click.Connect([this] { Leave(); });
  connections_ += screen.FatFrame.altered.Connect([this] { Closed(); });
  connections_ += screen.FatFrame.mouseUp.Connect([&screen](const MouseEvent& event) {
    if (event.button == 2) screen.popUp(screen.FatPop);
  });
  connections_ += screen.FatPopCmd.click.Connect([&screen] { screen.popUp(screen.FatPop); });
  connections_ += cursors_.Fatura.repositioned.Connect([this] {
    step("lines of the invoice", cursors_.FatHareket.Open("Select * From FatHareket Where FatHarNo=" + sources::Quoted(Field(kNumber))));
  });
}

void InvoicePanel::Open() {
  if (open_ || !customer_.BringServed()) return;
  if (const Status filled = Fill(customer_.Code()); !filled.Ok()) {
    Refuse(filled);
    return;
  }
  day_ = {customer_.Code(), world_.clock.Now().Date(), false};
  if (const Status ticked = TickFirstLines(shop_, day_, InvoiceLinesThatFit(parts_)); !ticked.Ok()) {
    Refuse(ticked);
    return;
  }
  Show();
}

Status InvoicePanel::Fill(const std::string& code) {
  BookCursor card(world_.stores, "invoiced customer", "Cari.Mdb", kCustomerCards);
  if (Status found = FindCustomer(card, code); !found.Ok()) return found;
  const Outcome<std::string> number = FreeInvoiceNumber(shop_, NextInvoiceNumber(parts_.settings.Get(Setting::InvoiceNo)));
  if (!number) return number.error();
  offered_ = *number;
  screen_.Fat(kNumber).SetText(offered_);
  screen_.Fat(kTitle).SetText(card.Text("Unvan"));
  screen_.Fat(kStreet).SetText(card.Text("Adres1"));
  screen_.Fat(kCity).SetText(card.Text("Adres2"));
  screen_.Fat(kTaxOffice).SetText(card.Text("VergiDa"));
  screen_.Fat(kTaxNumber).SetText(card.Text("VergiNo"));
  screen_.Fat(kEmail).SetText(card.Text("Email"));
  address_ = ReadAddress();
  refused_.reset();
  return {};
}

void InvoicePanel::Show() {
  Screen& screen = screen_;
  open_ = true;
  behind_.Hold({&screen.CariGrid, &screen.Text1(0), &screen.Text2(2), &screen.Text5, &screen.GurupCombo, &screen.ComboCmd, &screen.StokChk,
                &screen.CiroChk, &screen.SilinenChk, &screen.Label1(0), &screen.Label1(5), &screen.Label3, &screen.Command1,
                &screen.Command2, &screen.Command4});
  switching_ = true;
  screen.FatDTPicker.SetDate(day_.day);
  screen.FatDüzChk.SetChecked(false);
  switching_ = false;
  screen.NakitCmd.SetCaption(caption::kOnAccount);
  screen.Vadefrm.SetVisible(false);
  Select();
  screen.FatFrame.SetVisible(true);
  screen.FatFrame.BringToFront();
  screen.FatGrid.SetFocus();
}

void InvoicePanel::FollowAmount() {
  const double amount = NumberOrZero(Field(kPrice)) * NumberOrZero(Field(kQuantity));
  screen_.Fat(kAmount).SetText(Format(amount, form_.PriceFormat));
}

// The ticks that the day kept from an earlier time go: nothing may stand on an invoice that nobody chose for it.
void InvoicePanel::DateChanged() {
  if (switching_ || !open_) return;
  switching_ = true;
  screen_.FatDüzChk.SetChecked(false);
  switching_ = false;
  day_.day = screen_.FatDTPicker.Date();
  day_.withInvoiced = false;
  ShowNumber();
  const Status cleared = TickFirstLines(shop_, day_, 0);
  Select();
  if (!cleared.Ok()) Refuse(cleared);
}

void InvoicePanel::PlainToggled() {
  if (switching_ || !open_) return;
  day_.withInvoiced = screen_.FatDüzChk.Checked();
  ShowNumber();
  Select();
}

void InvoicePanel::Select() {
  const Muted muted(form_.RepositionGuard, Mute::DayBook);
  step("lines of the day", cursors_.HareketData.Open(LinesOf(day_)));
  std::vector<GridRow> first;
  const Status read = cursors_.HareketData.RowsFromStart(1, first);
  screen_.FatCmd(kPrint).SetVisible(!first.empty());
  if (read.Ok()) {
    TellNext();
  } else {
    Tell(screen_, ReadingMessage(read));
  }
}

void InvoicePanel::TellNext() {
  const bool printable = screen_.FatCmd(kPrint).Visible();
  Tell(screen_,
       "Fatura " + Field(kNumber) + (printable ? ": satırları denetleyip Yazdır'a dokunun" : ": bu günde faturalanacak satır yok"));
}

void InvoicePanel::TurnLine() {
  Cursor& lines = cursors_.HareketData;
  if (!open_ || !lines.HasCurrent()) return;
  const std::string item = lines.Text("StokKod");
  const Status turned = TurnTick(shop_, lines.CurrentKey(), day_.withInvoiced);
  if (!turned.Ok()) {
    Select();
    if (turned.Kind() == ErrorKind::NoRecord) {
      Tell(screen_, "Satır başka bir terminalde silinmiş");
    } else {
      Refuse(turned);
    }
    return;
  }
  {
    // As the list stands behind a count of its ticks: on the item's first line.
    const Muted muted(form_.RepositionGuard, Mute::DayBook);
    step("find line", lines.FindFirst("StokKod=" + sources::Quoted(item)));
  }
  if (Fits()) TellNext();
}

bool InvoicePanel::Fits() {
  const Outcome<int> ticked = CountTicked(shop_, day_);
  if (!ticked) {
    Refuse(ticked.error());
    return false;
  }
  const double excess = *ticked - InvoiceLinesThatFit(parts_);
  screen_.FatCmd(kPrint).SetVisible(excess <= 0);
  if (excess <= 0) return true;
  const std::string lines = PlainNumber(excess) + " Satır Fazla";
  Tell(screen_, lines + ": faturaya sığmaz");
  world_.messages.MessageBox(lines + "\nFaturaya Sığmaz..!", "Dikkat", MessageIcon::Stop, MessageButtons::Ok);
  return false;
}

void InvoicePanel::TurnAll(int column) {
  if (!open_ || column != kTickColumn) return;
  const Status turned = TurnAllTicks(shop_, day_);
  Select();
  if (!turned.Ok()) Refuse(turned);
}

std::optional<std::string> InvoicePanel::ReadNumber() {
  auto number = ReadInvoiceNumber(Field(kNumber));
  if (number) return number;
  const std::string typed = Trim(Field(kNumber));
  Warn((typed.empty() ? "Fatura numarası boş" : typed + " fatura numarası değil") + ": S ve rakamlarla yazın, S000041 gibi");
  screen_.Fat(kNumber).SetFocus();
  return std::nullopt;
}

InvoiceOrder InvoicePanel::ReadOrder(const std::string& number) const {
  InvoiceOrder order;
  order.day = day_;
  order.number = number;
  order.taxMode = TaxModeOnScreen(screen_);
  order.itemInFront = cursors_.StokData.CurrentKey();
  return order;
}

void InvoicePanel::Print() {
  if (!open_) return;
  const InvoicePrinter printer(printers_, screen_);
  if (!printer.IsThere()) return;
  if (!Fits()) return;
  const auto number = ReadNumber();
  if (!number) return;
  screen_.SetBusy(true);
  const InvoiceOrder order = ReadOrder(*number);
  const bool writable = FitsIntoWords(order);
  const Status made = writable ? Make(order) : Status();
  screen_.SetBusy(false);
  if (!writable) Warn("Fatura tutarı yazıyla yazılamayacak kadar büyük: satırları birkaç faturaya bölün");
  if (!made.Ok()) Refuse(made);
}

// One that is booked can't be taken back, and without its total in words it can't be printed either.
bool InvoicePanel::FitsIntoWords(const InvoiceOrder& order) const {
  if (!screen_.MnPop(kInWords).Checked()) return true;
  const Outcome<Invoice> foreseen = WorkOutInvoice(shop_, order);
  // Why it can't be worked out is told by the booking.
  return !foreseen || YazıylaTutar(Format(foreseen->total, "#,##0.00")).has_value();
}

Status InvoicePanel::Make(const InvoiceOrder& order) {
  const bool plain = order.day.withInvoiced;
  const Outcome<Invoice> invoice = plain ? WorkOutInvoice(shop_, order) : BookInvoice(shop_, order);
  return ShowBooked<Invoice>(form_, invoice, [this, plain](const Invoice& booked) { ShowPrinted(booked, plain); });
}

void InvoicePanel::ShowPrinted(const Invoice& invoice, bool plain) {
  if (invoice.lines.empty()) {
    Tell(screen_, "Fatura yazdırılmadı: işaretli satır yok");
    Close();
    return;
  }
  const InvoicePrinter printer(printers_, screen_);
  if (!plain) {
    screen_.Fat(kNumber).SetText(invoice.number);
    step("refresh invoices", cursors_.Fatura.Refresh());
    step("find invoice", cursors_.Fatura.FindFirst("FaturaNo=" + sources::Quoted(invoice.number)));
  }
  Remember(invoice, PrintInvoice(parts_, invoice, ReadPrinted()));
  const std::string printed = screen_.Durum.Caption();
  Close();
  if (!open_) return;
  Select();
  Tell(screen_, printed + "; adres karta yazılamadı, Kapat'a yeniden dokunun");
}

void InvoicePanel::Remember(const Invoice& invoice, bool printed) {
  std::vector<std::string>& numbers = unprinted_[day_.customerCode];
  std::erase(numbers, invoice.number);
  if (!printed && !invoice.id.empty()) numbers.push_back(invoice.number);
}

// What was booked and did not come out is printed once more under its own number. One that the clerk typed stays.
void InvoicePanel::ShowNumber() {
  const std::vector<std::string>& numbers = unprinted_[day_.customerCode];
  if (numbers.empty()) return;
  const std::string& unprinted = numbers.back();
  const std::string& shown = day_.withInvoiced ? offered_ : unprinted;
  if (Field(kNumber) == shown) screen_.Fat(kNumber).SetText(day_.withInvoiced ? unprinted : offered_);
}

void InvoicePanel::Refuse(const Status& why) {
  if (why.Kind() == ErrorKind::NoRecord) {
    Tell(screen_, "Müşterinin kartı başka bir terminalde silinmiş");
  } else if (why.Kind() == ErrorKind::BadText) {
    Warn("Faturada en çok altı ayrı Kdv oranı olabilir: satırları iki faturaya bölün");
  } else {
    ShowRefusal(screen_, world_, why);
  }
}

void InvoicePanel::Warn(const std::string& words) {
  Tell(screen_, words);
  world_.messages.MessageBox(words, "Dikkat", MessageIcon::Stop, MessageButtons::Ok);
}

CustomerAddress InvoicePanel::ReadAddress() const {
  return {Field(kStreet), Field(kCity), Field(kTaxOffice), Field(kTaxNumber), Field(kEmail)};
}

InvoiceAddress InvoicePanel::ReadPrinted() const {
  return {Field(kTitle), Field(kStreet), Field(kCity), Field(kTaxOffice), Field(kTaxNumber)};
}

void InvoicePanel::Leave() {
  if (!open_) return;
  Tell(screen_, "Fatura ekranı kapatıldı");  // what hinders it is told after it
  Close();
}

void InvoicePanel::Close() {
  if (open_ && KeepsAddress()) screen_.FatFrame.SetVisible(false);
}

// What was not touched is not written: another terminal may have changed the card meanwhile. A typed address is not lost to a card that
// could not be written just now; nor does a card that takes none keep the panel open for ever.
bool InvoicePanel::KeepsAddress() {
  const CustomerAddress address = ReadAddress();
  if (address == address_) return true;
  const Status kept = ChangeAddress(shop_, day_.customerCode, address);
  if (kept.Ok()) {
    address_ = address;
    return true;
  }
  Refuse(kept);
  if (kept.Kind() == ErrorKind::NoRecord) return true;
  const bool again = std::exchange(refused_, address) == address;
  return again && world_.messages.MessageBox("Adres yine kaydedilemedi. Kaydetmeden kapatılsın mı?", "Dikkat", MessageIcon::Question,
                                             MessageButtons::YesNo) == MessageAnswer::Yes;
}

void InvoicePanel::Closed() {
  if (!open_ || screen_.FatFrame.Visible()) return;
  open_ = false;
  switching_ = true;
  screen_.FatDüzChk.SetChecked(false);
  switching_ = false;
  behind_.Release();
  const Muted muted(form_.RepositionGuard, Mute::DayBook);
  step("day book", cursors_.HareketData.Open(sources::DayBookOf(day_.customerCode)));
}

}  // namespace karvel
