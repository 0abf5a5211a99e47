#include "desk/day_total.h"

#include "desk/sources.h"
#include "desk/steps.h"
#include "platform/clock.h"
#include "text/format.h"

namespace karvel {
namespace {
const Steps step("DayTotal");
}

DayTotal::DayTotal(const DeskParts& parts) : parts_(parts) {
  Element& label = parts_.screen.Label5;
  label.changed.Connect([&label] { label.SetCaption(Format(label.Caption(), "Standard")); });
  label.dblClick.Connect([this] { TakeDayOfRow(); });
  parts_.cursors.HareketData.repositioned.Connect([this] { FollowDayBook(); });
}

std::string DayTotal::DayCriteria(const DateTime& day) {
  const std::string date = Format(day, "mm/dd/yyyy");
  return "Tarih>=#" + date + " 00:00:00# And Tarih<=#" + date + " 23:59:59#";
}

void DayTotal::ShowToday() {
  const Cursor& day = parts_.cursors.HareketData;
  if (!day.HasRows()) return;
  parts_.form.CriteriaText = DayCriteria(parts_.world.clock.Now());
  Value sum;
  step("sum", parts_.world.stores.QueryValue(day.DatabaseName(),
                                             "Select Sum(Tutar) FROM Datam Where " + parts_.form.CriteriaText + " And CariAd=" +
                                                 sources::Quoted(parts_.screen.Text1(0).Text()) + " And Durum='Satış' And Tahsilat=0",
                                             sum));
  // The "0" in front makes a sum over no row a number.
  parts_.screen.Label5.SetCaption(Format("0" + AsText(sum), "Standard"));
}

void DayTotal::FollowDayBook() {
  auto& [screen, form, cursors, settings, world] = parts_;
  // A posting that moves the day book shows what it means to show itself.
  if (form.RepositionGuard == 100 || world.stores.InAction()) return;
  const bool rows = cursors.HareketData.HasRows();
  screen.HareketGrid.SetMarker(rows);
  // At rest Label5 is the balance of the customer in front; the deleted lines are nobody's.
  if (screen.CariGrid.Visible() || screen.SilinenChk.Checked()) return;
  Value sum;
  if (rows)
    step("sum of today",
         world.stores.QueryValue(cursors.GunData.DatabaseName(),
                                 "Select Sum(Tutar) FROM Datam Where CariKod=" + sources::Quoted(cursors.CariData.Text("CariKod")) +
                                     " And " + DayCriteria(world.clock.Now()),
                                 sum));
  screen.Label5.SetCaption(Format(AsNumber(sum), form.PriceFormat));
}

void DayTotal::TakeDayOfRow() {
  const Cursor& day = parts_.cursors.HareketData;
  if (!day.HasRows()) return;
  const DateTime date = AsDate(day.Get("Tarih"));
  if (date.IsEmpty()) return;
  parts_.form.CriteriaText = DayCriteria(date);
  Value sum;
  step("sum of day", parts_.world.stores.QueryValue(
                         day.DatabaseName(),
                         "select sum(Tutar) FROM Datam Where CariKod=" + sources::Quoted(parts_.cursors.CariData.Text("CariKod")) +
                             " And Durum='Satış' And " + parts_.form.CriteriaText,
                         sum));
  parts_.screen.Label5.SetCaption(Format("0" + AsText(sum), parts_.form.PriceFormat));
  parts_.screen.Text2(2).SetText(parts_.screen.Label5.Caption());
}

}  // namespace karvel
