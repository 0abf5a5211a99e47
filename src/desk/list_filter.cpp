#include "desk/list_filter.h"

#include <utility>

#include "books/sources.h"
#include "books/steps.h"
#include "desk/captions.h"
#include "desk/list_in_front.h"
#include "text/turkish.h"

namespace karvel {
namespace {
const Steps step("ListFilter");
}

ListFilter::ListFilter(const DeskParts& parts, CustomerInFront& customer, PriceSelection& prices)
    : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), customer_(customer), prices_(prices) {
  connections_ += screen_.Text5.changed.Connect([this] { Changed(); });
  connections_ += screen_.keyboardDone.Connect([this] {
    if (std::exchange(followsLater_, false)) customer_.Follow();
  });
  connections_ += screen_.Frame2.altered.Connect([this] {
    if (!screen_.Frame2.Visible()) ShowAllAgain();
  });
}

void ListFilter::ShowAllAgain() {
  // The sale has emptied the filter from before it: a list still narrow under an empty field would seem to lack customers.
  if (!screen_.Text5.Text().empty() || !customer_.ListedBy("Unvan Like ")) return;
  const std::string code = customer_.Code();
  OpenCustomers("");
  customer_.BringInFront(code);
  if (!customer_.IsThere() || customer_.Code() != code) customer_.Follow();
}

void ListFilter::Changed() {
  const std::string& text = screen_.Text5.Text();
  constexpr int kFirstOfReceipt = 99, kReceipt = 100;
  const int field = static_cast<int>(form_.ActiveFieldCode);
  if (screen_.CariFrm.Visible()) {
    // The new card is compared with the list in front, so the list stays.
    if (field >= 0 && field < screen_.CariNew.Count()) screen_.CariNew(field).SetText(text);
  } else if (screen_.StokAl.IsShown() && field >= kFirstOfReceipt && field < kReceipt + screen_.Text6.Count()) {
    screen_.Text6(field == kFirstOfReceipt ? 0 : field - kReceipt).SetText(text);
  } else if (screen_.Frame2.Visible()) {
    FilterStock();
  } else if (AtRest(screen_) && ListsCustomers(screen_)) {
    FilterCustomers();
  }
}

void ListFilter::FilterCustomers() {
  OpenCustomers(ReplaceAll(ReplaceAll(screen_.Text5.Text(), "İ", "?"), "i", "?"));
  customer_.Follow();  // a payment goes to the row in front
  followsLater_ = form_.KeyboardOpen;
}

void ListFilter::OpenCustomers(const std::string& named) {
  const bool byGroup = ListsCustomerGroups(screen_) && screen_.GurupCombo.ListIndex() > 0;
  const std::string group = byGroup ? screen_.GurupCombo.Text() : "";
  customer_.ShowList(sources::CustomersOfGroupNamed(group, named));
  customer_.listedGroup(group);
}

void ListFilter::FilterStock() {
  {
    const Muted muted(form_.RepositionGuard, Mute::Items);
    step("filter stock", cursors_.StokData.Open(sources::StockNamed(screen_.Text5.Text())));
  }
  prices_.ShowUnsoldItem();
}

}  // namespace karvel
