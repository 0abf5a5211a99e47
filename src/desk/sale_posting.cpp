#include "desk/sale_posting.h"

#include <array>
#include <string_view>

#include "books/card_balance.h"
#include "books/safe_calc.h"
#include "books/sources.h"
#include "books/steps.h"
#include "platform/clock.h"
#include "platform/event_loop.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

// Where a price that was typed over is remembered, and which card price it is compared with.
struct PriceMemory {
  std::string_view name;  // Label1(2)
  std::string_view cardField;
  std::string_view memoryField;
};
constexpr std::array kPriceMemories{
    PriceMemory{"1.Fiyat", "Fiyat", "0Fiyat"},
    PriceMemory{"Özel", "Fiyat", "0Fiyat"},
    PriceMemory{"2.Fiyat", "Fiyat2", "1Fiyat"},
    PriceMemory{"3.Fiyat", "Fiyat3", "2Fiyat"},
};

const Steps step("PostLine");

}  // namespace

struct SalePosting::Line {
  DateTime now;
  std::string mode;       // Label4
  std::string priceName;  // Label1(2)
  std::string stockCode;
  std::string customerList;  // the source to go back to, when the customer was found outside it
  double amount = 0;
  double profit = 0;
  [[nodiscard]] bool IsSale() const { return mode == "Satış"; }
  [[nodiscard]] bool IsReturn() const { return mode == "İade"; }
};

Status SalePosting::PostLine() {
  Action action(world_.stores, "PostLine");
  if (!action.Begun().Ok()) return action.Finish();

  // 1. What is posted. The amount is the one on the screen_: it was worked out in the unit that the clerk saw.
  Line line;
  line.now = world_.clock.Now();
  line.mode = screen_.Label4.Caption();
  line.priceName = screen_.Label1(2).Caption();
  line.stockCode = cursors_.StokData.Text("StokKod");
  form_.RepositionGuard = 555;
  line.amount = NumberOrZero(screen_.Label2.Caption());
  const std::string quantity = screen_.Text2(1).Text();
  const std::string balance = screen_.Label5.Caption();

  FindOrAddCustomer(line);  // 2.
  if (!line.IsReturn()) {   // 3.
    RememberPrice(line);    // 4.
    BookDueDate(line);      // 5.
  }
  form_.CurrentLineId = numbers_.NextLineId();  // 6.
  OpenStockMovement(line);                      // 7., 8.
  if (!line.IsReturn()) BookProfit(line);       // 9.
  BookDay(line);                                // 10., 11.
  BookSerials(line);                            // 12.
  MoveStock(line);                              // 13. to 15.
  BookLedger(line);                             // 16.
  MoveBalance(line);                            // 17. to 19.

  const Status done = action.Finish();
  if (!line.customerList.empty()) {
    step("customer list", cursors_.CariData.Open(line.customerList));
    step("find customer", cursors_.CariData.FindFirst("CariKod=" + sources::Quoted(form_.CurrentCustomerCode)));
  }
  form_.RepositionGuard = 100;
  step("refresh day book", cursors_.HareketData.Refresh());
  if (!done.Ok()) {
    // Nothing was posted: the fields stand as before, so that the clerk can press again when the cause is gone.
    form_.RepositionGuard = 66;
    screen_.Text2(1).SetText(quantity);
    screen_.Label5.SetCaption(balance);
  }
  form_.RepositionGuard = 0;
  if (!done.Ok()) return done;
  screen_.List1.ClearItems();
  ResetFields();  // 20.
  return done;
}

void SalePosting::FindOrAddCustomer(Line& line) {
  Cursor& customers = cursors_.CariData;
  std::string& code = form_.CurrentCustomerCode;
  const auto find = [&] { step("find customer", customers.FindFirst("CariKod=" + sources::Quoted(code))); };
  find();
  if (!customers.NoMatch()) return;
  // Another terminal may have moved the card out of the list in front: it is looked for among all cards before one is added.
  line.customerList = customers.RecordSource();
  step("all cards", customers.Open("CariKartlar"));
  find();
  if (!customers.NoMatch()) return;
  // A line can make its own customer. The sale goes on under the new card's code, or the next line would make another.
  const std::string& name = screen_.Text1(0).Text();
  code = LeftLetters(name, 20);
  step("add customer", customers.AddNew());
  customers.Set("CariKod", code);
  customers.Set("Unvan", name);
  step("update customer", customers.Update());
  find();
}

