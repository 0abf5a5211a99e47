#include "desk/customer_list.h"

#include "books/sources.h"
#include "books/steps.h"
#include "desk/booking_panels.h"
#include "desk/completion.h"
#include "desk/list_in_front.h"
#include "desk/new_cards.h"
#include "desk/screen_keyboard.h"
#include "platform/clock.h"
#include "platform/keyboard.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {
const Steps step("CustomerList");
}

CustomerList::CustomerList(const DeskParts& parts, PriceSelection& prices, DayTotal& dayTotal)
    : screen_(parts.screen),
      form_(parts.form),
      cursors_(parts.cursors),
      settings_(parts.settings),
      world_(parts.world),
      prices_(prices),
      dayTotal_(dayTotal) {
  Screen& screen = screen_;
  connections_ += cursors_.CariData.repositioned.Connect([this] { Followed(); });
  connections_ += screen.GurupCombo.click.Connect([this] { GroupChosen(); });
  connections_ += screen.ComboCmd.click.Connect([this] { FlipGroupList(); });
  connections_ += screen.Text1(0).changed.Connect([this] { TextChanged(); });
  connections_ += screen.Text1(0).gotFocus.Connect([this] { Focused(); });
  connections_ += screen.Text1(0).keyUp.Connect([this](const KeyEvent& event) { KeyUp(event); });
  connections_ += screen.Text1(0).character.Connect([this](CharacterEvent& event) { Character(event); });
  connections_ += screen.Vadefrm.click.Connect([&screen] { screen.Vadefrm.SetVisible(false); });
  connections_ += screen.Frame2.altered.Connect([this, &screen] {
    if (groupWaits_ && !screen.Frame2.Visible() && screen.ComboCmd.Caption() == "Cari") CustomerGroupChosen();
  });
}

void CustomerList::Followed() {
  if (form_.RepositionGuard == 555 || form_.KeyboardOpen) return;
  Cursor& customers = cursors_.CariData;
  if (!customers.SourceTable() || customers.SourceTable()->Position("Unvan") < 0) return;  // the list shows stock or the day book
  if (customers.HasCurrent() && form_.RepositionGuard < 99 && screen_.Label4.Caption() != "Alış") {
    const bool listInFront = screen_.CariGrid.Visible();
    if (listInFront) screen_.Text1(0).SetText(customers.Text("Unvan"));
    const std::string code = customers.Text("CariKod");
    cursors_.HareketData.SetRecordSource(sources::DayBookOf(code));
    cursors_.CariHarData.SetRecordSource(sources::LedgerOf(code));
    step("due dates", cursors_.VadeData.Open(sources::DueDatesOf(customers.Text(0))));
    if (listInFront) {
      screen_.Label5.SetCaption(PlainNumber(customers.Number("Bakiye")));
      screen_.Label8.SetCaption(code);
    }
    ShowOverdue();
  }
  step("refresh day book", cursors_.HareketData.Refresh());
  step("refresh ledger", cursors_.CariHarData.Refresh());
  step("refresh due dates", cursors_.VadeData.Refresh());
  if (!screen_.CariGrid.Visible() && form_.RepositionGuard < 99 && screen_.Label4.Caption() != "Alış") dayTotal_.ShowToday();
  if (!EqualText(screen_.Text1(0).Text(), sources::kWalkIn)) {
    screen_.Command1.SetCaption("Yazdır");
  } else if (form_.RepositionGuard < 99) {
    screen_.Command1.SetCaption("Tahsilat");
  }
}

void CustomerList::ShowOverdue() {
  screen_.Vadefrm.SetVisible(false);
  const Cursor& customers = cursors_.CariData;
  Cursor& due = cursors_.VadeData;
  if (customers.Number("Bakiye") <= 0 || customers.Text("Hesap") != "Borç" || !due.HasRows()) return;
  step("find due date", due.FindFirst("CariKod=" + sources::Quoted(customers.Text("CariKod"))));
  if (due.NoMatch()) return;
  const std::int64_t days = world_.clock.Now().DayNumber() - AsDate(due.Get(1)).DayNumber();
  screen_.Label15.SetCaption(PlainNumber(static_cast<double>(days)));
  if (days == 0) return;
  screen_.Label15.SetCaption(screen_.Label15.Caption() + " Gün");
  screen_.Vadefrm.SetVisible(true);
  screen_.Vadefrm.BringToFront();
}

