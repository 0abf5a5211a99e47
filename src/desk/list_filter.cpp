#include "desk/list_filter.h"

#include "desk/list_in_front.h"
#include "desk/sources.h"
#include "desk/steps.h"
#include "text/turkish.h"

namespace karvel {
namespace {
const Steps step("ListFilter");
}

ListFilter::ListFilter(const DeskParts& parts, CustomerList& customers) : parts_(parts), customers_(customers) {
  parts_.screen.Text5.changed.Connect([this] { Changed(); });
  parts_.screen.Frame2.altered.Connect([this] {
    if (!parts_.screen.Frame2.Visible()) ShowAllAgain();
  });
}

void ListFilter::ShowAllAgain() {
  auto& [screen, form, cursors, settings, world] = parts_;
  Cursor& customers = cursors.CariData;
  // A filter from before the sale went with it: a list that stayed narrow under an empty field would seem to miss customers.
  if (!screen.Text5.Text().empty() || !ContainsText(customers.RecordSource(), "Unvan Like ")) return;
  const std::string code = customers.Text("CariKod");
  OpenCustomers("");
  step("customer in front", customers.FindFirst("CariKod=" + sources::Quoted(code)));
}

void ListFilter::Changed() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const std::string& text = screen.Text5.Text();
  constexpr int kFirstOfReceipt = 99, kReceipt = 100, kHeldOff = 999;
  const int field = static_cast<int>(form.ActiveFieldCode);
  if (field == kHeldOff) {
    // The keyboard was closed: the whole list comes back.
    form.ActiveFieldCode = 0;
    if (!text.empty()) screen.Text5.SetText("");
  }
  if (screen.CariFrm.Visible()) {
    // The new card is looked for in the whole list, so that stays.
    if (field >= 0 && field < screen.CariNew.Count()) screen.CariNew(field).SetText(text);
  } else if (screen.StokAl.IsShown() && field >= kFirstOfReceipt && field < kReceipt + screen.Text6.Count()) {
    screen.Text6(field == kFirstOfReceipt ? 0 : field - kReceipt).SetText(text);
  } else if (screen.Frame2.Visible()) {
    FilterStock();
  } else if (screen.CariGrid.Visible() && ListsCustomers(screen)) {
    FilterCustomers();
  }
}

void ListFilter::FilterCustomers() {
  auto& [screen, form, cursors, settings, world] = parts_;
  OpenCustomers(ReplaceAll(ReplaceAll(screen.Text5.Text(), "İ", "?"), "i", "?"));
  customers_.FollowInFront();  // a payment goes to the row in front
}

void ListFilter::OpenCustomers(const std::string& named) {
  auto& [screen, form, cursors, settings, world] = parts_;
  const bool byGroup = screen.ComboCmd.Caption() == "Cari" && screen.GurupCombo.ListIndex() > 0;
  form.RepositionGuard = 555;
  step("filter customers", cursors.CariData.Open(sources::CustomersOfGroupNamed(byGroup ? screen.GurupCombo.Text() : "", named)));
  form.RepositionGuard = 0;
}

void ListFilter::FilterStock() {
  auto& [screen, form, cursors, settings, world] = parts_;
  form.RepositionGuard = 66;
  step("filter stock", cursors.StokData.Open(sources::StockNamed(screen.Text5.Text())));
  form.RepositionGuard = 0;
  customers_.ShowUnsoldItem();
}

}  // namespace karvel
