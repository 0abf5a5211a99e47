#include "accounts/stock_list.h"

#include <utility>

#include "accounts/row_deletion.h"
#include "books/sources.h"
#include "books/steps.h"
#include "desk/booking_panels.h"
#include "desk/captions.h"
#include "desk/entry_fields.h"
#include "desk/list_columns.h"
#include "desk/refresh.h"
#include "desk/screen_keyboard.h"
#include "platform/files.h"
#include "text/turkish.h"

namespace karvel {
namespace {

const Steps step("StockList");

// The list of customers that comes back is longer than the standard one: it has the salesmen and the central site too.
const std::string kCustomersBack =
    "Select * From CariKartlar Where HesKullan=False And Gurup<>'Toptan' And Left(CariKod,1)<>'=' Order By Unvan Asc";

}  // namespace

StockList::StockList(const DeskParts& parts, MainButton& button, BalanceDisplay& figure, OverdueNotice& overdue)
    : screen_(parts.screen),
      form_(parts.form),
      cursors_(parts.cursors),
      world_(parts.world),
      button_(button),
      figure_(figure),
      overdue_(overdue) {
  Screen& screen = screen_;
  connections_ += screen.StokChk.click.Connect([this] { Toggled(); });
  connections_ += screen.StokCek.click.Connect([this] { Narrow(); });
  connections_ += screen.GrpCombo.click.Connect([this] { Narrow(); });
  connections_ += screen.Stoktxt.changed.Connect([this] { SearchChanged(); });
  connections_ += screen.Stoktxt.click.Connect([this] { SearchTapped(); });
  connections_ += screen.Stoktxt.gotFocus.Connect([&screen] { screen.Stoktxt.SelectAll(); });
  connections_ += screen.Stoktxt.lostFocus.Connect([this] { EndTyping(); });
  connections_ += screen.StokGrid.keyDown.Connect([this](KeyEvent& event) { DeleteRowOnKey(screen_, world_, cursors_.StokData, event); });
}

bool StockList::ListsStock() const {
  const DatabaseFile* const file = Catalogue::File(cursors_.CariData.DatabaseName());
  return screen_.StokChk.Checked() && file && file->Find("StokKartlar");
}

void StockList::Toggled() {
  if (screen_.StokChk.Checked()) screen_.CiroChk.SetChecked(false);  // the day's turnover gives the list back first
  if (IsWholesale(screen_)) {
    OpenReceipt();  // a wholesaler delivers
    return;
  }
  const bool stock = screen_.StokChk.Checked();
  // A sale needs its customer's row: the list turns only at rest.
  if (stock && !AtRest(screen_)) {
    switching_ = true;
    screen_.StokChk.SetChecked(false);
    switching_ = false;
    return;
  }
  if (!switching_) Turn(stock);
}

void StockList::Turn(bool stock) {
  EndTyping();
  CloseBookingPanels(screen_);
  overdue_.Hide();  // it speaks of a customer
  if (stock) {
    button_.Allow(false);
    screen_.Command1.SetCaption(caption::kPrint);  // nobody is in front who could collect
  } else {
    button_.FollowAmounts();
  }
  screen_.Command3.SetEnabled(!stock);
  screen_.Command4.SetEnabled(!stock);
  screen_.StokFrm.SetVisible(stock);
  if (stock) screen_.StokFrm.BringToFront();
  figure_.SetShown(!stock);
  screen_.SilinenChk.SetEnabled(!stock);
  {
    const Muted muted(form_.RepositionGuard, Mute::Customers);
    cursors_.CariData.Close();
    if (stock) {
      ShowStock();
    } else {
      ShowCustomers();
    }
  }
  // Text1(0), the balance and the day book follow to the customer in front: a payment must never go to a name that isn't on the screen.
  if (!stock) step("first customer", cursors_.CariData.MoveFirst());
}

void StockList::OpenReceipt() {
  Screen& screen = screen_;
  screen.StokAl.SetVisible(true);
  screen.StokAl.BringToFront();
  screen.StokChk.SetChecked(false);
  screen.Text6(0).SetFocus();
}

void StockList::ShowStock() {
  Screen& screen = screen_;
  screen.CariGrid.SetColumns(StockStatusColumns(form_));
  // All cards are listed at first, so the strip narrows nothing.
  switching_ = true;
  screen.GrpCombo.Choose(0);
  screen.StokCek.SetChecked(false);
  switching_ = false;
  Point("Stok.Mdb", sources::kStock);
}

void StockList::ShowCustomers() {
  CloseKeyboard(form_, screen_);
  screen_.CariGrid.SetColumns(CustomerColumns(form_));
  Point("Cari.Mdb", kCustomersBack);
}

void StockList::Point(const std::string& file, const std::string& source) {
  Cursor& list = cursors_.CariData;
  list.SetDatabaseName(PathIn(form_.DataDir, file));
  list.SetRecordSource(source);
  screen_.CariGrid.columnsSwitched();
  step("refresh list", VeriTazele(list, world_.loop));
}

void StockList::Narrow() {
  // Until the desk is open the first entry is only being preset.
  if (switching_ || !screen_.Command3.Visible() || !ListsStock()) return;
  std::string narrowed;
  if (screen_.GrpCombo.ListIndex() > 0) narrowed = " And Gurup=" + sources::Quoted(screen_.GrpCombo.Text());
  if (screen_.StokCek.Checked()) narrowed += " And KalanB<>0";
  cursors_.CariData.SetRecordSource("Select * From StokKartlar Where StokGizle=False " + narrowed + " Order By StokAdi ASC");
  step("narrow", VeriTazele(cursors_.CariData, world_.loop));
  screen_.Stoktxt.SetText("");
  screen_.Stoktxt.SetFocus();
}

void StockList::SearchChanged() {
  const std::string& text = screen_.Stoktxt.Text();
  if (Trim(text).empty()) return;
  // With the day's turnover in front the list is the day book.
  const char* const name = screen_.CiroChk.Checked() ? "StokAd" : "StokAdi";
  step("find name", cursors_.CariData.FindFirst(std::string(name) + " Like '" + text + "*'"));
}

void StockList::SearchTapped() {
  if (ChosenKeyboard(screen_) == KeyboardChoice::Never) {
    screen_.Stoktxt.SelectAll();
    return;
  }
  if (!ListsStock()) {
    OpenKeyboard(form_, screen_, screen_.Stoktxt);
    return;
  }
  const Muted muted(form_.RepositionGuard, Mute::Customers);
  if (typing_) {
    TakeTyped();
  } else {
    StartTyping();
  }
}

void StockList::StartTyping() {
  typing_ = true;
  step("all cards", cursors_.CariData.Open(sources::kStock));
  screen_.Stoktxt.SetText("");
  OpenKeyboard(form_, screen_, screen_.Stoktxt);
}

void StockList::EndTyping() {
  if (std::exchange(typing_, false)) CloseKeyboard(form_, screen_);
}

void StockList::TakeTyped() {
  EndTyping();
  Cursor& cards = cursors_.CariData;
  const std::string text = screen_.Stoktxt.Text();
  form_.LastStokSearch = text;
  step("cards of that name", cards.Open(sources::StockNamed(text)));
  step("find name", cards.FindFirst("StokAdi Like '" + text + "*'"));
  if (!cards.NoMatch()) screen_.Stoktxt.SetText(cards.Text("StokAdi"));
  screen_.CariGrid.SetFocus();
}

}  // namespace karvel
