#include "accounts/day_book_list.h"

#include <utility>

#include "accounts/row_deletion.h"
#include "desk/sources.h"
#include "desk/steps.h"
#include "text/format.h"

namespace karvel {
namespace {
const Steps step("DayBookList");
}

DayBookList::DayBookList(const DeskParts& parts, DayTotal& dayTotal, CustomerList& customers)
    : parts_(parts), dayTotal_(dayTotal), customers_(customers) {
  Screen& screen = parts_.screen;
  screen.HareketGrid.click.Connect([this] { Tapped(); });
  screen.HareketGrid.dblClick.Connect([this] { DoubleTapped(); });
  screen.HareketGrid.mouseUp.Connect([this](const MouseEvent&) { Released(); });
  screen.HareketGrid.keyDown.Connect([this](KeyEvent& event) {
    DeleteRowOnKey(parts_, parts_.cursors.HareketData, event);
    // With the last line goes what could be cancelled.
    Element& button = parts_.screen.Command2;
    if (event.dropped && button.Caption() == "Satır Sil" && !parts_.cursors.HareketData.HasRows()) button.SetEnabled(false);
  });
  screen.CariGrid.keyDown.Connect([this](KeyEvent& event) { DeleteCustomerOnKey(event); });
}

void DayBookList::DeleteCustomerOnKey(KeyEvent& event) {
  Cursor& customers = parts_.cursors.CariData;
  // The same list also shows stock and the day book; those rows are not wiped from here.
  if (!customers.SourceTable() || customers.SourceTable()->name != "CariKartlar") return;
  DeleteRowOnKey(parts_, customers, event);
  if (event.dropped && !customers.HasCurrent()) customers_.FollowInFront();  // the last one's name and balance go with him
}

void DayBookList::Tapped() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const bool rows = cursors.HareketData.HasRows();
  screen.HareketGrid.SetMarker(rows);
  if (ShowsDeletedLines()) return;
  screen.Command2.SetCaption("Satır Sil");
  screen.Command2.SetEnabled(rows && !CancelledForGood());
  for (int i = 2; i <= 6; ++i) screen.Label1(i).SetColor(color::kYellow);
  screen.Label5.SetColor(color::kRed);
  screen.Label1(7).SetCaption("Fiş Top.");
  screen.StokGrid.SetMarker(false);
  dayTotal_.ShowToday();
}

void DayBookList::DoubleTapped() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const Cursor& day = cursors.HareketData;
  // Only what this terminal wrote can be corrected, and only as a sale.
  if (!ShowsDeletedLines() && day.HasRows() && day.Number("yeni") == 1 && screen.Label4.Caption() == "Satış")
    screen.Command3.SetCaption("Düzeltme");
}

void DayBookList::Released() {
  auto& [screen, form, cursors, settings, world] = parts_;
  if (ShowsDeletedLines()) return;
  screen.Command2.SetEnabled(!CancelledForGood());
  if (screen.Silme.Checked() && cursors.HareketData.HasRows() && !screen.Frame3.Visible()) LoadLine();
}

void DayBookList::LoadLine() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const Cursor& day = cursors.HareketData;
  if (screen.Label4.Caption() == "İade") {
    // The item that comes back is the line's, not the one that happens to be in front.
    const float guard = std::exchange(form.RepositionGuard, 66.0F);
    step("find stock card", cursors.StokData.FindFirst("StokKod=" + sources::Quoted(day.Text("StokKod"))));
    form.RepositionGuard = guard;
    screen.Text1(1).SetText(day.Text("StokAd"));
    screen.Text2(0).SetText(day.Text("Fiyat"));
    screen.Text2(1).SetText(day.Text("Miktar"));
    return;
  }
  Cursor& cards = cursors.StokData;
  const std::string price = Format(day.Number("Fiyat"), form.PriceFormat);
  step("find stock card", cards.FindFirst("StokKod=" + sources::Quoted(day.Text("StokKod"))));
  if (cards.NoMatch()) return;
  screen.Text1(1).SetText(cards.Text("StokAdi"));
  screen.Text2(0).SetText(price);
  screen.Text2(1).SetFocus();
}

// They are looked at, no more: what they stood for was taken back, and the customer in front is not theirs.
bool DayBookList::ShowsDeletedLines() const {
  return parts_.screen.SilinenChk.Checked();
}

bool DayBookList::CancelledForGood() const {
  return parts_.screen.Silme.Checked() && parts_.cursors.HareketData.Text("Durum") == "Iptal";
}

}  // namespace karvel
