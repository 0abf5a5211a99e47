#include "accounts/item_card.h"

#include "books/sources.h"
#include "books/steps.h"

namespace karvel {
namespace {
const Steps step("ItemCard");
}

ItemCard::ItemCard(const DeskParts& parts) : cursors_(parts.cursors), beside_(parts.world.stores, "item card") {}

Cursor& ItemCard::Find(const std::string& code) {
  Cursor& list = cursors_.StokData;
  const std::string byCode = "StokKod=" + sources::Quoted(code);
  step("find stock card", list.FindFirst(byCode));
  if (!list.NoMatch()) return list;
  beside_.SetDatabaseName(list.DatabaseName());
  step("all cards", beside_.Open("StokKartlar"));
  step("find stock card beside the list", beside_.FindFirst(byCode));
  return beside_.NoMatch() ? list : beside_;
}

}  // namespace karvel
