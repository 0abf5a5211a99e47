#include "books/walk_in_customer.h"

#include "books/book_cursor.h"
#include "books/find_card.h"
#include "books/sources.h"

namespace karvel {
namespace {

Status AddCard(Cursor& cards) {
  if (Status begun = cards.AddNew(); !begun.Ok()) return begun;
  cards.Set("CariKod", sources::kWalkIn);
  cards.Set("Unvan", sources::kWalkIn);
  cards.Set("yeni", 1);
  cards.Set("Gurup", "Müşteri");
  return cards.Update();
}

}  // namespace

Status KeepWalkInCustomer(const Shop& shop) {
  Action action(shop.stores, "KeepWalkInCustomer");
  if (!action.Begun().Ok()) return action.Finish();
  BookCursor cards(shop.stores, "walk-in customer", "Cari.Mdb", kCustomerCards);
  Status kept = cards.FindFirst("Unvan=" + sources::Quoted(sources::kWalkIn));
  if (kept.Kind() == ErrorKind::NoRecord) kept = AddCard(cards);
  // One card is the whole of the action: where it could not be written, the reason is the outcome.
  const Status done = action.Finish();
  return kept.Ok() ? done : kept;
}

}  // namespace karvel