void SalePosting::RememberPrice(const Line& line) {
  Cursor& special = cursors_.OzelFiyat;
  const Cursor& card = cursors_.StokData;
  const double price = NumberOrZero(screen_.Text2(0).Text());
  const std::string customer = cursors_.CariData.Text("CariKod");
  step("find special price", special.FindFirst("StokKod=" + sources::Quoted(line.stockCode) + " And CariKod=" + sources::Quoted(customer)));
  if (special.NoMatch()) {
    step("add special price", special.AddNew());
    special.Set("StokKod", line.stockCode);
    special.Set("CariKod", customer);
  } else {
    step("edit special price", special.Edit());
  }
  bool written = false;
  for (const PriceMemory& memory : kPriceMemories) {
    if (line.priceName != memory.name || price == card.Number(memory.cardField)) continue;
    special.Set(memory.memoryField, price);
    written = true;
  }
  if (written) {
    step("update special price", special.Update());
  } else {
    special.CancelUpdate();
  }
}

void SalePosting::BookDueDate(const Line& line) {
  Cursor& due = cursors_.VadeData;
  std::string& criteria = form_.CriteriaText;
  criteria = "#" + Format(line.now, "mm/dd/yyyy") + "#";
  bool found = false;
  if (due.HasRows()) {
    step("find due date", due.FindFirst("VadeTarih=" + criteria));
    found = !due.NoMatch();
  }
  if (found) {
    step("edit due date", due.Edit());
  } else {
    step("add due date", due.AddNew());
    due.Set(0, cursors_.CariData.Get(0));
    due.Set(1, line.now.Date());
  }
  due.Set(2, due.Number(2) + line.amount);
  step("update due date", due.Update());
  step("refresh due dates", due.Refresh());
}

void SalePosting::OpenStockMovement(Line& line) {
  Cursor& movement = cursors_.StokHarData;
  const Cursor& card = cursors_.StokData;
  const Cursor& customer = cursors_.CariData;
  if (movement.HasRows()) step("last movement", movement.MoveLast());
  step("add movement", movement.AddNew());
  movement.Set("StokHarKod", line.stockCode);
  movement.Set("Tarih", line.now.Date());
  movement.Set("Aciklama", card.Text("StokAdi") + " " + line.mode + " İle");
  movement.Set("Tutar", line.amount);
  if (line.priceName == "2.Fiyat") {
    movement.Set("Birim", card.Text("Birim2"));
    const double pieces = card.Number("Adet2");
    if (pieces != 0) {
      // The stock counts first units. The amount keeps its own: it was worked out before.
      form_.RepositionGuard = 66;
      screen_.Text2(1).SetText(PlainNumber(NumberOrZero(screen_.Text2(1).Text()) * pieces));
      form_.RepositionGuard = 0;
    }
  } else {
    movement.Set("Birim", card.Text("Birim"));
  }
  movement.Set("Miktar", screen_.Text2(1).Text());
  movement.Set("Fiyat", screen_.Text2(0).Text());
  movement.Set("GirisCikis", line.mode);
  movement.Set("Carisi", customer.Text("CariKod"));
  movement.Set("DigerId", form_.CurrentLineId);
  movement.Set("Nerde", "C");
  movement.Set("SatTar", movement.Get("Tarih"));
  movement.Set("StokAd", card.Text("StokAdi"));
  movement.Set("Unvan", customer.Text("Unvan"));
  movement.Set("Barkod", card.Text("Barkod"));
  movement.Set("Maliyet", card.Number("gFiyat"));
  movement.Set("SeriNo", form_.ScannedSerial);
  movement.Set("Gurup", card.Text("Gurup"));
  movement.Set("yeni", 1);
  movement.Set("Plasiyer", "WinKarvel" + form_.TerminalNo);
  movement.Set("tGurup", "WinKarvel" + form_.TerminalNo);
}

void SalePosting::BookProfit(Line& line) {
  Cursor& movement = cursors_.StokHarData;
  if (cursors_.StokData.Number("Maliyet") != 0) {
    const std::string cost = SafeCalc(CalcOp::Multiply, screen_.Text2(1).Text(), movement.Get("Maliyet"));
    // A loss is booked as no profit.
    line.profit = std::max(0.0, SafeCalcNumber(CalcOp::Subtract, line.amount, cost));
  }
  movement.Set("Kar", line.profit + movement.Number("Kar"));
  // With a group chosen the sale belongs to that salesman's group; the first entry stands for no group.
  if (screen_.ComboCmd.Caption() == "Cari" && screen_.GurupCombo.ListIndex() > 0) movement.Set("Plasiyer", screen_.GurupCombo.Text());
}

