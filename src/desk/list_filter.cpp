#include "desk/list_filter.h"

#include "books/sources.h"
#include "books/steps.h"
#include "desk/list_in_front.h"
#include "text/turkish.h"

namespace karvel {
namespace {
const Steps step("ListFilter");
}

ListFilter::ListFilter(const DeskParts& parts, CustomerList& customers)
    : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), customers_(customers) {
  connections_ += screen_.Text5.changed.Connect([this] { Changed(); });
  connections_ += screen_.Frame2.altered.Connect([this] {
    if (!screen_.Frame2.Visible()) ShowAllAgain();
  });
}

void ListFilter::ShowAllAgain() {
  Cursor& customers = cursors_.CariData;
  // A filter from before the sale went with it: a list that stayed narrow under an empty field would seem to miss customers.
  if (!screen_.Text5.Text().empty() || !ContainsText(customers.RecordSource(), "Unvan Like ")) return;
  const std::string code = customers.Text("CariKod");
  OpenCustomers("");
  step("customer in front", customers.FindFirst("CariKod=" + sources::Quoted(code)));
}

void ListFilter::Changed() {
  const std::string& text = screen_.Text5.Text();
  constexpr int kFirstOfReceipt = 99, kReceipt = 100, kHeldOff = 999;
  const int field = static_cast<int>(form_.ActiveFieldCode);
  if (field == kHeldOff) {
    // The keyboard was closed: the whole list comes back.
    form_.ActiveFieldCode = 0;
    if (!text.empty()) screen_.Text5.SetText("");
  }
  if (screen_.CariFrm.Visible()) {
    // The new card is looked for in the whole list, so that stays.
    if (field >= 0 && field < screen_.CariNew.Count()) screen_.CariNew(field).SetText(text);
  } else if (screen_.StokAl.IsShown() && field >= kFirstOfReceipt && field < kReceipt + screen_.Text6.Count()) {
    screen_.Text6(field == kFirstOfReceipt ? 0 : field - kReceipt).SetText(text);
  } else if (screen_.Frame2.Visible()) {
    FilterStock();
  } else if (screen_.CariGrid.Visible() && ListsCustomers(screen_)) {
    FilterCustomers();
  }
}

void ListFilter::FilterCustomers() {
  OpenCustomers(ReplaceAll(ReplaceAll(screen_.Text5.Text(), "İ", "?"), "i", "?"));
  customers_.FollowInFront();  // a payment goes to the row in front
}

void ListFilter::OpenCustomers(const std::string& named) {
  const bool byGroup = screen_.ComboCmd.Caption() == "Cari" && screen_.GurupCombo.ListIndex() > 0;
  form_.RepositionGuard = 555;
  step("filter customers", cursors_.CariData.Open(sources::CustomersOfGroupNamed(byGroup ? screen_.GurupCombo.Text() : "", named)));
  form_.RepositionGuard = 0;
}

void ListFilter::FilterStock() {
  form_.RepositionGuard = 66;
  step("filter stock", cursors_.StokData.Open(sources::StockNamed(screen_.Text5.Text())));
  form_.RepositionGuard = 0;
  customers_.ShowUnsoldItem();
}

}  // namespace karvel
