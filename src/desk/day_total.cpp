#include "desk/day_total.h"

#include "books/day_sums.h"
#include "books/steps.h"
#include "desk/captions.h"
#include "desk/served_customer.h"
#include "platform/clock.h"
#include "text/format.h"

namespace karvel {
namespace {
const Steps step("DayTotal");
}

DayTotal::DayTotal(const DeskParts& parts, BalanceDisplay& figure)
    : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), world_(parts.world), figure_(figure) {
  connections_ += screen_.Label5.dblClick.Connect([this] { TakeDayOfRow(); });
  connections_ += cursors_.HareketData.repositioned.Connect([this] { FollowDayBook(); });
}

void DayTotal::ShowToday() {
  if (!cursors_.HareketData.HasRows()) return;
  const DateTime today = world_.clock.Now();
  form_.CriteriaText = DayCriteria(today);
  double sum = 0;
  const Status summed = SumUnpaidSales(world_.stores, screen_.Text1(0).Text(), today, sum);
  step("sum of unpaid sales", summed);
  if (summed.Ok()) figure_.ShowText(Format(sum, "Standard"));
}

void DayTotal::FollowDayBook() {
  if (form_.RepositionGuard.DayBookStill()) return;
  const bool rows = cursors_.HareketData.HasRows();
  screen_.HareketGrid.SetMarker(rows);
  // At rest the figure is the balance of the customer in front; the deleted lines are nobody's.
  if (AtRest(screen_) || screen_.SilinenChk.Checked()) return;
  double sum = 0;
  if (rows) step("sum of today", SumDayBook(world_.stores, ServedCode(screen_, form_, cursors_), world_.clock.Now(), sum));
  figure_.ShowText(Format(sum, form_.PriceFormat));
}

void DayTotal::TakeDayOfRow() {
  const Cursor& day = cursors_.HareketData;
  if (!day.HasRows()) return;
  const DateTime date = AsDate(day.Get("Tarih"));
  if (date.IsEmpty()) return;
  form_.CriteriaText = DayCriteria(date);
  double sum = 0;
  step("sum of the day", SumSales(world_.stores, ServedCode(screen_, form_, cursors_), date, sum));
  figure_.ShowText(Format(sum, form_.PriceFormat));
  screen_.Text2(2).SetText(figure_.Text());
}

}  // namespace karvel
