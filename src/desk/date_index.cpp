#include "desk/date_index.h"

#include "books/sources.h"
#include "books/steps.h"

namespace karvel {

DateIndex::DateIndex(Cursors& cursors) : cursors_(cursors) {
  connections_ += cursors_.IndexPrimary.repositioned.Connect([this] { FollowYear(); });
}

void DateIndex::FollowYear() {
  const Cursor& years = cursors_.IndexPrimary;
  if (!years.HasRows()) return;
  const Steps step("DateIndex");
  step("counters of the year", cursors_.IndexSecondary.Open("Select * From Mdbindex where Tarih=" + sources::Quoted(years.Text("Tarih"))));
}

}  // namespace karvel
