#include "desk/tapped_search.h"

#include <utility>

#include "books/sources.h"
#include "books/steps.h"
#include "desk/captions.h"
#include "desk/completion.h"
#include "desk/customer_search.h"
#include "desk/entry_fields.h"
#include "desk/list_in_front.h"
#include "desk/new_cards.h"
#include "desk/quiet_line.h"
#include "desk/sale_confirmation.h"
#include "desk/screen_keyboard.h"
#include "platform/clerk_message.h"
#include "text/turkish.h"

namespace karvel {
namespace {

const Steps step("TappedSearch");

}  // namespace

TappedSearch::TappedSearch(const DeskParts& parts, CustomerInFront& customer, PriceSelection& prices)
    : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), customer_(customer), prices_(prices) {
  connections_ += screen_.Text1(0).click.Connect([this] { TapCustomer(); });
  connections_ += screen_.Text1(0).lostFocus.Connect([this] { LeaveCustomer(); });
  connections_ += screen_.Text1(1).click.Connect([this] { TapProduct(); });
  connections_ += screen_.Text1(1).lostFocus.Connect([this] { LeaveProduct(); });
  connections_ += screen_.Label1(1).changed.Connect([this] { itemBefore_.reset(); });  // codes are not looked up by taps
}

void TappedSearch::TapCustomer() {
  // The same list also shows stock and the day book, which have search fields of their own.
  if (!AtRest(screen_) || !ListsCustomers(screen_)) return;
  if (customerBefore_) {
    TakeCustomer();
  } else if (ChosenKeyboard(screen_) == KeyboardChoice::Never) {
    screen_.Text1(0).SelectAll();
  } else {
    StartCustomer();
  }
}

void TappedSearch::StartCustomer() {
  customerBefore_ = Before{cursors_.CariData.RecordSource(), customer_.Key()};
  const std::string group = form_.ActiveFieldCode == 0 ? std::string() : form_.CustomerGroup;
  customer_.ShowList(sources::CustomersOfGroupNamed(group, ""));
  OpenKeyboard(form_, screen_, screen_.Text1(0));
  screen_.Text1(0).SetText("");
}

void TappedSearch::TakeCustomer() {
  CloseKeyboard(form_, screen_);
  const std::string text = screen_.Text1(0).Text();
  if (Trim(text).empty()) {
    BringCustomerBack();
    screen_.CariGrid.SetFocus();
    return;
  }
  customerBefore_.reset();
  const Status found = ShowFound(text);
  if (found.Kind() == ErrorKind::NoRecord || found.Kind() == ErrorKind::BadText) {
    OpenCustomerCard(screen_, Trim(text));
    return;
  }
  if (!found.Ok()) {
    Tell(screen_, ClerkMessage(found));
    return;
  }
  customer_.Follow();
  screen_.CariGrid.SetFocus();
}

// Nothing was looked for: who was in front before comes back, in his list.
void TappedSearch::BringCustomerBack() {
  const Before before = *std::exchange(customerBefore_, std::nullopt);
  customer_.ShowListAt(before.source, before.row);
}

Status TappedSearch::ShowFound(const std::string& text) {
  const Muted muted(form_.RepositionGuard, Mute::Fields);
  Cursor& customers = cursors_.CariData;
  if (Status opened = customers.Open(sources::kNamedCustomers); !opened.Ok()) return opened;
  if (Status found = FindCustomerByText(customers, text); !found.Ok()) return found;
  const RowKey found = customers.CurrentKey();
  screen_.Text1(0).SetText(customers.Text("Unvan"));
  const bool wholesaler = EqualText(customers.Text("Gurup"), "Toptan");
  if (wholesaler) customers.SetRecordSource(sources::CustomersOfGroup("Toptan"));
  customer_.listedGroup(wholesaler ? "Toptan" : "");
  step("customer list", customers.Refresh());
  step("found customer", customers.MoveTo(found));
  return {};
}

