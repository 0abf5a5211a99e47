#include "desk/customer_list.h"

#include "desk/booking_panels.h"
#include "desk/completion.h"
#include "desk/list_in_front.h"
#include "desk/new_cards.h"
#include "desk/screen_keyboard.h"
#include "desk/sources.h"
#include "desk/steps.h"
#include "platform/clock.h"
#include "platform/keyboard.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {
const Steps step("CustomerList");
}

CustomerList::CustomerList(const DeskParts& parts, PriceSelection& prices, DayTotal& dayTotal)
    : parts_(parts), prices_(prices), dayTotal_(dayTotal) {
  Screen& screen = parts_.screen;
  parts_.cursors.CariData.repositioned.Connect([this] { Followed(); });
  screen.GurupCombo.click.Connect([this] { GroupChosen(); });
  screen.ComboCmd.click.Connect([this] { FlipGroupList(); });
  screen.Text1(0).changed.Connect([this] { TextChanged(); });
  screen.Text1(0).gotFocus.Connect([this] { Focused(); });
  screen.Text1(0).keyUp.Connect([this](const KeyEvent& event) { KeyUp(event); });
  screen.Text1(0).character.Connect([this](CharacterEvent& event) { Character(event); });
  screen.Vadefrm.click.Connect([&screen] { screen.Vadefrm.SetVisible(false); });
  screen.Frame2.altered.Connect([this, &screen] {
    if (groupWaits_ && !screen.Frame2.Visible() && screen.ComboCmd.Caption() == "Cari") CustomerGroupChosen();
  });
}

void CustomerList::Followed() {
  auto& [screen, form, cursors, settings, world] = parts_;
  if (form.RepositionGuard == 555 || form.KeyboardOpen) return;
  Cursor& customers = cursors.CariData;
  if (!customers.SourceTable() || customers.SourceTable()->Position("Unvan") < 0) return;  // the list shows stock or the day book
  if (customers.HasCurrent() && form.RepositionGuard < 99 && screen.Label4.Caption() != "Alış") {
    const bool listInFront = screen.CariGrid.Visible();
    if (listInFront) screen.Text1(0).SetText(customers.Text("Unvan"));
    const std::string code = customers.Text("CariKod");
    cursors.HareketData.SetRecordSource(sources::DayBookOf(code));
    cursors.CariHarData.SetRecordSource(sources::LedgerOf(code));
    step("due dates", cursors.VadeData.Open(sources::DueDatesOf(customers.Text(0))));
    if (listInFront) {
      screen.Label5.SetCaption(PlainNumber(customers.Number("Bakiye")));
      screen.Label8.SetCaption(code);
    }
    ShowOverdue();
  }
  step("refresh day book", cursors.HareketData.Refresh());
  step("refresh ledger", cursors.CariHarData.Refresh());
  step("refresh due dates", cursors.VadeData.Refresh());
  if (!screen.CariGrid.Visible() && form.RepositionGuard < 99 && screen.Label4.Caption() != "Alış") dayTotal_.ShowToday();
  if (!EqualText(screen.Text1(0).Text(), sources::kWalkIn)) {
    screen.Command1.SetCaption("Yazdır");
  } else if (form.RepositionGuard < 99) {
    screen.Command1.SetCaption("Tahsilat");
  }
}

void CustomerList::ShowOverdue() {
  auto& [screen, form, cursors, settings, world] = parts_;
  screen.Vadefrm.SetVisible(false);
  const Cursor& customers = cursors.CariData;
  Cursor& due = cursors.VadeData;
  if (customers.Number("Bakiye") <= 0 || customers.Text("Hesap") != "Borç" || !due.HasRows()) return;
  step("find due date", due.FindFirst("CariKod=" + sources::Quoted(customers.Text("CariKod"))));
  if (due.NoMatch()) return;
  const std::int64_t days = world.clock.Now().DayNumber() - AsDate(due.Get(1)).DayNumber();
  screen.Label15.SetCaption(PlainNumber(static_cast<double>(days)));
  if (days == 0) return;
  screen.Label15.SetCaption(screen.Label15.Caption() + " Gün");
  screen.Vadefrm.SetVisible(true);
  screen.Vadefrm.BringToFront();
}