void SalePosting::BookDay(const Line& line) {
  const Cursor& movement = cursors_.StokHarData;
  Cursor& day = cursors_.HareketData;
  form_.RepositionGuard = 100;
  step("add day-book row", day.AddNew());
  day.Set("CariKod", movement.Get("Carisi"));
  day.Set("StokKod", movement.Get("StokHarKod"));
  day.Set("CariAd", movement.Get("Unvan"));
  day.Set("StokAd", movement.Get("StokAd"));
  day.Set("Fiyat", screen_.Text2(0).Text());
  day.Set("Miktar", screen_.Text2(1).Text());
  day.Set("Tutar", line.amount);
  day.Set("Tarih", line.now);
  day.Set("DigerId", movement.Get("DigerId"));
  day.Set("Birim", movement.Get("Birim"));
  day.Set("yeni", 1);
  day.Set("Durum", line.mode);
  day.Set("Gurup", cursors_.StokData.Text("Gurup"));
  // The day book counts terminals from 0, the movement carries the two digits.
  day.Set("Plasiyer", numbers_.DayBookTag());
  day.Set("tGurup", numbers_.DayBookTag());
  day.Set("SeriNo", form_.SlipNo);
  day.Set("Kar", movement.Get("Kar"));
  step("update day-book row", day.Update());
  step("update movement", cursors_.StokHarData.Update());
}

void SalePosting::BookSerials(const Line& line) {
  Cursor& serials = cursors_.SeriNoData;
  for (const std::string& serial : screen_.List1.Items()) {
    step("add serial", serials.AddNew());
    serials.Set("StokKod", line.stockCode);
    serials.Set("CariKod", cursors_.CariData.Text("CariKod"));
    serials.Set("StokAd", cursors_.StokData.Text("StokAdi"));
    serials.Set("CariAd", cursors_.CariData.Text("Unvan"));
    serials.Set("Tarih", line.now);
    serials.Set("alsat", "Alış");
    serials.Set("yeni", 1);
    serials.Set("DigerId", form_.CurrentLineId);
    serials.Set("AlFiyat", screen_.Text2(0).Text());
    serials.Set("barcode", serial);
    step("update serial", serials.Update());
  }
}

void SalePosting::MoveStock(const Line& line) {
  Cursor& card = cursors_.StokData;
  const std::string& quantity = screen_.Text2(1).Text();
  step("edit stock card", card.Edit());
  const bool out = line.IsSale();
  const char* const count = out ? "CikanMik" : "GirenMik";
  const char* const total = out ? "CikanTutar" : "GirenTutar";
  card.Set(count, SafeCalc(CalcOp::Add, quantity, card.Get(count)));
  card.Set(total, SafeCalc(CalcOp::Add, card.Get(total), line.amount));
  if (out) card.Set("Kar", SafeCalc(CalcOp::Add, card.Get("Kar"), line.profit));
  ApplyStockBalance(card);
  form_.RepositionGuard = 66;
  step("update stock card", card.Update());
  world_.loop.RunPendingButInput();
}

void SalePosting::BookLedger(const Line& line) {
  Cursor& ledger = cursors_.CariHarData;
  const Cursor& card = cursors_.StokData;
  if (ledger.HasRows()) step("last ledger row", ledger.MoveLast());
  step("add ledger row", ledger.AddNew());
  ledger.Set("cariharkod", cursors_.CariData.Text("CariKod"));
  ledger.Set("Tarih", line.now);
  ledger.Set("Aciklama", card.Text("StokAdi") + " " + line.mode);
  ledger.Set("Bilgi1", line.stockCode);
  ledger.Set("Bilgi2", card.Text("StokAdi"));
  ledger.Set("Birim", card.Text("Birim"));
  ledger.Set("Borc", line.IsSale() ? line.amount : 0.0);
  ledger.Set("Alacak", line.IsSale() ? 0.0 : line.amount);
  ledger.Set("Carisi", line.stockCode);
  ledger.Set("Unvan", card.Text("StokAdi"));
  ledger.Set("DigerId", form_.CurrentLineId);
  ledger.Set("Nerde", "S");
  ledger.Set("Miktar", screen_.Text2(1).Text());
  ledger.Set("Fiyat", screen_.Text2(0).Text());
  ledger.Set("yeni", 1);
  step("update ledger row", ledger.Update());
}

void SalePosting::MoveBalance(const Line& line) {
  Cursor& customer = cursors_.CariData;
  form_.RepositionGuard = 99;
  step("edit customer card", customer.Edit());
  const char* const side = line.IsSale() ? "Borc" : "Alacak";
  customer.Set(side, customer.Number(side) + line.amount);
  const CardBalance balance = ApplyBalance(customer);
  screen_.Label5.SetColor(balance.side == "Alacak" ? color::kRed : color::kBlack);
  screen_.Label5.SetCaption(" " + PlainNumber(balance.amount));
  form_.RepositionGuard = 555;
  step("update customer card", customer.Update());
}

void SalePosting::ResetFields() {
  Screen& screen = screen_;
  screen.Text2(1).SetText("0");
  screen.Label1(2).SetCaption("1.Fiyat");
  screen.Text2(0).SetText(PlainNumber(form_.PriceSlots[0]));
  screen.Frame4.SetVisible(false);  // a serial read from here on would belong to no line
  if (screen.Command2.Caption() == "Tamam") screen.Command2.SetEnabled(true);
  screen.StokGrid.SetFocus();
}

}  // namespace karvel