void CustomerList::FillGroups() {
  std::vector<std::string> items{sources::kAllGroups};
  Cursor& groups = cursors_.GurupData;
  step("refresh groups", groups.Refresh());
  for (; groups.HasCurrent(); step("next group", groups.MoveNext()))
    if (const std::string name = groups.Text("Gurup"); !ContainsText(name, "WinKarvel")) items.push_back(name);
  screen_.GurupCombo.SetItems(std::move(items));
}

void CustomerList::ShowGroup(const std::string& group) {
  showing_ = true;
  if (!screen_.GurupCombo.ChooseText(group)) screen_.GurupCombo.Choose(0);
  showing_ = false;
}

void CustomerList::GroupChosen() {
  if (showing_ || !screen_.ComboCmd.Visible()) return;
  if (screen_.ComboCmd.Caption() == "Cari") {
    if (screen_.Frame2.Visible()) {
      KeepGroupForLater();
    } else {
      CustomerGroupChosen();
    }
  } else {
    StockGroupChosen();
  }
}

// In a sale the customer stands; another list under it would book the sale elsewhere. The prices follow at once, the list after the sale.
void CustomerList::KeepGroupForLater() {
  form_.CustomerGroup = screen_.GurupCombo.Text();
  settings_.Save(Setting::CustomerGroup, form_.CustomerGroup);
  prices_.SetFirstPriceColumn();
  groupWaits_ = true;
}

void CustomerList::CustomerGroupChosen() {
  CloseBookingPanels(screen_);
  groupWaits_ = false;
  screen_.StokChk.SetChecked(false);  // a group of customers is a wish for customers
  const std::string group = screen_.GurupCombo.Text();
  screen_.Text1(0).SetText("");
  Cursor& customers = cursors_.CariData;
  customers.SetRecordSource(group == sources::kAllGroups ? sources::kAllCustomers : sources::CustomersOfGroup(group));
  const bool wholesale = EqualText(group, "Toptan");
  screen_.Label1(5).SetCaption(wholesale ? " Ödeme" : " Tahsilat");
  screen_.Label1(0).SetCaption(wholesale ? " Toptan" : " Satış");
  form_.CustomerGroup = group;
  settings_.Save(Setting::CustomerGroup, group);
  form_.RepositionGuard = 99;
  step("refresh customers", customers.Refresh());
  form_.RepositionGuard = 0;
  if (customers.HasRows()) screen_.Text1(0).SetText(customers.Text(1));
  FollowInFront();
  if (customers.HasRows()) screen_.CariGrid.SetFocus();
  prices_.SetFirstPriceColumn();
}

void CustomerList::StockGroupChosen() {
  const std::string group = screen_.GurupCombo.Text();
  cursors_.StokData.SetRecordSource(screen_.GurupCombo.ListIndex() <= 0 ? sources::kStock : sources::StockOfGroup(group));
  form_.StockGroup = group;
  settings_.Save(Setting::StockGroup, group);
  form_.RepositionGuard = 66;
  step("refresh stock", cursors_.StokData.Refresh());
  form_.RepositionGuard = 0;
  if (screen_.Frame2.Visible()) ShowUnsoldItem();
}

void CustomerList::ShowUnsoldItem() {
  Screen& screen = screen_;
  if (!cursors_.StokData.HasCurrent()) screen.Text1(1).SetText("");
  prices_.ShowItem();
  screen.Text2(1).SetText("0");
}

void CustomerList::FlipGroupList() {
  const bool toStock = screen_.ComboCmd.Caption() == "Cari";
  screen_.ComboCmd.SetCaption(toStock ? "Stok" : "Cari");
  cursors_.GurupData.SetDatabaseName(form_.DataDir + (toStock ? "Stok.Mdb" : "Cari.Mdb"));
  FillGroups();
  ShowGroup(toStock ? form_.StockGroup : form_.CustomerGroup);
  // The list is that of the group that now stands there. Among the customers it is so already.
  if (toStock) StockGroupChosen();
}