void CustomerList::FillGroups() {
  auto& [screen, form, cursors, settings, world] = parts_;
  std::vector<std::string> items{sources::kAllGroups};
  Cursor& groups = cursors.GurupData;
  step("refresh groups", groups.Refresh());
  for (; groups.HasCurrent(); step("next group", groups.MoveNext()))
    if (const std::string name = groups.Text("Gurup"); !ContainsText(name, "WinKarvel")) items.push_back(name);
  screen.GurupCombo.SetItems(std::move(items));
}

void CustomerList::ShowGroup(const std::string& group) {
  showing_ = true;
  if (!parts_.screen.GurupCombo.ChooseText(group)) parts_.screen.GurupCombo.Choose(0);
  showing_ = false;
}

void CustomerList::GroupChosen() {
  if (showing_ || !parts_.screen.ComboCmd.Visible()) return;
  if (parts_.screen.ComboCmd.Caption() == "Cari") {
    if (parts_.screen.Frame2.Visible()) {
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
  auto& [screen, form, cursors, settings, world] = parts_;
  form.CustomerGroup = screen.GurupCombo.Text();
  settings.Save(Setting::CustomerGroup, form.CustomerGroup);
  prices_.SetFirstPriceColumn();
  groupWaits_ = true;
}

void CustomerList::CustomerGroupChosen() {
  auto& [screen, form, cursors, settings, world] = parts_;
  CloseBookingPanels(screen);
  groupWaits_ = false;
  screen.StokChk.SetChecked(false);  // a group of customers is a wish for customers
  const std::string group = screen.GurupCombo.Text();
  screen.Text1(0).SetText("");
  Cursor& customers = cursors.CariData;
  customers.SetRecordSource(group == sources::kAllGroups ? sources::kAllCustomers : sources::CustomersOfGroup(group));
  const bool wholesale = EqualText(group, "Toptan");
  screen.Label1(5).SetCaption(wholesale ? " Ödeme" : " Tahsilat");
  screen.Label1(0).SetCaption(wholesale ? " Toptan" : " Satış");
  form.CustomerGroup = group;
  settings.Save(Setting::CustomerGroup, group);
  form.RepositionGuard = 99;
  step("refresh customers", customers.Refresh());
  form.RepositionGuard = 0;
  if (customers.HasRows()) screen.Text1(0).SetText(customers.Text(1));
  FollowInFront();
  if (customers.HasRows()) screen.CariGrid.SetFocus();
  prices_.SetFirstPriceColumn();
}

void CustomerList::StockGroupChosen() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const std::string group = screen.GurupCombo.Text();
  cursors.StokData.SetRecordSource(screen.GurupCombo.ListIndex() <= 0 ? sources::kStock : sources::StockOfGroup(group));
  form.StockGroup = group;
  settings.Save(Setting::StockGroup, group);
  form.RepositionGuard = 66;
  step("refresh stock", cursors.StokData.Refresh());
  form.RepositionGuard = 0;
  if (screen.Frame2.Visible()) ShowUnsoldItem();
}

void CustomerList::ShowUnsoldItem() {
  Screen& screen = parts_.screen;
  if (!parts_.cursors.StokData.HasCurrent()) screen.Text1(1).SetText("");
  prices_.ShowItem();
  screen.Text2(1).SetText("0");
}

void CustomerList::FlipGroupList() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const bool toStock = screen.ComboCmd.Caption() == "Cari";
  screen.ComboCmd.SetCaption(toStock ? "Stok" : "Cari");
  cursors.GurupData.SetDatabaseName(form.DataDir + (toStock ? "Stok.Mdb" : "Cari.Mdb"));
  FillGroups();
  ShowGroup(toStock ? form.StockGroup : form.CustomerGroup);
  // The list is that of the group that now stands there. Among the customers it is so already.
  if (toStock) StockGroupChosen();
}

