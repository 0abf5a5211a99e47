#include "desk/customer_field.h"

#include "books/sources.h"
#include "books/steps.h"
#include "desk/captions.h"
#include "desk/completion.h"
#include "desk/customer_search.h"
#include "desk/list_in_front.h"
#include "desk/new_cards.h"
#include "desk/quiet_line.h"
#include "desk/screen_keyboard.h"
#include "platform/clerk_message.h"
#include "text/turkish.h"

namespace karvel {
namespace {
const Steps step("CustomerField");
}

CustomerField::CustomerField(const DeskParts& parts, CustomerInFront& customer)
    : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), customer_(customer) {
  Element& field = screen_.Text1(0);
  connections_ += field.changed.Connect([this] { TextChanged(); });
  connections_ += field.gotFocus.Connect([this] { Focused(); });
  connections_ += field.lostFocus.Connect([this] { Left(); });
  connections_ += field.keyUp.Connect([this](const KeyEvent& event) { KeyUp(event); });
  connections_ += field.character.Connect([this](CharacterEvent& event) { Character(event); });
}

void CustomerField::Focused() {
  if (form_.RepositionGuard.ItemsStill()) return;
  form_.ActiveFieldCode = 0;
  searched_ = false;
  Element& field = screen_.Text1(0);
  if (field.Text().empty() && cursors_.CariData.HasRows() && !screen_.StokChk.Checked()) {
    customer_.RefreshList();
    field.SetText(customer_.Name());
    customer_.Follow();  // the balance beside the name is this customer's
  }
  field.SelectAll();  // the next name takes the place of what stands there
}

// A beginning that was left is the name that it began, and a whole name brings its bearer in front from whatever list: what stands beside
// it is his before anything is booked.
void CustomerField::Left() {
  const std::string text = Trim(screen_.Text1(0).Text());
  if (!AtRest(screen_) || !ListsCustomers(screen_) || text.empty()) return;
  CloseKeyboard(form_, screen_);
  const bool toList = screen_.elements.Focused() == &screen_.CariGrid;  // there the row is meant that the clerk sees and taps
  if (!toList && !NamesCard(text, customer_.Name())) {
    customer_.BringNamed(text);
  } else if (searched_ || !customer_.HasName(text)) {
    customer_.Follow();
  }
  searched_ = false;
}

bool CustomerField::FindQuietly(const std::string& text) {
  searched_ = true;
  const Muted muted(form_.RepositionGuard, Mute::Fields);
  Cursor& customers = cursors_.CariData;
  step("find customer", customers.FindFirst("Unvan Like '" + text + "*'"));
  return !customers.NoMatch();
}

void CustomerField::TextChanged() {
  const std::string& text = screen_.Text1(0).Text();
  if (!screen_.Text1(0).HasFocus() || Trim(text).empty() || text == "*") return;
  if (screen_.StokChk.Checked()) {
    step("find name", cursors_.StokData.FindFirst("StokAdi Like '" + text + "*'"));
    return;
  }
  if (text == customer_.Name()) return;  // the row in front is the one meant
  FindQuietly(text);
}

void CustomerField::KeyUp(const KeyEvent& event) {
  Element& field = screen_.Text1(0);
  if (!ListsCustomers(screen_) || !IsCompletingKey(event) || field.Text().empty() || field.Text() == "*") return;
  if (form_.KeyboardOpen) {
    FindQuietly(field.Text());
    return;
  }
  if (!customer_.HasName(field.Text())) {
    if (!FindQuietly(field.Text())) return;
    Complete(field, customer_.Name());
  }
  customer_.ShowCompleted();
}

// Whoever is meant by what was typed comes in front; nobody: a new card is offered.
bool CustomerField::Find(const std::string& text) {
  const Status found = FindCustomerByText(cursors_.CariData, screen_.Text1(0).Text());
  if (found.Ok()) return true;
  const bool nobody = found.Kind() == ErrorKind::NoRecord || found.Kind() == ErrorKind::BadText;
  if (!nobody) {
    Tell(screen_, ClerkMessage(found));
    return false;
  }
  Brought brought = customer_.BringCardNumber(text);
  if (brought == Brought::Nobody) brought = customer_.BringNamed(text);
  // A second card of a name would split the debt.
  if (brought == Brought::Nobody) OpenCustomerCard(screen_, text);
  return brought == Brought::InFront;
}

void CustomerField::Character(CharacterEvent& event) {
  if (event.character != key::kEnter) return;
  event.character = 0;
  if (!ListsCustomers(screen_)) return;
  CloseKeyboard(form_, screen_);  // what was typed on it is taken, so the list follows again
  const std::string text = screen_.Text1(0).Text();
  Element& list = AtRest(screen_) ? static_cast<Element&>(screen_.CariGrid) : screen_.StokGrid;
  if (customer_.HasName(text)) {
    // The row in front is the one meant, even if another bears the same name.
    customer_.Follow();
  } else if (!Find(Trim(text))) {
    return;
  }
  customer_.OpenDayBook();
  list.SetFocus();
}

}  // namespace karvel
