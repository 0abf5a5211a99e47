#include "documents/invoice_panel.h"

#include "books/book_cursor.h"
#include "books/find_card.h"
#include "books/invoice_numbers.h"
#include "books/sources.h"
#include "books/steps.h"
#include "desk/captions.h"
#include "desk/quiet_line.h"
#include "desk/refusal.h"
#include "desk/unknown_outcome.h"
#include "documents/invoice_print.h"
#include "platform/messages.h"
#include "text/format.h"

namespace karvel {
namespace {

constexpr int kNumber = 0, kTitle = 1, kStreet = 2, kCity = 3, kTaxOffice = 4, kTaxNumber = 5, kAmount = 6, kQuantity = 7, kPrice = 8,
              kEmail = 9;
constexpr int kClose = 0, kPrint = 1;
constexpr int kTickColumn = 4;
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
  connections_ += screen.FatGrid.headClick.Connect([this](int column) { TurnAll(column); });
  connections_ += screen.FatCmd(kPrint).click.Connect([this] { Print(); });
  connections_ += screen.FatCmd(kClose).click.Connect([this] { Close(); });
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
  Tell(screen_, "Fatura " + screen_.Fat(kNumber).Text() + ": satırları denetleyip Yazdır'a dokunun");
}

Status InvoicePanel::Fill(const std::string& code) {
  BookCursor card(world_.stores, "invoiced customer", "Cari.Mdb", kCustomerCards);
  if (Status found = FindCustomer(card, code); !found.Ok()) return found;
  const Outcome<std::string> number = FreeInvoiceNumber(shop_, NextInvoiceNumber(parts_.settings.Get(Setting::InvoiceNo)));
  if (!number) return number.error();
  screen_.Fat(kNumber).SetText(*number);
  screen_.Fat(kTitle).SetText(card.Text("Unvan"));
  screen_.Fat(kStreet).SetText(card.Text("Adres1"));
  screen_.Fat(kCity).SetText(card.Text("Adres2"));
  screen_.Fat(kTaxOffice).SetText(card.Text("VergiDa"));
  screen_.Fat(kTaxNumber).SetText(card.Text("VergiNo"));
  screen_.Fat(kEmail).SetText(card.Text("Email"));
  address_ = ReadAddress();
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
  if (const Status cleared = TickFirstLines(shop_, day_, 0); !cleared.Ok()) Refuse(cleared);
  Select();
}

void InvoicePanel::PlainToggled() {
  if (switching_ || !open_) return;
  day_.withInvoiced = screen_.FatDüzChk.Checked();
  Select();
}

void InvoicePanel::Select() {
  const Muted muted(form_.RepositionGuard, Mute::DayBook);
  step("lines of the day", cursors_.HareketData.Open(LinesOf(day_)));
  screen_.FatCmd(kPrint).SetVisible(cursors_.HareketData.HasRows());
}

void InvoicePanel::TurnLine() {
  Cursor& lines = cursors_.HareketData;
  if (!open_ || !lines.HasCurrent()) return;
  const std::string item = lines.Text("StokKod");
  const Status turned = TurnTick(shop_, lines.CurrentKey(), day_.withInvoiced);
  if (!turned.Ok()) {
    if (turned.Kind() == ErrorKind::NoRecord) {
      Tell(screen_, "Satır başka bir terminalde silinmiş");
    } else {
      Refuse(turned);
    }
    Select();
    return;
  }
  {
    // As the list stands behind a count of its ticks: on the item's first line.
    const Muted muted(form_.RepositionGuard, Mute::DayBook);
    step("find line", lines.FindFirst("StokKod=" + sources::Quoted(item)));
  }
  screen_.FatCmd(kPrint).SetVisible(Fits());
}

bool InvoicePanel::Fits() {
  const Outcome<int> ticked = CountTicked(shop_, day_);
  if (!ticked) {
    Refuse(ticked.error());
    return false;
  }
  const double excess = *ticked - InvoiceLinesThatFit(parts_);
  if (excess <= 0) return true;
  const std::string lines = PlainNumber(excess) + " Satır Fazla";
  Tell(screen_, lines + ": faturaya sığmaz");
  world_.messages.MessageBox(lines + "\nFaturaya Sığmaz..!", "Dikkat", MessageIcon::Stop, MessageButtons::Ok);
  return false;
}

void InvoicePanel::TurnAll(int column) {
  if (!open_ || column != kTickColumn) return;
  if (const Status turned = TurnAllTicks(shop_, day_); !turned.Ok()) Refuse(turned);
  Select();
}

InvoiceOrder InvoicePanel::ReadOrder() const {
  InvoiceOrder order;
  order.day = day_;
  order.number = Field(kNumber);
  order.taxMode = TaxModeOnScreen(screen_);
  order.itemInFront = cursors_.StokData.CurrentKey();
  return order;
}

void InvoicePanel::Print() {
  if (!open_) return;
  const InvoicePrinter printer(printers_, screen_);
  if (!printer.IsThere()) return;
  if (!Fits()) {
    screen_.FatCmd(kPrint).SetVisible(false);
    return;
  }
  screen_.SetBusy(true);
  const bool plain = day_.withInvoiced;
  const InvoiceOrder order = ReadOrder();
  const Outcome<Invoice> invoice = plain ? WorkOutInvoice(shop_, order) : BookInvoice(shop_, order);
  const Status shown = ShowBooked<Invoice>(form_, invoice, [this, plain](const Invoice& booked) { ShowPrinted(booked, plain); });
  screen_.SetBusy(false);
  if (!shown.Ok()) Refuse(shown);
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
  PrintInvoice(parts_, invoice, ReadPrinted());
  Close();
}

void InvoicePanel::Refuse(const Status& why) {
  if (why.Kind() == ErrorKind::NoRecord) {
    Tell(screen_, "Müşterinin kartı başka bir terminalde silinmiş");
  } else if (why.Kind() == ErrorKind::BadText) {
    Tell(screen_, "Faturada en çok altı ayrı Kdv oranı olabilir: satırları iki faturaya bölün");
    world_.messages.MessageBox(screen_.Durum.Caption(), "Dikkat", MessageIcon::Stop, MessageButtons::Ok);
  } else {
    ShowRefusal(screen_, world_, why);
  }
}

CustomerAddress InvoicePanel::ReadAddress() const {
  return {Field(kStreet), Field(kCity), Field(kTaxOffice), Field(kTaxNumber), Field(kEmail)};
}

InvoiceAddress InvoicePanel::ReadPrinted() const {
  return {Field(kTitle), Field(kStreet), Field(kCity), Field(kTaxOffice), Field(kTaxNumber)};
}

void InvoicePanel::Close() {
  if (!open_) return;
  KeepAddress();
  screen_.FatFrame.SetVisible(false);
}

// What was not touched is not written: another terminal may have changed the card meanwhile.
void InvoicePanel::KeepAddress() {
  const CustomerAddress address = ReadAddress();
  if (address == address_) return;
  address_ = address;
  if (const Status kept = ChangeAddress(shop_, day_.customerCode, address); !kept.Ok()) Refuse(kept);
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