void TappedSearch::TapProduct() {
  if (itemBefore_) {
    TakeProduct();
  } else if (ChosenKeyboard(screen_) == KeyboardChoice::Never) {
    screen_.Text1(1).SelectAll();
  } else if (!SearchesByBarcode(screen_)) {
    itemBefore_ = Before{cursors_.StokData.RecordSource(), cursors_.StokData.CurrentKey(), screen_.Text2(1).Text()};
    ShowAllStock();
    OpenKeyboard(form_, screen_, screen_.Text1(1));
    screen_.Text1(1).SetText("");
  }
}

void TappedSearch::ShowAllStock() {
  const Muted muted(form_.RepositionGuard, Mute::Items);
  step("all stock", cursors_.StokData.Open(sources::kStock));
}

void TappedSearch::BringItemBack() {
  const Before before = *std::exchange(itemBefore_, std::nullopt);
  {
    const Muted muted(form_.RepositionGuard, Mute::Items);
    step("stock list", cursors_.StokData.Open(before.source));
    if (before.row != 0) step("item in front", cursors_.StokData.MoveTo(before.row));
  }
  prices_.ShowUnsoldItem();
  // The clerk is still at this item: he only closed the keyboard. Who leaves the field empty sells nothing.
  if (screen_.Text1(1).HasFocus() && cursors_.StokData.CurrentKey() == before.row) screen_.Text2(1).SetText(before.quantity);
}

void TappedSearch::TakeProduct() {
  CloseKeyboard(form_, screen_);
  const std::string text = screen_.Text1(1).Text();
  if (Trim(text).empty()) {
    BringItemBack();
    screen_.StokGrid.SetFocus();
    return;
  }
  itemBefore_.reset();
  form_.LastStokSearch = text;
  if (ShowNamed(text)) return;
  ShowAllStock();  // an empty list would hide the next item from the scanner
  OpenStockCard(form_, screen_, text);
}

bool TappedSearch::ShowNamed(const std::string& text) {
  const Muted muted(form_.RepositionGuard, Mute::Fields);
  Cursor& cards = cursors_.StokData;
  // The last pass is for the kind of an i.
  for (const std::string& named : {text, AnyKindOfI(text)}) {
    step("cards of that name", cards.Open(sources::StockNamed(named)));
    step("find name", cards.FindFirst("StokAdi Like '" + named + "*'"));
    if (!cards.NoMatch()) break;
  }
  if (cards.NoMatch()) return false;
  screen_.Text1(1).SetText(cards.Text("StokAdi"));
  prices_.Offer(cards.Number("Fiyat"));
  screen_.Text2(1).SetFocus();
  return true;
}

bool TappedSearch::GoesTo(const Element& list) const {
  return screen_.elements.Focused() == &list;
}

void TappedSearch::LeaveCustomer() {
  if (!customerBefore_) return;
  CloseKeyboard(form_, screen_);
  if (ListsCustomers(screen_) && Trim(screen_.Text1(0).Text()).empty()) {
    // A list that changed under the finger would give it another row.
    if (GoesTo(screen_.CariGrid)) {
      customer_.Follow();
    } else {
      BringCustomerBack();
    }
  }
  customerBefore_.reset();
}

void TappedSearch::LeaveProduct() {
  if (!itemBefore_) return;
  CloseKeyboard(form_, screen_);
  const bool inSale = screen_.Frame2.Visible();  // else it was left in the middle of the search
  const Cursor& cards = cursors_.StokData;
  const std::string text = Trim(screen_.Text1(1).Text());
  if (inSale && text.empty()) {
    if (GoesTo(screen_.StokGrid)) {
      prices_.ShowUnsoldItem();
    } else {
      BringItemBack();
      // He meant to sell what he had emptied the field of; the press that brought it back sells nothing.
      if (GoesTo(screen_.Command2)) Tell(screen_, kNoItem);
    }
  } else if (inSale && cards.HasCurrent() && NamesCard(text, cards.Text("StokAdi"))) {
    // What the open keyboard held back: the name is completed, and the prices are those of this item and customer.
    const Muted muted(form_.RepositionGuard, Mute::Fields);
    prices_.ShowItem();
    screen_.Text1(1).SetText(cards.Text("StokAdi"));
  }
  itemBefore_.reset();
}

}  // namespace karvel
