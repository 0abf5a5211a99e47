#include "desk/desk_font.h"

#include "platform/messages.h"
#include "platform/window.h"

namespace karvel {

DeskFont::DeskFont(const DeskParts& parts) : screen_(parts.screen), settings_(parts.settings), world_(parts.world) {
  connections_ += screen_.Form1.dblClick.Connect([this] { Choose(); });
  connections_ += screen_.FontDialog.click.Connect([this] { Choose(); });
}

void DeskFont::Apply() {
  const std::string desk = settings_.Get(Setting::DeskFontName);
  if (!desk.empty()) world_.window.SetDeskFont(desk, settings_.GetNumber(Setting::DeskFontSize), false);
  const std::string grid = settings_.Get(Setting::GridFontName);
  if (!grid.empty()) world_.window.SetGridFont(grid, settings_.GetNumber(Setting::GridFontSize), false);
}

void DeskFont::Choose() {
  const auto font = world_.messages.FontDialog({settings_.Get(Setting::DeskFontName), settings_.GetNumber(Setting::DeskFontSize), false});
  if (!font) return;
  world_.window.SetDeskFont(font->name, font->size, font->bold);
  settings_.Save(Setting::DeskFontName, font->name);
  settings_.SaveNumber(Setting::DeskFontSize, font->size);
}

}  // namespace karvel
