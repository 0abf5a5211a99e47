#include "accounts/line_in_front.h"

#include <utility>

#include "books/steps.h"

namespace karvel {
namespace {
const Steps step("LineInFront");

bool IsCancelled(const Cursor& day) {
  return day.Text("Durum") == "Iptal";
}

}  // namespace

bool ReadLineAnew(FormState& form, Cursors& cursors) {
  Cursor& day = cursors.HareketData;
  const bool wasCancelled = IsCancelled(day);
  const float guard = std::exchange(form.RepositionGuard, 100.0F);
  const bool there = day.MoveTo(day.CurrentKey()).Ok() && (wasCancelled || !IsCancelled(day));
  form.RepositionGuard = guard;
  if (!there) step("refresh day book", day.Refresh());
  return there;
}

}  // namespace karvel