void CustomerList::KeepWalkIn() {
  auto& [screen, form, cursors, settings, world] = parts_;
  form.RepositionGuard = 555;
  Cursor& customers = cursors.CariData;
  // Looked for among all cards, whatever list is in front: he exists once, however many starts and terminals.
  Action action(world.stores, "KeepWalkIn");
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
  form.RepositionGuard = 0;
}

void CustomerList::Focused() {
  auto& [screen, form, cursors, settings, world] = parts_;
  if (form.RepositionGuard == 66) return;
  form.ActiveFieldCode = 0;
  Cursor& customers = cursors.CariData;
  if (screen.Text1(0).Text().empty() && customers.HasRows() && !screen.StokChk.Checked()) {
    const float guard = form.RepositionGuard;
    form.RepositionGuard = 555;
    step("refresh customers", customers.Refresh());
    screen.Text1(0).SetText(customers.Text("Unvan"));
    form.RepositionGuard = guard;
    FollowInFront();  // the balance beside the name is this customer's
  }
  screen.Text1(0).SelectAll();  // the next name takes the place of what stands there
}

void CustomerList::FollowInFront() {
  auto& [screen, form, cursors, settings, world] = parts_;
  Cursor& customers = cursors.CariData;
  if (customers.HasCurrent()) {
    step("customer in front", customers.MoveTo(customers.CurrentKey()));
    return;
  }
  screen.Text1(0).SetText("");
  screen.Label5.SetCaption("0");
  screen.Label8.SetCaption("");
  screen.Vadefrm.SetVisible(false);
}

void CustomerList::TextChanged() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const std::string& text = screen.Text1(0).Text();
  if (!screen.Text1(0).HasFocus() || Trim(text).empty() || text == "*") return;
  if (screen.StokChk.Checked()) {
    step("find name", cursors.StokData.FindFirst("StokAdi Like '" + text + "*'"));
    return;
  }
  Cursor& customers = cursors.CariData;
  if (text == customers.Text("Unvan")) return;  // the row in front is the one meant
  const float guard = form.RepositionGuard;
  form.RepositionGuard = 99;
  step("find customer", customers.FindFirst("Unvan Like '" + text + "*'"));
  form.RepositionGuard = guard;
}

void CustomerList::KeyUp(const KeyEvent& event) {
  auto& [screen, form, cursors, settings, world] = parts_;
  Element& field = screen.Text1(0);
  if (!ListsCustomers(screen) || !IsCompletingKey(event) || field.Text().empty() || field.Text() == "*") return;
  Cursor& customers = cursors.CariData;
  if (customers.HasCurrent() && customers.Text("Unvan") == field.Text()) return;
  form.RepositionGuard = 99;
  step("find customer", customers.FindFirst("Unvan Like '" + field.Text() + "*'"));
  const bool found = !customers.NoMatch();
  form.RepositionGuard = 0;
  if (found && !form.KeyboardOpen) Complete(field, customers.Text("Unvan"));
}

void CustomerList::Character(CharacterEvent& event) {
  auto& [screen, form, cursors, settings, world] = parts_;
  if (event.character != key::kEnter) return;
  event.character = 0;
  if (!ListsCustomers(screen)) return;
  CloseKeyboard(parts_);  // what was typed on it is taken, so the list follows again
  const std::string text = screen.Text1(0).Text();
  Element& list = screen.CariGrid.Visible() ? static_cast<Element&>(screen.CariGrid) : screen.StokGrid;
  Cursor& customers = cursors.CariData;
  if (customers.HasCurrent() && customers.Text("Unvan") == text) {
    // The row in front is the one meant, also when another bears the same name.
    step("customer in front", customers.MoveTo(customers.CurrentKey()));
  } else {
    step("find customer", customers.FindFirst("Unvan Like '" + text + "*'"));
    if (customers.NoMatch()) {
      OpenCustomerCard(parts_, Trim(text));
      return;
    }
  }
  step("day book", cursors.HareketData.Open(sources::DayBookOf(customers.Text("CariKod"))));
  list.SetFocus();
}

}  // namespace karvel
