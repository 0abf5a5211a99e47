#include "desk/day_total.h"

#include "books/sources.h"
#include "books/steps.h"
#include "platform/clock.h"
#include "text/format.h"

namespace karvel {
namespace {
const Steps step("DayTotal");
}

DayTotal::DayTotal(const DeskParts& parts) : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), world_(parts.world) {
  Element& label = screen_.Label5;
  connections_ += label.changed.Connect([&label] { label.SetCaption(Format(label.Caption(), "Standard")); });
  connections_ += label.dblClick.Connect([this] { TakeDayOfRow(); });
  connections_ += cursors_.HareketData.repositioned.Connect([this] { FollowDayBook(); });
}

std::string DayTotal::DayCriteria(const DateTime& day) {
  const std::string date = Format(day, "mm/dd/yyyy");
  return "Tarih>=#" + date + " 00:00:00# And Tarih<=#" + date + " 23:59:59#";
}

void DayTotal::ShowToday() {
  const Cursor& day = cursors_.HareketData;
  if (!day.HasRows()) return;
  form_.CriteriaText = DayCriteria(world_.clock.Now());
  Value sum;
  step("sum", world_.stores.QueryValue(day.DatabaseName(),
                                       "Select Sum(Tutar) FROM Datam Where " + form_.CriteriaText +
                                           " And CariAd=" + sources::Quoted(screen_.Text1(0).Text()) + " And Durum='Satış' And Tahsilat=0",
                                       sum));
  // The "0" in front makes a sum over no row a number.
  screen_.Label5.SetCaption(Format("0" + AsText(sum), "Standard"));
}

void DayTotal::FollowDayBook() {
  // A posting that moves the day book shows what it means to show itself.
  if (form_.RepositionGuard == 100 || world_.stores.InAction()) return;
  const bool rows = cursors_.HareketData.HasRows();
  screen_.HareketGrid.SetMarker(rows);
  // At rest Label5 is the balance of the customer in front; the deleted lines are nobody's.
  if (screen_.CariGrid.Visible() || screen_.SilinenChk.Checked()) return;
  Value sum;
  if (rows)
    step("sum of today",
         world_.stores.QueryValue(cursors_.GunData.DatabaseName(),
                                  "Select Sum(Tutar) FROM Datam Where CariKod=" + sources::Quoted(cursors_.CariData.Text("CariKod")) +
                                      " And " + DayCriteria(world_.clock.Now()),
                                  sum));
  screen_.Label5.SetCaption(Format(AsNumber(sum), form_.PriceFormat));
}

void DayTotal::TakeDayOfRow() {
  const Cursor& day = cursors_.HareketData;
  if (!day.HasRows()) return;
  const DateTime date = AsDate(day.Get("Tarih"));
  if (date.IsEmpty()) return;
  form_.CriteriaText = DayCriteria(date);
  Value sum;
  step("sum of day",
       world_.stores.QueryValue(day.DatabaseName(),
                                "select sum(Tutar) FROM Datam Where CariKod=" + sources::Quoted(cursors_.CariData.Text("CariKod")) +
                                    " And Durum='Satış' And " + form_.CriteriaText,
                                sum));
  screen_.Label5.SetCaption(Format("0" + AsText(sum), form_.PriceFormat));
  screen_.Text2(2).SetText(screen_.Label5.Caption());
}

}  // namespace karvel
