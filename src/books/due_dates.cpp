#include "books/due_dates.h"

#include "books/book_cursor.h"
#include "books/card_balance.h"
#include "books/sources.h"
#include "books/steps.h"
#include "text/format.h"

namespace karvel {
namespace {

constexpr int kCustomer = 0, kDay = 1, kAmount = 2;
const Steps step("due dates");
const std::string kFile = "Cari.Mdb";

// Off the day that the cursor stands on. A day of which nothing is left goes.
void TakeOff(Cursor& due, double amount) {
  step("edit due date", due.Edit());
  due.Set(kAmount, WithoutDust(due.Number(kAmount) - amount));
  if (due.Number(kAmount) != 0) {
    step("update due date", due.Update());
    return;
  }
  due.CancelUpdate();
  step("delete due date", due.Delete());
}

}  // namespace

void AddDue(Stores& stores, const std::string& customerCode, const DateTime& moment, double amount) {
  BookCursor due(stores, "due dates", kFile, "VadeGün");
  const Status found = due.FindFirst("CariKod=" + sources::Quoted(customerCode) + " And VadeTarih=#" + Format(moment, "mm/dd/yyyy") + "#");
  if (found.Ok()) {
    step("edit due date", due.Edit());
  } else if (found.Kind() == ErrorKind::NoRecord) {
    step("add due date", due.AddNew());
    due.Set(kCustomer, customerCode);
    due.Set(kDay, moment.Date());
  } else {
    return;  // the action has failed
  }
  due.Set(kAmount, WithoutDust(due.Number(kAmount) + amount));
  step("update due date", due.Update());
}

void ConsumeDue(Stores& stores, const std::string& customerCode, double amount, bool balanceIsNothing) {
  if (balanceIsNothing) {
    step("delete due dates", stores.Execute(kFile, "DELETE FROM VadeGün Where CariKod=" + sources::Quoted(customerCode) + ";"));
    return;
  }
  BookCursor due(stores, "due dates", kFile, sources::DueDatesOf(customerCode));
  if (due.HasCurrent() && amount > due.Number(kAmount)) {
    amount = WithoutDust(amount - due.Number(kAmount));
    step("delete due date", due.Delete());
    step("next due date", due.MoveNext());
  }
  if (due.HasCurrent()) TakeOff(due, amount);
}

void ShrinkEarliestDue(Stores& stores, const std::string& customerCode, double amount) {
  if (amount == 0) return;
  BookCursor due(stores, "due dates", kFile, sources::DueDatesOf(customerCode));
  if (due.HasCurrent()) TakeOff(due, amount);
}

}  // namespace karvel
