#include "desk/tapped_search.h"

#include "books/sources.h"
#include "books/steps.h"
#include "desk/captions.h"
#include "desk/completion.h"
#include "desk/list_in_front.h"
#include "desk/new_cards.h"
#include "desk/screen_keyboard.h"
#include "text/turkish.h"

namespace karvel {
namespace {

const Steps step("TappedSearch");

// Unlike the standard list it has the wholesalers too: whoever types a name means its bearer.
const std::string kSearched =
    "Select * From CariKartlar Where HesKullan=False And lcase(Gurup)<>'plasiyer' And Left(CariKod,1)<>'=' And CariKod<>'Merkez' Order By "
    "Unvan Asc";

}  // namespace

TappedSearch::TappedSearch(const DeskParts& parts, CustomerInFront& customer, PriceSelection& prices)
    : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), customer_(customer), prices_(prices) {
  connections_ += screen_.Text1(0).click.Connect([this] { TapCustomer(); });
  connections_ += screen_.Text1(0).lostFocus.Connect([this] { LeaveCustomer(); });
  connections_ += screen_.Text1(1).click.Connect([this] { TapProduct(); });
  connections_ += screen_.Text1(1).lostFocus.Connect([this] { LeaveProduct(); });
}

void TappedSearch::TapCustomer() {
  // The same list also shows stock and the day book, which have search fields of their own.
  if (!AtRest(screen_) || !ListsCustomers(screen_)) return;
  if (form_.KeyboardOpen) {
    TakeCustomer();
  } else {
    StartCustomer();
  }
}

void TappedSearch::StartCustomer() {
  const std::string group = form_.ActiveFieldCode == 0 ? std::string() : form_.CustomerGroup;
  customer_.ShowList(sources::CustomersOfGroupNamed(group, ""));
  OpenKeyboard(form_, screen_, screen_.Text1(0));
  screen_.Text1(0).SetText("");
}

void TappedSearch::TakeCustomer() {
  CloseKeyboard(form_, screen_);
  const std::string text = screen_.Text1(0).Text();
  if (!ShowFound(text)) {
    OpenCustomerCard(screen_, Trim(text));
    return;
  }
  customer_.Follow();
  screen_.CariGrid.SetFocus();
}

bool TappedSearch::ShowFound(const std::string& text) {
  const Muted muted(form_.RepositionGuard, Mute::Fields);
  Cursor& customers = cursors_.CariData;
  step("customer list", customers.Open(kSearched));
  if (!FindCustomer(text)) return false;
  const RowKey found = customers.CurrentKey();
  screen_.Text1(0).SetText(customers.Text("Unvan"));
  const bool wholesale = EqualText(customers.Text("Gurup"), "Toptan");
  if (wholesale) customers.SetRecordSource(sources::CustomersOfGroup("Toptan"));
  screen_.Label1(5).SetCaption(wholesale ? caption::kPayment : caption::kCollection);
  step("customer list", customers.Refresh());
  step("found customer", customers.MoveTo(found));
  return true;
}

bool TappedSearch::FindCustomer(const std::string& text) {
  Cursor& customers = cursors_.CariData;
  // A keyboard without the Turkish letters types one i for the other.
  const std::string dotted = ReplaceAll(text, "İ", "i");
  for (const std::string& criteria : {"Unvan Like '" + text + "*'", "KartNo='" + text + "'", "Unvan Like '" + dotted + "*'",
                                      "Unvan Like '" + ReplaceAll(dotted, "I", "ı") + "*'"}) {
    step("find customer", customers.FindFirst(criteria));
    if (!customers.NoMatch()) return true;
  }
  return false;
}

void TappedSearch::TapProduct() {
  if (form_.KeyboardOpen) {
    TakeProduct();
  } else if (!SearchesByBarcode(screen_)) {
    ShowAllStock();
    OpenKeyboard(form_, screen_, screen_.Text1(1));
    screen_.Text1(1).SetText("");
  }
}

void TappedSearch::ShowAllStock() {
  const Muted muted(form_.RepositionGuard, Mute::Items);
  step("all stock", cursors_.StokData.Open(sources::kStock));
}

void TappedSearch::TakeProduct() {
  CloseKeyboard(form_, screen_);
  const std::string text = screen_.Text1(1).Text();
  form_.LastStokSearch = text;
  if (ShowNamed(text)) return;
  ShowAllStock();  // an empty list would hide the next item from the scanner
  OpenStockCard(form_, screen_, text);
}

bool TappedSearch::ShowNamed(const std::string& text) {
  const Muted muted(form_.RepositionGuard, Mute::Fields);
  Cursor& cards = cursors_.StokData;
  step("cards of that name", cards.Open(sources::StockNamed(text)));
  step("find name", cards.FindFirst("StokAdi Like '" + text + "*'"));
  if (cards.NoMatch()) return false;
  screen_.Text1(1).SetText(cards.Text("StokAdi"));
  prices_.Offer(cards.Number("Fiyat"));
  screen_.Text2(1).SetFocus();
  return true;
}

void TappedSearch::LeaveCustomer() {
  if (!form_.KeyboardOpen) return;
  CloseKeyboard(form_, screen_);
  // The field was emptied and the list began anew: what is paid now goes to the row in front, so the field must name it.
  if (ListsCustomers(screen_) && Trim(screen_.Text1(0).Text()).empty()) customer_.Follow();
}

void TappedSearch::LeaveProduct() {
  if (!form_.KeyboardOpen) return;
  CloseKeyboard(form_, screen_);
  if (!screen_.Frame2.Visible()) return;
  const Cursor& cards = cursors_.StokData;
  const std::string text = Trim(screen_.Text1(1).Text());
  if (text.empty()) {
    prices_.ShowUnsoldItem();  // nothing was looked for
  } else if (cards.HasCurrent() && NamesCard(text, cards.Text("StokAdi"))) {
    // What the open keyboard held back: the name is completed, and the prices are those of this item and customer.
    const Muted muted(form_.RepositionGuard, Mute::Fields);
    prices_.ShowItem();
    screen_.Text1(1).SetText(cards.Text("StokAdi"));
  }
}

}  // namespace karvel
