#include "documents/logos.h"

#include <string>

#include "platform/files.h"
#include "platform/messages.h"

namespace karvel {
namespace {
constexpr int kCompany = 1;
}  // namespace

Logos::Logos(const DeskParts& parts) : screen_(parts.screen), settings_(parts.settings), world_(parts.world) {
  for (int i = 0; i < screen_.Logom.Count(); ++i) connections_ += screen_.Logom(i).click.Connect([this, i] { Toggle(i); });
}

std::string Logos::OwnLogo() const {
  return PathIn(world_.files.ProgramFolder(), "Logo.jpg");
}

std::string Logos::FileOf(int index) const {
  return world_.files.RealPath(index == kCompany ? settings_.Get(Setting::LogoPath) : OwnLogo());
}

void Logos::Begin() {
  for (int i = 0; i < screen_.Logom.Count(); ++i) Show(i, settings_.GetBooleanAt(Setting::LogoMark, i));
}

void Logos::Show(int index, bool shown) {
  screen_.Logom(index).SetChecked(shown);
  screen_.Picture2(index).SetText(shown ? FileOf(index) : "");
  screen_.Picture2(index).SetVisible(shown);
}

void Logos::Toggle(int index) {
  bool shown = !screen_.Logom(index).Checked();
  if (shown && index == kCompany) {
    const auto chosen = world_.messages.FileDialog("Firma Logo", OwnLogo());
    if (chosen) settings_.Save(Setting::LogoPath, *chosen);
    shown = chosen.has_value();
  }
  Show(index, shown);
  settings_.SaveBooleanAt(Setting::LogoMark, index, shown);
}

}  // namespace karvel
