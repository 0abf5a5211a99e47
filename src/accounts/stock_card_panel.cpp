#include "accounts/stock_card_panel.h"

#include "desk/screen_keyboard.h"

namespace karvel {
namespace {
constexpr int kCode = 0, kName = 1;
constexpr int kCancel = 0, kSave = 1;
}  // namespace

StockCardPanel::StockCardPanel(const DeskParts& parts) : screen_(parts.screen), form_(parts.form) {
  Screen& screen = screen_;
  for (int i = 0; i < screen.StokNew.Count(); ++i) {
    Element& field = screen.StokNew(i);
    connections_ += field.gotFocus.Connect([this, i, &field] {
      field.SelectAll();
      form_.ActiveFieldCode = static_cast<float>(i);
    });
    connections_ += field.lostFocus.Connect([this] { Left(); });
    connections_ += field.changed.Connect([this] { OpenSave(); });
  }
  connections_ += screen.StokGiris.altered.Connect([this] { Left(); });
  connections_ += screen.StokNewCmd(kCancel).click.Connect([&screen] {
    screen.StokGiris.SetVisible(false);
    screen.Text1(1).SetFocus();
  });
  OpenSave();
}

void StockCardPanel::Left() {
  const Screen& screen = screen_;
  const Element* const focused = screen.elements.Focused();
  // The keyboard over the new code mutes the items: it closes with the panel, and when the clerk goes on elsewhere.
  if (!screen.StokGiris.Visible() || (focused && focused->Panel() != &screen.StokGiris)) CloseKeyboard(form_, screen_);
}

void StockCardPanel::OpenSave() {
  const Screen& screen = screen_;
  screen.StokNewCmd(kSave).SetEnabled(!screen.StokNew(kCode).Text().empty() && !screen.StokNew(kName).Text().empty());
}

}  // namespace karvel
