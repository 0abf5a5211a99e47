#include "desk/group_list.h"

#include "books/sources.h"
#include "books/steps.h"
#include "desk/booking_panels.h"
#include "desk/captions.h"
#include "desk/group_names.h"
#include "platform/files.h"
#include "store/stores.h"
#include "text/turkish.h"

namespace karvel {
namespace {
const Steps step("GroupList");
}

GroupList::GroupList(const DeskParts& parts, PriceSelection& prices, CustomerInFront& customer)
    : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), settings_(parts.settings), prices_(prices), customer_(customer) {
  connections_ += screen_.GurupCombo.click.Connect([this] { Chosen(); });
  connections_ += screen_.ComboCmd.click.Connect([this] { Flip(); });
  connections_ += parts.world.stores.serverFound.Connect([this] { FillUnread(); });
  // A sale is priced and booked by the group that stands here: it must be that of the list.
  connections_ += customer.listedGroup.Connect([this](const std::string& group) {
    listed_ = group.empty() ? sources::kAllGroups : group;
    if (ListsCustomerGroups(screen_)) Show(listed_);
  });
}

void GroupList::Fill() {
  Cursor& groups = cursors_.GurupData;
  step("refresh groups", groups.Refresh());
  std::vector<std::string> names;
  const Status read = ReadGroupNames(groups, names);
  step("groups", read);
  unread_ = read.Kind() == ErrorKind::Unreachable;
  std::erase_if(names, [](const std::string& name) { return ContainsText(name, "WinKarvel"); });
  names.insert(names.begin(), sources::kAllGroups);
  screen_.GurupCombo.SetItems(std::move(names));
}

void GroupList::Show(const std::string& group) {
  showing_ = true;
  if (!screen_.GurupCombo.ChooseText(group)) screen_.GurupCombo.Choose(0);
  showing_ = false;
}

std::string GroupList::GroupInForce() const {
  if (!ListsCustomerGroups(screen_)) return form_.StockGroup;
  return listed_.empty() ? form_.CustomerGroup : listed_;
}

void GroupList::FillUnread() {
  if (!unread_) return;
  Fill();
  Show(GroupInForce());
}

void GroupList::Chosen() {
  if (showing_ || !screen_.ComboCmd.Visible()) return;
  if (!ListsCustomerGroups(screen_)) {
    StockGroupChosen();
  } else if (!AtRest(screen_) || screen_.CiroChk.Checked()) {
    KeepForLater();
  } else {
    ShowCustomersOf(screen_.GurupCombo.Text());
  }
}

// In a sale the customer stays: another list under it would book the sale elsewhere. The deleted lines and the day's turnover stay too,
// until their tick goes. The prices follow at once, the list when it is in front again.
void GroupList::KeepForLater() {
  Keep(screen_.GurupCombo.Text());
  waits_ = true;
}

void GroupList::ShowKept() {
  if (waits_) ShowCustomersOf(form_.CustomerGroup);
}

void GroupList::ChooseAll() {
  waits_ = false;
  Keep(sources::kAllGroups);
  if (ListsCustomerGroups(screen_)) Show(sources::kAllGroups);
}

void GroupList::Keep(const std::string& customerGroup) {
  listed_ = form_.CustomerGroup = customerGroup;
  settings_.Save(Setting::CustomerGroup, customerGroup);
  prices_.SetFirstPriceColumn();
}

void GroupList::ShowCustomersOf(const std::string& group) {
  CloseBookingPanels(screen_);
  waits_ = false;
  screen_.StokChk.SetChecked(false);  // whoever chooses a group of customers wants to see customers
  screen_.Text1(0).SetText("");
  Cursor& customers = cursors_.CariData;
  const bool wholesale = EqualText(group, "Toptan");
  screen_.Label1(5).SetCaption(wholesale ? caption::kPayment : caption::kCollection);
  screen_.Label1(0).SetCaption(wholesale ? caption::kWholesale : caption::kToSale);
  Keep(group);
  {
    const Muted muted(form_.RepositionGuard, Mute::Fields);
    step("customers of the group",
         customers.Open(group == sources::kAllGroups ? sources::kAllCustomers : sources::CustomersOfGroup(group)));
  }
  if (customers.HasRows()) screen_.Text1(0).SetText(customers.Text("Unvan"));
  customer_.Follow();
  if (customers.HasRows()) screen_.CariGrid.SetFocus();
}

void GroupList::StockGroupChosen() {
  const std::string group = screen_.GurupCombo.Text();
  form_.StockGroup = group;
  settings_.Save(Setting::StockGroup, group);
  {
    const Muted muted(form_.RepositionGuard, Mute::Items);
    step("stock of the group",
         cursors_.StokData.Open(screen_.GurupCombo.ListIndex() <= 0 ? sources::kStock : sources::StockOfGroup(group)));
  }
  if (screen_.Frame2.Visible()) prices_.ShowUnsoldItem();
}

void GroupList::Flip() {
  const bool toStock = ListsCustomerGroups(screen_);
  screen_.ComboCmd.SetCaption(toStock ? caption::kStockGroups : caption::kCustomerGroups);
  cursors_.GurupData.SetDatabaseName(PathIn(form_.DataDir, toStock ? "Stok.Mdb" : "Cari.Mdb"));
  Fill();
  Show(GroupInForce());
  // The stock list becomes that of the group that now stands there; the customer list is that of its group already.
  if (toStock) StockGroupChosen();
}

}  // namespace karvel
