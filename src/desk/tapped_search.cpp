#include "desk/tapped_search.h"

#include "desk/completion.h"
#include "desk/list_in_front.h"
#include "desk/new_cards.h"
#include "desk/screen_keyboard.h"
#include "desk/sources.h"
#include "desk/steps.h"
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
    : parts_(parts), customers_(customers), prices_(prices) {
  Screen& screen = parts_.screen;
  screen.Text1(0).click.Connect([this] { TapCustomer(); });
  screen.Text1(0).lostFocus.Connect([this] { LeftCustomer(); });
  screen.Text1(1).click.Connect([this] { TapProduct(); });
  screen.Text1(1).lostFocus.Connect([this] { LeftProduct(); });
}

void TappedSearch::TapCustomer() {
  // The same list also shows stock and the day book, which have fields of their own for that.
  if (!parts_.screen.CariGrid.Visible() || !ListsCustomers(parts_.screen)) return;
  if (parts_.form.KeyboardOpen) {
    TakeCustomer();
  } else {
    StartCustomer();
  }
}

void TappedSearch::StartCustomer() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const std::string group = form.ActiveFieldCode == 0 ? std::string() : form.CustomerGroup;
  form.RepositionGuard = 555;
  step("customer list", cursors.CariData.Open(sources::CustomersOfGroupNamed(group, "")));
  form.RepositionGuard = 0;
  OpenKeyboard(parts_, screen.Text1(0));
  screen.Text1(0).SetText("");
}

void TappedSearch::TakeCustomer() {
  auto& [screen, form, cursors, settings, world] = parts_;
  CloseKeyboard(parts_);
  const std::string text = screen.Text1(0).Text();
  Cursor& customers = cursors.CariData;
  form.RepositionGuard = 99;
  step("customer list", customers.Open(kSearched));
  if (!FindCustomer(text)) {
    form.RepositionGuard = 0;
    OpenCustomerCard(parts_, Trim(text));
    return;
  }
  const RowKey found = customers.CurrentKey();
  const std::string name = customers.Text("Unvan");
  screen.Text1(0).SetText(name);
  const bool wholesale = EqualText(customers.Text("Gurup"), "Toptan");
  if (wholesale) customers.SetRecordSource(sources::CustomersOfGroup("Toptan"));
  screen.Label1(5).SetCaption(wholesale ? " Ödeme" : " Tahsilat");
  step("customer list", customers.Refresh());
  step("found customer", customers.MoveTo(found));
  form.RepositionGuard = 0;
  customers_.FollowInFront();
  screen.CariGrid.SetFocus();
}

bool TappedSearch::FindCustomer(const std::string& text) {
  Cursor& customers = parts_.cursors.CariData;
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
  auto& [screen, form, cursors, settings, world] = parts_;
  if (form.KeyboardOpen) {
    TakeProduct();
  } else if (screen.Label1(1).Caption() != " Barkod") {
    StartProduct();
  }
}

void TappedSearch::StartProduct() {
  auto& [screen, form, cursors, settings, world] = parts_;
  form.RepositionGuard = 66;
  step("all stock", cursors.StokData.Open(sources::kStock));
  form.RepositionGuard = 0;
  OpenKeyboard(parts_, screen.Text1(1));
  screen.Text1(1).SetText("");
}

void TappedSearch::TakeProduct() {
  auto& [screen, form, cursors, settings, world] = parts_;
  CloseKeyboard(parts_);
  const std::string text = screen.Text1(1).Text();
  Cursor& cards = cursors.StokData;
  form.RepositionGuard = 99;
  form.LastStokSearch = text;
  step("cards of that name", cards.Open(sources::StockNamed(text)));
  step("find name", cards.FindFirst("StokAdi Like '" + text + "*'"));
  if (!cards.NoMatch()) {
    screen.Text1(1).SetText(cards.Text("StokAdi"));
    screen.Text2(0).SetText(Format(cards.Number("Fiyat"), form.PriceFormat));
    screen.Text2(1).SetFocus();
    form.RepositionGuard = 0;
    return;
  }
  // A list of nothing would hide the next item from the scanner.
  form.RepositionGuard = 66;
  step("all stock", cards.Open(sources::kStock));
  form.RepositionGuard = 0;
  OpenStockCard(parts_, text);
}

void TappedSearch::LeftCustomer() {
  if (!parts_.form.KeyboardOpen) return;
  CloseKeyboard(parts_);
  // The field was emptied and the list began anew: what is paid now goes to the row in front, so it must say so.
  if (ListsCustomers(parts_.screen) && Trim(parts_.screen.Text1(0).Text()).empty()) customers_.FollowInFront();
}

void TappedSearch::LeftProduct() {
  auto& [screen, form, cursors, settings, world] = parts_;
  if (!form.KeyboardOpen) return;
  CloseKeyboard(parts_);
  if (!screen.Frame2.Visible()) return;
  Cursor& cards = cursors.StokData;
  const std::string text = Trim(screen.Text1(1).Text());
  if (text.empty()) {
    // Nothing was looked for: the fields name the item in front, and nothing of it is sold yet.
    prices_.ShowItem();
    screen.Text2(1).SetText("0");
  } else if (cards.HasCurrent() && NamesCard(text, cards.Text("StokAdi"))) {
    // What the keyboard muted: the name is completed, and its prices are those of this item and customer.
    form.RepositionGuard = 99;
    prices_.ShowItem();
    form.RepositionGuard = 0;
    screen.Text1(1).SetText(cards.Text("StokAdi"));
  }
}

}  // namespace karvel
