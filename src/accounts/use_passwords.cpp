#include "accounts/use_passwords.h"

#include "books/sources.h"
#include "books/steps.h"
#include "platform/messages.h"
#include "platform/window.h"
#include "text/turkish.h"

namespace karvel {
namespace {

constexpr const char* kPrompt = "Lütfen Kullanım Şifresi Girin";
constexpr const char* kNewPrompt = "Lütfen Kullanım Şifresi Girin Yada Yeni Şifre Girin";
constexpr const char* kTitle = "Kullanım Şifresi";
constexpr int kRightButton = 2;
const Steps step("UsePasswords");

}  // namespace

UsePasswords::UsePasswords(const DeskParts& parts, CustomerInFront& customer)
    : screen_(parts.screen), cursors_(parts.cursors), settings_(parts.settings), world_(parts.world), customer_(customer) {
  connections_ += screen_.CariGrid.mouseDown.Connect([this](const MouseEvent& event) {
    if (event.button == kRightButton) OpenCustomerMenu();
  });
}

bool UsePasswords::AdmitToDeletedLines() {
  const std::string password = settings_.Get(Setting::DeletedLinesPassword);
  const auto typed = world_.messages.InputBox(kPrompt, kTitle, "");
  if (!typed) return false;
  if (password.empty()) {
    if (!typed->empty()) settings_.Save(Setting::DeletedLinesPassword, *typed);
    return false;
  }
  if (*typed == password) return true;
  world_.messages.MessageBox("Key is invalid.", "SecureKey", MessageIcon::Stop, MessageButtons::Ok);
  // Whoever guesses gets no second try.
  screen_.Form1.SetEnabled(false);
  world_.window.End();
  return false;
}

bool UsePasswords::AdmitToCustomerMenu() {
  const std::string password = settings_.Get(Setting::UsePassword);
  const auto typed = world_.messages.InputBox(kPrompt, kTitle, "");
  if (!typed) return false;
  if (!password.empty()) return *typed == password;
  // None is set yet: what was typed is offered again, and what the clerk then leaves there becomes it.
  const auto chosen = world_.messages.InputBox(kNewPrompt, kTitle, *typed);
  if (!chosen || chosen->empty()) return false;
  settings_.Save(Setting::UsePassword, *chosen);
  return true;
}

void UsePasswords::OpenCustomerMenu() {
  // The same list also shows stock and the day book, which have no such menu; and it may have turned while the password was typed.
  if (!customer_.IsThere() || !AdmitToCustomerMenu() || !customer_.IsThere()) return;
  if (Trim(screen_.Text1(0).Text()).empty()) customer_.Follow();  // the menu is that of the row under the finger
  if (!customer_.BringServed()) return;
  step("ledger", cursors_.CariHarData.Open(sources::LedgerOf(customer_.Code())));
  screen_.CarSil.SetCaption(cursors_.CariHarData.HasRows() ? "Cari Hareketleri Sil" : "Cari Kartı Sil");
  screen_.CarSil.SetVisible(true);
  screen_.popUp(screen_.PopMenu);
}

}  // namespace karvel
