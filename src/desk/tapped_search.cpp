#include "desk/tapped_search.h"

#include "books/sources.h"
#include "books/steps.h"
#include "desk/completion.h"
#include "desk/list_in_front.h"
#include "desk/new_cards.h"
#include "desk/screen_keyboard.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

const Steps step("TappedSearch");

// Unlike the standard list it has the wholesalers too: whoever types a name means that one.
const std::string kSearched =
    "Select * From CariKartlar Where HesKullan=False And lcase(Gurup)<>'plasiyer' And Left(CariKod,1)<>'=' And CariKod<>'Merkez' Order By "
    "Unvan Asc";

}  // namespace

TappedSearch::TappedSearch(const DeskParts& parts, CustomerList& customers, PriceSelection& prices)
    : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), customers_(customers), prices_(prices) {
  Screen& screen = screen_;
  connections_ += screen.Text1(0).click.Connect([this] { TapCustomer(); });
  connections_ += screen.Text1(0).lostFocus.Connect([this] { LeftCustomer(); });
  connections_ += screen.Text1(1).click.Connect([this] { TapProduct(); });
  connections_ += screen.Text1(1).lostFocus.Connect([this] { LeftProduct(); });
}

void TappedSearch::TapCustomer() {
  // The same list also shows stock and the day book, which have fields of their own for that.
  if (!screen_.CariGrid.Visible() || !ListsCustomers(screen_)) return;
  if (form_.KeyboardOpen) {
    TakeCustomer();
  } else {
    StartCustomer();
  }
}

void TappedSearch::StartCustomer() {
  const std::string group = form_.ActiveFieldCode == 0 ? std::string() : form_.CustomerGroup;
  form_.RepositionGuard = 555;
  step("customer list", cursors_.CariData.Open(sources::CustomersOfGroupNamed(group, "")));
  form_.RepositionGuard = 0;
  OpenKeyboard(form_, screen_, screen_.Text1(0));
  screen_.Text1(0).SetText("");
}

void TappedSearch::TakeCustomer() {
  CloseKeyboard(form_, screen_);
  const std::string text = screen_.Text1(0).Text();
  Cursor& customers = cursors_.CariData;
  form_.RepositionGuard = 99;
  step("customer list", customers.Open(kSearched));
  if (!FindCustomer(text)) {
    form_.RepositionGuard = 0;
    OpenCustomerCard(screen_, Trim(text));
    return;
  }
  const RowKey found = customers.CurrentKey();
  const std::string name = customers.Text("Unvan");
  screen_.Text1(0).SetText(name);
  const bool wholesale = EqualText(customers.Text("Gurup"), "Toptan");
  if (wholesale) customers.SetRecordSource(sources::CustomersOfGroup("Toptan"));
  screen_.Label1(5).SetCaption(wholesale ? " Ödeme" : " Tahsilat");
  step("customer list", customers.Refresh());
  step("found customer", customers.MoveTo(found));
  form_.RepositionGuard = 0;
  customers_.FollowInFront();
  screen_.CariGrid.SetFocus();
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
  } else if (screen_.Label1(1).Caption() != " Barkod") {
    StartProduct();
  }
}

void TappedSearch::StartProduct() {
  form_.RepositionGuard = 66;
  step("all stock", cursors_.StokData.Open(sources::kStock));
  form_.RepositionGuard = 0;
  OpenKeyboard(form_, screen_, screen_.Text1(1));
  screen_.Text1(1).SetText("");
}

void TappedSearch::TakeProduct() {
  CloseKeyboard(form_, screen_);
  const std::string text = screen_.Text1(1).Text();
  Cursor& cards = cursors_.StokData;
  form_.RepositionGuard = 99;
  form_.LastStokSearch = text;
  step("cards of that name", cards.Open(sources::StockNamed(text)));
  step("find name", cards.FindFirst("StokAdi Like '" + text + "*'"));
  if (!cards.NoMatch()) {
    screen_.Text1(1).SetText(cards.Text("StokAdi"));
    screen_.Text2(0).SetText(Format(cards.Number("Fiyat"), form_.PriceFormat));
    screen_.Text2(1).SetFocus();
    form_.RepositionGuard = 0;
    return;
  }
  // A list of nothing would hide the next item from the scanner.
  form_.RepositionGuard = 66;
  step("all stock", cards.Open(sources::kStock));
  form_.RepositionGuard = 0;
  OpenStockCard(form_, screen_, text);
}

void TappedSearch::LeftCustomer() {
  if (!form_.KeyboardOpen) return;
  CloseKeyboard(form_, screen_);
  // The field was emptied and the list began anew: what is paid now goes to the row in front, so it must say so.
  if (ListsCustomers(screen_) && Trim(screen_.Text1(0).Text()).empty()) customers_.FollowInFront();
}

void TappedSearch::LeftProduct() {
  if (!form_.KeyboardOpen) return;
  CloseKeyboard(form_, screen_);
  if (!screen_.Frame2.Visible()) return;
  Cursor& cards = cursors_.StokData;
  const std::string text = Trim(screen_.Text1(1).Text());
  if (text.empty()) {
    // Nothing was looked for: the fields name the item in front, and nothing of it is sold yet.
    prices_.ShowItem();
    screen_.Text2(1).SetText("0");
  } else if (cards.HasCurrent() && NamesCard(text, cards.Text("StokAdi"))) {
    // What the keyboard muted: the name is completed, and its prices are those of this item and customer.
    form_.RepositionGuard = 99;
    prices_.ShowItem();
    form_.RepositionGuard = 0;
    screen_.Text1(1).SetText(cards.Text("StokAdi"));
  }
}

}  // namespace karvel
