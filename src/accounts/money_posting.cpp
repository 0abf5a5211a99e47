#include "accounts/money_posting.h"

#include <array>
#include <string_view>

#include "books/card_balance.h"
#include "books/sources.h"
#include "books/steps.h"
#include "desk/main_button.h"
#include "platform/clock.h"
#include "text/format.h"

namespace karvel {
namespace {

// The account behind each form of payment. Whatever else Label3 says is cash.
struct MoneyAccount {
  std::string_view instrument;
  std::string_view code;
};
constexpr std::array kMoneyAccounts{
    MoneyAccount{"Kredi Kartı", "=150"},
    MoneyAccount{"Senet", "=500"},
    MoneyAccount{"Çek", "=600"},
};
constexpr std::string_view kCash = "=100";

std::string AccountOf(std::string_view instrument) {
  for (const MoneyAccount& account : kMoneyAccounts)
    if (account.instrument == instrument) return std::string(account.code);
  return std::string(kCash);
}

const Steps step("PostMoneyMovement");

}  // namespace

struct MoneyPosting::Movement {
  DateTime now;
  std::string customer;  // CariKod
  double amount = 0;
  std::string instrument;  // Label3
  std::string direction;   // Label1(5)
  std::string list;        // the customer list that was in front
  std::string account;     // CariKod of the money account
  std::string description;
  [[nodiscard]] bool PaysOut() const { return direction == " Ödeme"; }
};

MoneyPosting::MoneyPosting(const DeskParts& parts, RunningNumbers& numbers, MainButton& button)
    : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), world_(parts.world), numbers_(numbers) {
  button.postMoney = [this] { return PostMoneyMovement(); };
}

Status MoneyPosting::PostMoneyMovement() {
  Action action(world_.stores, "PostMoneyMovement");
  if (!action.Begun().Ok()) return action.Finish();

  // 1. What is posted.
  Movement movement;
  movement.now = world_.clock.Now();
  movement.customer = cursors_.CariData.Text("CariKod");
  movement.amount = NumberOrZero(screen_.Text2(2).Text());
  movement.instrument = screen_.Label3.Caption();
  movement.direction = screen_.Label1(5).Caption();
  const std::string lineBefore = form_.CurrentLineId;

  // 2. Both cards are found whatever list is in front.
  form_.RepositionGuard = 99;
  movement.list = cursors_.CariData.RecordSource();
  step("all cards", cursors_.CariData.Open("CariKartlar"));
  movement.account = AccountOf(movement.instrument);  // 3.
  // 4. Behind an open sale and without the panel, the money is for the item in front.
  if (screen_.CariGrid.Visible()) {
    movement.description = movement.instrument + (movement.PaysOut() ? " Ödeme" : " Tahsilat");
  } else if (screen_.TahsilatFrame.Visible()) {
    movement.description = movement.instrument + " Tahsilat";
  } else {
    movement.description = cursors_.StokData.Text("StokAdi");
  }
  form_.CurrentLineId = numbers_.NextLineId();  // 5.

  // 6. A missing account stops nothing: the card in front takes its place.
  step("find money account", cursors_.CariData.FindFirst("CariKod=" + sources::Quoted(movement.account)));
  BookAccount(movement);  // 7.
  form_.RepositionGuard = 99;
  MoveBalance(movement, !movement.PaysOut());  // 8.
  // 9., 10. The day book's row lands before the customer's ledger row.
  step("find customer", cursors_.CariData.FindFirst("CariKod=" + sources::Quoted(movement.customer)));
  OpenCustomerRow(movement);
  form_.RepositionGuard = 100;
  BookDay(movement);
  step("update customer's row", cursors_.CariHarData.Update());
  MoveBalance(movement, movement.PaysOut());  // 11.
  ConsumeDueDates(movement);                  // 13.

  const Status done = action.Finish();
  ShowCustomer(movement);  // 12.
  if (!done.Ok()) {
    form_.CurrentLineId = lineBefore;
    return done;
  }
  step("refresh due dates", cursors_.VadeData.Refresh());  // 14.
  screen_.Text2(2).SetText("0");
  screen_.Command2.SetCaption("Tamam");
  return done;
}

