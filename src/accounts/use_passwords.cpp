#include "accounts/use_passwords.h"

#include "desk/sources.h"
#include "desk/steps.h"
#include "platform/messages.h"
#include "platform/window.h"

namespace karvel {
namespace {

constexpr const char* kPrompt = "Lütfen Kullanım Şifresi Girin";
constexpr const char* kNewPrompt = "Lütfen Kullanım Şifresi Girin Yada Yeni Şifre Girin";
constexpr const char* kTitle = "Kullanım Şifresi";
constexpr int kRightButton = 2;
const Steps step("UsePasswords");

}  // namespace

UsePasswords::UsePasswords(const DeskParts& parts) : parts_(parts) {
  parts_.screen.CariGrid.mouseDown.Connect([this](const MouseEvent& event) {
    if (event.button == kRightButton) OpenCustomerMenu();
  });
}

bool UsePasswords::AdmitToDeletedLines() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const std::string password = settings.Get(Setting::DeletedLinesPassword);
  const auto typed = world.messages.InputBox(kPrompt, kTitle, "");
  if (!typed) return false;
  if (password.empty()) {
    if (!typed->empty()) settings.Save(Setting::DeletedLinesPassword, *typed);
    return false;
  }
  if (*typed == password) return true;
  world.messages.MessageBox("Key is invalid.", "SecureKey", MessageIcon::Stop, MessageButtons::Ok);
  // Whoever guesses gets no second try.
  screen.Form1.SetEnabled(false);
  world.window.End();
  return false;
}

bool UsePasswords::AdmitToCustomerMenu() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const std::string password = settings.Get(Setting::UsePassword);
  const auto typed = world.messages.InputBox(kPrompt, kTitle, "");
  if (!typed) return false;
  if (!password.empty()) return *typed == password;
  // None is set yet: what was typed is offered again, and what the clerk then leaves there becomes it.
  const auto chosen = world.messages.InputBox(kNewPrompt, kTitle, *typed);
  if (!chosen || chosen->empty()) return false;
  settings.Save(Setting::UsePassword, *chosen);
  return true;
}

void UsePasswords::OpenCustomerMenu() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const Cursor& customers = cursors.CariData;
  const auto onCustomer = [&] {
    return customers.SourceTable() && customers.SourceTable()->name == "CariKartlar" && customers.HasCurrent();
  };
  // The same list also shows stock and the day book, which have no such menu.
  if (!onCustomer() || !AdmitToCustomerMenu() || !onCustomer()) return;
  step("ledger", cursors.CariHarData.Open(sources::LedgerOf(customers.Text("CariKod"))));
  screen.CarSil.SetCaption(cursors.CariHarData.HasRows() ? "Cari Hareketleri Sil" : "Cari Kartı Sil");
  screen.CarSil.SetVisible(true);
  screen.popUp(screen.PopMenu);
}

}  // namespace karvel