void CustomerList::KeepWalkIn() {
  form_.RepositionGuard = 555;
  Cursor& customers = cursors_.CariData;
  // Looked for among all cards, whatever list is in front: he exists once, however many starts and terminals.
  Action action(world_.stores, "KeepWalkIn");
  const std::string list = customers.RecordSource();
  step("all cards", customers.Open("CariKartlar"));
  step("find walk-in customer", customers.FindFirst(std::string("Unvan='") + sources::kWalkIn + "'"));
  if (customers.NoMatch()) {
    step("add walk-in customer", customers.AddNew());
    customers.Set("CariKod", sources::kWalkIn);
    customers.Set("Unvan", sources::kWalkIn);
    customers.Set(27, Value(std::string("1")));
    customers.Set("Gurup", "Müşteri");
    step("update walk-in customer", customers.Update());
  }
  step("commit walk-in customer", action.Finish());
  step("customer list", customers.Open(list));
  form_.RepositionGuard = 0;
}

void CustomerList::Focused() {
  if (form_.RepositionGuard == 66) return;
  form_.ActiveFieldCode = 0;
  Cursor& customers = cursors_.CariData;
  if (screen_.Text1(0).Text().empty() && customers.HasRows() && !screen_.StokChk.Checked()) {
    const float guard = form_.RepositionGuard;
    form_.RepositionGuard = 555;
    step("refresh customers", customers.Refresh());
    screen_.Text1(0).SetText(customers.Text("Unvan"));
    form_.RepositionGuard = guard;
    FollowInFront();  // the balance beside the name is this customer's
  }
  screen_.Text1(0).SelectAll();  // the next name takes the place of what stands there
}

void CustomerList::FollowInFront() {
  Cursor& customers = cursors_.CariData;
  if (customers.HasCurrent()) {
    step("customer in front", customers.MoveTo(customers.CurrentKey()));
    return;
  }
  screen_.Text1(0).SetText("");
  screen_.Label5.SetCaption("0");
  screen_.Label8.SetCaption("");
  screen_.Vadefrm.SetVisible(false);
}

void CustomerList::TextChanged() {
  const std::string& text = screen_.Text1(0).Text();
  if (!screen_.Text1(0).HasFocus() || Trim(text).empty() || text == "*") return;
  if (screen_.StokChk.Checked()) {
    step("find name", cursors_.StokData.FindFirst("StokAdi Like '" + text + "*'"));
    return;
  }
  Cursor& customers = cursors_.CariData;
  if (text == customers.Text("Unvan")) return;  // the row in front is the one meant
  const float guard = form_.RepositionGuard;
  form_.RepositionGuard = 99;
  step("find customer", customers.FindFirst("Unvan Like '" + text + "*'"));
  form_.RepositionGuard = guard;
}

void CustomerList::KeyUp(const KeyEvent& event) {
  Element& field = screen_.Text1(0);
  if (!ListsCustomers(screen_) || !IsCompletingKey(event) || field.Text().empty() || field.Text() == "*") return;
  Cursor& customers = cursors_.CariData;
  if (customers.HasCurrent() && customers.Text("Unvan") == field.Text()) return;
  form_.RepositionGuard = 99;
  step("find customer", customers.FindFirst("Unvan Like '" + field.Text() + "*'"));
  const bool found = !customers.NoMatch();
  form_.RepositionGuard = 0;
  if (found && !form_.KeyboardOpen) Complete(field, customers.Text("Unvan"));
}

void CustomerList::Character(CharacterEvent& event) {
  if (event.character != key::kEnter) return;
  event.character = 0;
  if (!ListsCustomers(screen_)) return;
  CloseKeyboard(form_, screen_);  // what was typed on it is taken, so the list follows again
  const std::string text = screen_.Text1(0).Text();
  Element& list = screen_.CariGrid.Visible() ? static_cast<Element&>(screen_.CariGrid) : screen_.StokGrid;
  Cursor& customers = cursors_.CariData;
  if (customers.HasCurrent() && customers.Text("Unvan") == text) {
    // The row in front is the one meant, also when another bears the same name.
    step("customer in front", customers.MoveTo(customers.CurrentKey()));
  } else {
    step("find customer", customers.FindFirst("Unvan Like '" + text + "*'"));
    if (customers.NoMatch()) {
      OpenCustomerCard(screen_, Trim(text));
      return;
    }
  }
  step("day book", cursors_.HareketData.Open(sources::DayBookOf(customers.Text("CariKod"))));
  list.SetFocus();
}

}  // namespace karvel
