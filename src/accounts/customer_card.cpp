#include "accounts/customer_card.h"

#include "books/sources.h"
#include "books/steps.h"
#include "desk/captions.h"
#include "desk/quiet_line.h"
#include "desk/refusal.h"
#include "desk/screen_keyboard.h"
#include "desk/unknown_outcome.h"
#include "platform/keyboard.h"
#include "platform/messages.h"
#include "text/turkish.h"

namespace karvel {
namespace {

constexpr int kCode = 0, kName = 1, kStreet = 2, kCity = 3, kEmail = 4, kTaxOffice = 5, kTaxNumber = 6, kPhone = 7, kMobile = 8,
              kCardNumber = 9;
constexpr int kCancel = 0, kSave = 1;
const Steps step("CustomerCard");

// A letter in lower case, or itself where it has none of a single letter.
char32_t Lower(char32_t letter) {
  const std::string lower = TurkishLower(LetterToUtf8(letter));
  return LetterCount(lower) == 1 ? FirstLetter(lower) : letter;
}

}  // namespace

CustomerCard::CustomerCard(const DeskParts& parts, CustomerInFront& customer)
    : shop_(parts.shop), screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), world_(parts.world), customer_(customer) {
  Screen& screen = screen_;
  for (int i = 0; i < screen.CariNew.Count(); ++i) {
    Element& box = screen.CariNew(i);
    connections_ += box.changed.Connect([this] { Changed(); });
    connections_ += box.gotFocus.Connect([this, i] { Focused(i); });
    connections_ += box.click.Connect([&screen, &box] { screen.Text5.SetText(box.Text()); });
    connections_ += box.character.Connect([this, i](CharacterEvent& event) { Character(i, event); });
  }
  Changed();
  connections_ += screen.CariNewCmd(kCancel).click.Connect([this] { Cancel(); });
  connections_ += screen.CariNewCmd(kSave).click.Connect([this] { Save(); });
}

void CustomerCard::Changed() {
  Screen& screen = screen_;
  screen.CariNewCmd(kSave).SetEnabled(!screen.CariNew(kCode).Text().empty() && !screen.CariNew(kName).Text().empty());
}

void CustomerCard::Focused(int index) {
  screen_.CariNew(index).SelectAll();
  form_.ActiveFieldCode = static_cast<float>(index);
}

void CustomerCard::Character(int index, CharacterEvent& event) {
  if (event.character == key::kEnter) {
    event.character = 0;
    world_.keyboard.Send(key::kTab);
    return;
  }
  const bool searched = index == kCode || index == kName;
  // These would stand for any letter in the searches.
  if (searched && (event.character == '*' || event.character == '?' || event.character == '!')) {
    event.character = 0;
  } else if (event.character >= ' ') {
    event.character = index == kEmail && event.character == 'I' ? 'i' : Lower(event.character);
  }
}

void CustomerCard::Cancel() {
  CloseKeyboard(form_, screen_);
  Close();
}

void CustomerCard::Save() {
  CloseKeyboard(form_, screen_);
  // Off until the next change of a field; a refused card is not tried again as it is.
  screen_.CariNewCmd(kSave).SetEnabled(false);
  if (!IsNew()) return;
  const Outcome<bool> added = AddCustomerCard(shop_, ReadCard());
  if (added && !*added) {
    RefuseCode();
    return;
  }
  screen_.CariNewCmd(kSave).SetEnabled(true);
  ShowRefusal(screen_, world_, ShowBooked<bool>(form_, added, [this](bool) { ShowAdded(); }));
}

void CustomerCard::ShowAdded() {
  customer_.RefreshList();
  const std::string name = screen_.CariNew(kName).Text();
  Close();
  Tell(screen_, name + " kaydedildi");
}

bool CustomerCard::IsNew() {
  const auto field = [this](int index) -> Element& { return screen_.CariNew(index); };
  if (field(kCode).Text().empty()) field(kCode).SetFocus();
  if (field(kName).Text().empty()) field(kName).SetFocus();
  const Outcome<bool> taken = IsCustomerCodeTaken(shop_, field(kCode).Text());
  if (!taken) {
    ShowRefusal(screen_, world_, taken.error());
    screen_.CariNewCmd(kSave).SetEnabled(true);  // the card is as good as before
    return false;
  }
  if (*taken) return RefuseCode();
  // Name and card number have to be new in the list that is in front.
  Cursor listed(world_.stores, "listed customers");
  listed.SetDatabaseName(cursors_.CariData.DatabaseName());
  step("listed customers", listed.Open(cursors_.CariData.RecordSource()));
  step("find name", listed.FindFirst("Unvan Like " + sources::Quoted(AnyKindOfI(field(kName).Text()))));
  if (!listed.NoMatch()) return Refuse("Dikkat Bu Unvan Kayıtlı..!", field(kCode));
  if (field(kCardNumber).Text().empty()) return true;
  step("find card number", listed.FindFirst("KartNo=" + sources::Quoted(field(kCardNumber).Text())));
  if (listed.NoMatch()) return true;
  field(kCardNumber).SetText("");
  screen_.CariNewCmd(kSave).SetEnabled(false);
  return Refuse("Bu Kart Numarası Kullanılmış...?", field(kCardNumber));
}

bool CustomerCard::RefuseCode() {
  return Refuse("Dikkat Bu Cari Kodu Kayıtlı..!", screen_.CariNew(kCode));
}

bool CustomerCard::Refuse(const std::string& text, Element& focus) {
  world_.messages.MessageBox(text, "Dikkat...", MessageIcon::Information, MessageButtons::Ok);
  focus.SetFocus();
  return false;
}

NewCustomer CustomerCard::ReadCard() const {
  const auto text = [this](int index) { return screen_.CariNew(index).Text(); };
  return {text(kCode),      text(kName),  text(kStreet), text(kCity),       text(kEmail), text(kTaxOffice),
          text(kTaxNumber), text(kPhone), text(kMobile), text(kCardNumber), GroupOfNew()};
}

// That of the list in front, where it is narrowed to one.
std::string CustomerCard::GroupOfNew() const {
  if (screen_.CariChk.Checked()) return "Toptan";
  return ListsCustomerGroups(screen_) && screen_.GurupCombo.ListIndex() > 0 ? screen_.GurupCombo.Text() : "Müşteri";
}

void CustomerCard::Close() {
  screen_.Text1(0).SetText("");
  for (int i = 0; i < screen_.CariNew.Count(); ++i) screen_.CariNew(i).SetText("");
  screen_.CariFrm.SetVisible(false);
  screen_.Text1(0).SetFocus();
  customer_.Follow();
  screen_.Text1(0).SelectAll();
}

}  // namespace karvel