void MoneyPosting::BookAccount(const Movement& movement) {
  Cursor& ledger = cursors_.CariHarData;
  const Cursor& account = cursors_.CariData;
  if (ledger.HasRows()) step("last ledger row", ledger.MoveLast());
  step("add account's row", ledger.AddNew());
  ledger.Set("cariharkod", account.Text("CariKod"));
  ledger.Set("Tarih", movement.now);
  ledger.Set("Aciklama", movement.description);
  if (!screen_.CariGrid.Visible()) {
    ledger.Set("Bilgi1", cursors_.StokData.Text("StokKod"));
    ledger.Set("Bilgi2", cursors_.StokData.Text("StokAdi"));
    ledger.Set("Birim", cursors_.StokData.Text("Birim"));
    ledger.Set("Gurup", account.Text("Gurup"));
  }
  ledger.Set(movement.PaysOut() ? "Alacak" : "Borc", movement.amount);
  ledger.Set("Carisi", account.Text("CariKod"));
  ledger.Set("Unvan", screen_.Text1(0).Text());
  ledger.Set("DigerId", form_.CurrentLineId);
  ledger.Set("Nerde", "C");
  ledger.Set("yeni", 1);
  step("update account's row", ledger.Update());
}

void MoneyPosting::OpenCustomerRow(const Movement& movement) {
  Cursor& ledger = cursors_.CariHarData;
  const Cursor& customer = cursors_.CariData;
  step("add customer's row", ledger.AddNew());
  ledger.Set("cariharkod", customer.Text("CariKod"));
  ledger.Set("Unvan", customer.Text("Unvan"));
  ledger.Set("Carisi", customer.Text("CariKod"));
  ledger.Set("Tarih", movement.now);
  ledger.Set("Aciklama", screen_.Text1(0).Text() + movement.direction + " İle");
  ledger.Set(movement.PaysOut() ? "Borc" : "Alacak", movement.amount);
  ledger.Set("DigerId", form_.CurrentLineId);
  ledger.Set("Nerde", "C");
  ledger.Set("yeni", 1);
}

void MoneyPosting::BookDay(const Movement& movement) {
  const Cursor& ledger = cursors_.CariHarData;
  Cursor& day = cursors_.HareketData;
  step("add day-book row", day.AddNew());
  day.Set("CariKod", ledger.Get("Carisi"));
  day.Set("CariAd", ledger.Get("Unvan"));
  day.Set("StokAd", movement.description);
  day.Set("Tarih", ledger.Get("Tarih"));
  day.Set("DigerId", form_.CurrentLineId);
  day.Set("Tahsilat", movement.amount);
  day.Set("Durum", movement.instrument == "Kredi Kartı" ? "K.Kartı" : movement.instrument);
  day.Set("yeni", 1);
  day.Set("Plasiyer", numbers_.DayBookTag());
  day.Set("Gurup", cursors_.CariData.Text("Gurup"));
  step("update day-book row", day.Update());
}

void MoneyPosting::MoveBalance(const Movement& movement, bool debit) {
  Cursor& card = cursors_.CariData;
  step("edit card", card.Edit());
  const char* const side = debit ? "Borc" : "Alacak";
  card.Set(side, card.Number(side) + movement.amount);
  ApplyBalance(card);
  step("update card", card.Update());
}

void MoneyPosting::ConsumeDueDates(const Movement& movement) {
  Cursor& due = cursors_.VadeData;
  // The customer's own, also where a list in purchase mode muted their following.
  step("due dates", due.Open(sources::DueDatesOf(movement.customer)));
  if (cursors_.CariData.Number("Bakiye") == 0) {
    step("delete due dates",
         world_.stores.Execute(due.DatabaseName(), "DELETE FROM VadeGün Where CariKod=" + sources::Quoted(movement.customer) + ";"));
    return;
  }
  // At most two rows: what spans three or more leaves the second below zero.
  double amount = movement.amount;
  if (due.HasCurrent() && amount > due.Number(2)) {
    amount -= due.Number(2);
    step("delete due date", due.Delete());
    step("next due date", due.MoveNext());
  }
  if (!due.HasCurrent()) return;
  step("edit due date", due.Edit());
  due.Set(2, due.Number(2) - amount);
  if (IsNothing(due.Number(2))) {
    due.CancelUpdate();
    step("delete due date", due.Delete());
  } else {
    step("update due date", due.Update());
  }
}

void MoneyPosting::ShowCustomer(const Movement& movement) {
  form_.RepositionGuard = 2;
  step("customer list", cursors_.CariData.Open(movement.list));
  form_.RepositionGuard = 0;
  step("find customer", cursors_.CariData.FindFirst("CariKod=" + sources::Quoted(movement.customer)));
}

}  // namespace karvel
