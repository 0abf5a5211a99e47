#include "desk/customer_list.h"

#include "desk/completion.h"
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
  screen.Text5.changed.Connect([this] { Filter(); });
  screen.Vadefrm.click.Connect([&screen] { screen.Vadefrm.SetVisible(false); });
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
    if (listInFront) screen.Label5.SetCaption(PlainNumber(customers.Number("Bakiye")));
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

bool CustomerList::ListsCustomers() const {
  return !parts_.screen.StokChk.Checked() && !parts_.screen.CiroChk.Checked();
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
    // In a sale the customer stands; another list under it would book the sale elsewhere.
    if (parts_.screen.Frame2.Visible()) return ShowGroup(parts_.form.CustomerGroup);
    CustomerGroupChosen();
  } else {
    StockGroupChosen();
  }
}

void CustomerList::CustomerGroupChosen() {
  auto& [screen, form, cursors, settings, world] = parts_;
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
  if (customers.HasRows()) {
    screen.Text1(0).SetText(customers.Text(1));
    screen.CariGrid.SetFocus();
  }
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
  if (screen.Frame2.Visible()) {
    // The fields name the item in front, and nothing of it is sold yet.
    prices_.ShowItem();
    screen.Text2(1).SetText("0");
  }
}

void CustomerList::FlipGroupList() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const bool toStock = screen.ComboCmd.Caption() == "Cari";
  screen.ComboCmd.SetCaption(toStock ? "Stok" : "Cari");
  cursors.GurupData.SetDatabaseName(form.DataDir + (toStock ? "Stok.Mdb" : "Cari.Mdb"));
  FillGroups();
  ShowGroup(toStock ? form.StockGroup : form.CustomerGroup);
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
  }
  screen.Text1(0).SelectAll();  // the next name takes the place of what stands there
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
  if (!ListsCustomers() || !IsCompletingKey(event) || field.Text().empty() || field.Text() == "*") return;
  Cursor& customers = cursors.CariData;
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
  if (!ListsCustomers()) return;
  const std::string text = Trim(screen.Text1(0).Text());
  Element& list = screen.CariGrid.Visible() ? static_cast<Element&>(screen.CariGrid) : screen.StokGrid;
  Cursor& customers = cursors.CariData;
  step("find customer", customers.FindFirst("Unvan Like '" + screen.Text1(0).Text() + "*'"));
  if (customers.NoMatch()) {
    // An unknown name is a new customer: his card opens with the name in it.
    screen.CariFrm.SetVisible(true);
    screen.CariFrm.BringToFront();
    screen.CariNew(0).SetText(text);
    screen.CariNew(1).SetText(text);
    screen.CariNew(0).SetFocus();
    return;
  }
  step("day book", cursors.HareketData.Open(sources::DayBookOf(customers.Text("CariKod"))));
  list.SetFocus();
}

void CustomerList::Filter() {
  auto& [screen, form, cursors, settings, world] = parts_;
  // Under the new card's panel the field only echoes the keyboard; the list stays whole, for the new card is looked for in it.
  if (!screen.CariGrid.Visible() || screen.CariFrm.Visible() || !ListsCustomers()) return;
  const std::string text = ReplaceAll(ReplaceAll(screen.Text5.Text(), "İ", "?"), "i", "?");
  std::string source = sources::kCustomersUnordered + " And Unvan Like '" + text + "*'";
  if (screen.ComboCmd.Caption() == "Cari" && screen.GurupCombo.ListIndex() > 0) source += " And Gurup='" + screen.GurupCombo.Text() + "'";
  form.RepositionGuard = 555;
  Cursor& customers = cursors.CariData;
  step("filter customers", customers.Open(source + " Order By Unvan Asc"));
  if (customers.HasRows()) {
    step("due dates", cursors.VadeData.Open(sources::DueDatesOf(customers.Text(0))));
    screen.Text1(0).SetText(customers.Text("Unvan"));  // a payment goes to the row in front
  }
  form.RepositionGuard = 0;
}

}  // namespace karvel
