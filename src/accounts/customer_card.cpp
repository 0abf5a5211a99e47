#include "accounts/customer_card.h"

#include <array>
#include <string_view>

#include "books/sources.h"
#include "books/steps.h"
#include "desk/refusal.h"
#include "desk/screen_keyboard.h"
#include "platform/keyboard.h"
#include "platform/messages.h"
#include "text/turkish.h"

namespace karvel {
namespace {

constexpr int kCode = 0, kName = 1, kEmail = 4, kCardNumber = 9;
constexpr int kCancel = 0, kSave = 1;
// Where each CariNew is written.
constexpr std::array<const char*, 10> kFields{"CariKod", "Unvan",   "Adres1",  "Adres2", "Email",
                                              "VergiDa", "VergiNo", "Telefon", "Gsm",    "KartNo"};
const Steps step("CustomerCard");

// Two texts that differ only in the kind of an i are taken for the same.
std::string AnyI(std::string text) {
  for (const char* const letter : {"İ", "ı", "i", "I"}) text = ReplaceAll(text, letter, "?");
  return text;
}

// Mail knows no dotless i: there an "I" is the "i" of everywhere else.
std::string AddressLower(const std::string& text) {
  return TurkishLower(ReplaceAll(text, "I", "i"));
}

// A letter in lower case, or itself where it has none of a single letter.
char32_t Lower(char32_t letter) {
  const std::string lower = TurkishLower(LetterToUtf8(letter));
  if (lower.size() == 1) return static_cast<unsigned char>(lower[0]);
  if (lower.size() == 2) return ((static_cast<unsigned char>(lower[0]) & 0x1FU) << 6U) | (static_cast<unsigned char>(lower[1]) & 0x3FU);
  return letter;
}

}  // namespace

CustomerCard::CustomerCard(const DeskParts& parts, CustomerList& customers)
    : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), world_(parts.world), customers_(customers) {
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
  // They would stand for any letter in the searches.
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
  form_.RepositionGuard = 555;
  const RowKey inFront = cursors_.CariData.CurrentKey();
  if (!IsNew()) {
    // The card that stands in the way was found, no more: a payment must not go to it.
    if (inFront != 0) step("customer in front", cursors_.CariData.MoveTo(inFront));
    form_.RepositionGuard = 0;
    return;
  }
  const Status added = AddCard();
  screen_.CariNewCmd(kSave).SetEnabled(true);
  if (!added.Ok()) {
    ShowRefusal(world_, added);
    return;
  }
  step("refresh customers", cursors_.CariData.Refresh());
  Close();
}

bool CustomerCard::IsNew() {
  Cursor& customers = cursors_.CariData;
  const auto field = [this](int index) -> Element& { return screen_.CariNew(index); };
  // 1.
  if (field(kCode).Text().empty()) field(kCode).SetFocus();
  if (field(kName).Text().empty()) field(kName).SetFocus();
  // 2.
  // Among all cards, whatever the list shows: two of one code would share their ledger.
  Cursor all(world_.stores, "all cards");
  all.SetDatabaseName(customers.DatabaseName());
  step("all cards", all.Open("CariKartlar"));
  step("find code", all.FindFirst("CariKod Like " + sources::Quoted(AnyI(field(kCode).Text()))));
  if (!all.NoMatch()) return Refuse("Dikkat Bu Cari Kodu Kayıtlı..!", field(kCode));
  // 3.
  step("find name", customers.FindFirst("Unvan Like " + sources::Quoted(AnyI(field(kName).Text()))));
  if (!customers.NoMatch()) return Refuse("Dikkat Bu Unvan Kayıtlı..!", field(kCode));
  // 4.
  step("find card number", customers.FindFirst("KartNo=" + sources::Quoted(field(kCardNumber).Text())));
  if (field(kCardNumber).Text().empty() || customers.NoMatch()) return true;
  field(kCardNumber).SetText("");
  screen_.CariNewCmd(kSave).SetEnabled(false);
  return Refuse("Bu Kart Numarası Kullanılmış...?", field(kCardNumber));
}

bool CustomerCard::Refuse(const std::string& text, Element& focus) {
  world_.messages.MessageBox(text, "Dikkat...", MessageIcon::Information, MessageButtons::Ok);
  focus.SetFocus();
  return false;
}

Status CustomerCard::AddCard() {
  Cursor& card = cursors_.CariData;
  Status added = card.AddNew();
  if (!added.Ok()) return added;
  for (int i = 0; i < screen_.CariNew.Count(); ++i) {
    const std::string& text = screen_.CariNew(i).Text();
    card.Set(kFields[static_cast<std::size_t>(i)], i == kEmail ? AddressLower(text) : text);
  }
  card.Set("Hes", "C");
  card.Set("Hesap", "Borç");
  if (screen_.CariChk.Checked()) {
    card.Set("Gurup", "Toptan");
  } else {
    card.Set("Gurup", screen_.GurupCombo.ListIndex() <= 0 ? std::string("Müşteri") : screen_.GurupCombo.Text());
  }
  card.Set("yeni", 1);
  return card.Update();
}

void CustomerCard::Close() {
  Screen& screen = screen_;
  screen.Text1(0).SetText("");
  for (int i = 0; i < screen.CariNew.Count(); ++i) screen.CariNew(i).SetText("");
  screen.CariFrm.SetVisible(false);
  screen.Text1(0).SetFocus();
  form_.RepositionGuard = 0;
  customers_.FollowInFront();
  screen.Text1(0).SelectAll();
}

}  // namespace karvel
