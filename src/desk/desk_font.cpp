#include "desk/desk_font.h"

#include "platform/window.h"

namespace karvel {

DeskFont::DeskFont(const DeskParts& parts) : screen_(parts.screen), settings_(parts.settings), world_(parts.world) {
  connections_ += screen_.Form1.dblClick.Connect([this] { Choose(); });
  connections_ += screen_.FontDialog.click.Connect([this] { Choose(); });
}

FontChoice DeskFont::Kept() const {
  return {settings_.Get(Setting::DeskFontName), settings_.GetNumber(Setting::DeskFontSize), settings_.GetBoolean(Setting::DeskFontBold)};
}

void DeskFont::Apply() {
  const FontChoice desk = Kept();
  if (!desk.name.empty()) {
    world_.window.SetDeskFont(desk.name, desk.size, desk.bold);
    world_.window.SetGridFont(desk.name, desk.size, desk.bold);
  }
  const std::string grid = settings_.Get(Setting::GridFontName);
  if (!grid.empty()) world_.window.SetGridFont(grid, settings_.GetNumber(Setting::GridFontSize), desk.bold);
}

void DeskFont::Choose() {
  const auto font = world_.messages.FontDialog(Kept());
  if (!font) return;
  settings_.Save(Setting::DeskFontName, font->name);
  settings_.SaveNumber(Setting::DeskFontSize, font->size);
  settings_.SaveBoolean(Setting::DeskFontBold, font->bold);
  settings_.Save(Setting::GridFontName, "");  // what is chosen now is for the lists too
  Apply();
}

}  // namespace karvel
