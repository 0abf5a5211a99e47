#include "desk/price_floor.h"

#include "platform/messages.h"
#include "text/format.h"

namespace karvel {

PriceFloor::PriceFloor(const DeskParts& parts)
    : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), settings_(parts.settings), world_(parts.world) {
  connections_ += screen_.Label1(2).mouseDown.Connect([this](const MouseEvent& event) {
    if (event.button == 2) screen_.popUp(screen_.Popyuzde);
  });
  connections_ += screen_.Yuzde.click.Connect([this] { AskMinPercent(); });
}

void PriceFloor::Keep() {
  const double listed = cursors_.StokData.Number("Fiyat");
  const double price = NumberOrZero(screen_.Text2(0).Text());
  if (form_.MinSalePercent <= 0 || listed == 0 || price >= listed) return;
  const double floor = listed - static_cast<double>(form_.MinSalePercent) * listed / 100;
  if (price < floor) screen_.Text2(0).SetText(Format(floor, form_.PriceFormat));
}

void PriceFloor::AskMinPercent() {
  const std::string password = settings_.Get(Setting::UsePassword);
  if (!password.empty() && world_.messages.InputBox("Lütfen Kullanım Şifresi Girin", "Kullanım Şifresi", "") != password) return;
  const auto answer = world_.messages.InputBox("Lütfen Satış Yüzdesi Girin", "Min.Satış Yüzdesi", "0");
  if (!answer) return;
  form_.MinSalePercent = static_cast<float>(NumberOrZero(*answer));
  settings_.SaveNumber(Setting::MinSalePercent, NumberOrZero(*answer));
}

}  // namespace karvel
