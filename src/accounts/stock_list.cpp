#include "accounts/stock_list.h"

#include "accounts/row_deletion.h"
#include "desk/booking_panels.h"
#include "desk/list_columns.h"
#include "desk/refresh.h"
#include "desk/screen_keyboard.h"
#include "desk/sources.h"
#include "desk/steps.h"
#include "text/turkish.h"

namespace karvel {
namespace {

const Steps step("StockList");

// The customers that come back are more than the standard list: the salesmen and the central site are among them.
const std::string kCustomersBack =
    "Select * From CariKartlar Where HesKullan=False And Gurup<>'Toptan' And Left(CariKod,1)<>'=' Order By Unvan Asc";

}  // namespace

StockList::StockList(const DeskParts& parts) : parts_(parts) {
  Screen& screen = parts_.screen;
  screen.StokChk.click.Connect([this] { Toggled(); });
  screen.StokCek.click.Connect([this] { Narrow(); });
  screen.GrpCombo.click.Connect([this] { Narrow(); });
  screen.Stoktxt.changed.Connect([this] { SearchChanged(); });
  screen.Stoktxt.click.Connect([this] { SearchTapped(); });
  screen.Stoktxt.gotFocus.Connect([&screen] { screen.Stoktxt.SelectAll(); });
  screen.StokGrid.keyDown.Connect([this](KeyEvent& event) { DeleteRowOnKey(parts_, parts_.cursors.StokData, event); });
}

bool StockList::ListsStock() const {
  const DatabaseFile* const file = Catalogue::File(parts_.cursors.CariData.DatabaseName());
  return parts_.screen.StokChk.Checked() && file && file->Find("StokKartlar");
}

void StockList::Toggled() {
  auto& [screen, form, cursors, settings, world] = parts_;
  // 1. A wholesaler delivers: the tick opens the receipt.
  if (screen.Label1(0).Caption() == " Toptan") {
    OpenReceipt();
    return;
  }
  const bool stock = screen.StokChk.Checked();
  // A sale needs its customer's row: the list turns only at rest.
  if (stock && !screen.CariGrid.Visible()) {
    switching_ = true;
    screen.StokChk.SetChecked(false);
    switching_ = false;
    return;
  }
  if (switching_) return;
  CloseBookingPanels(screen);
  screen.Vadefrm.SetVisible(false);  // it speaks of a customer
  // 2.
  screen.Command2.SetEnabled(!stock);
  screen.Command3.SetEnabled(!stock);
  screen.Command4.SetEnabled(!stock);
  screen.StokFrm.SetVisible(stock);
  if (stock) screen.StokFrm.BringToFront();
  screen.Label5.SetVisible(!stock);
  screen.Label1(7).SetVisible(!stock);
  screen.SilinenChk.SetEnabled(!stock);
  // 3. to 5.
  form.RepositionGuard = 555;
  cursors.CariData.Close();
  if (stock) {
    ShowStock();
  } else {
    ShowCustomers();
  }
  form.RepositionGuard = 0;
  // Text1(0), the balance and the day book follow to the customer in front: a payment must never go to a name that isn't on the screen.
  if (!stock) step("first customer", cursors.CariData.MoveFirst());
}

void StockList::OpenReceipt() {
  Screen& screen = parts_.screen;
  screen.StokAl.SetVisible(true);
  screen.StokAl.BringToFront();
  screen.StokChk.SetChecked(false);
  screen.Text6(0).SetFocus();
}

void StockList::ShowStock() {
  Screen& screen = parts_.screen;
  screen.CariGrid.SetColumns(StockStatusColumns(parts_.form));
  // All cards are listed at first, so the strip narrows nothing.
  switching_ = true;
  screen.GrpCombo.Choose(0);
  screen.StokCek.SetChecked(false);
  switching_ = false;
  Point("Stok.Mdb", sources::kStock);
}

void StockList::ShowCustomers() {
  auto& [screen, form, cursors, settings, world] = parts_;
  CloseKeyboard(parts_);
  screen.CariGrid.SetColumns(CustomerColumns(form));
  Point("Cari.Mdb", kCustomersBack);
}

void StockList::Point(const std::string& file, const std::string& source) {
  Cursor& list = parts_.cursors.CariData;
  list.SetDatabaseName(parts_.form.DataDir + file);
  list.SetRecordSource(source);
  parts_.screen.CariGrid.columnsSwitched();
  step("refresh list", VeriTazele(list, parts_.world.loop));
}

void StockList::Narrow() {
  auto& [screen, form, cursors, settings, world] = parts_;
  // Before the desk has opened the first entry is only being chosen.
  if (switching_ || !screen.Command3.Visible() || !ListsStock()) return;
  std::string narrowed;
  if (screen.GrpCombo.ListIndex() > 0) narrowed = " And Gurup=" + sources::Quoted(screen.GrpCombo.Text());
  if (screen.StokCek.Checked()) narrowed += " And KalanB<>0";
  cursors.CariData.SetRecordSource("Select * From StokKartlar Where StokGizle=False " + narrowed + " Order By StokAdi ASC");
  step("narrow", VeriTazele(cursors.CariData, world.loop));
  screen.Stoktxt.SetText("");
  screen.Stoktxt.SetFocus();
}

void StockList::SearchChanged() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const std::string& text = screen.Stoktxt.Text();
  if (Trim(text).empty()) return;
  // With the day's turnover in front the list is the day book.
  const char* const name = screen.CiroChk.Checked() ? "StokAd" : "StokAdi";
  step("find name", cursors.CariData.FindFirst(std::string(name) + " Like '" + text + "*'"));
}

void StockList::SearchTapped() {
  auto& [screen, form, cursors, settings, world] = parts_;
  if (!ListsStock()) return;
  form.RepositionGuard = 555;
  if (form.KeyboardOpen) {
    TakeTyped();
  } else {
    StartTyping();
  }
  form.RepositionGuard = 0;
}

void StockList::StartTyping() {
  auto& [screen, form, cursors, settings, world] = parts_;
  step("all cards", cursors.CariData.Open(sources::kStock));
  screen.Stoktxt.SetText("");
  OpenKeyboard(parts_, screen.Stoktxt);
}

void StockList::TakeTyped() {
  auto& [screen, form, cursors, settings, world] = parts_;
  CloseKeyboard(parts_);
  Cursor& cards = cursors.CariData;
  const std::string text = screen.Stoktxt.Text();
  form.LastStokSearch = text;
  step("cards of that name", cards.Open(sources::StockNamed(text)));
  step("find name", cards.FindFirst("StokAdi Like '" + text + "*'"));
  if (!cards.NoMatch()) screen.Stoktxt.SetText(cards.Text("StokAdi"));
  screen.CariGrid.SetFocus();
}

}  // namespace karvel
