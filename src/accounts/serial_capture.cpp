#include "accounts/serial_capture.h"

#include <algorithm>

#include "desk/sources.h"
#include "desk/steps.h"
#include "platform/messages.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

const Steps step("CheckSerialEntry");

}  // namespace

SerialCapture::SerialCapture(const DeskParts& parts) : parts_(parts) {
  parts_.screen.Text4.character.Connect([this](CharacterEvent& event) {
    if (event.character != key::kEnter) return;
    event.character = 0;
    CheckSerialEntry();
  });
  parts_.screen.Label4.changed.Connect([this] { FollowMode(); });
}

void SerialCapture::FollowMode() {
  Screen& screen = parts_.screen;
  if (screen.Label4.Caption() == "Alış") return;
  // Only what is bought brings serials in; read for a purchase, they would be stored with a sale.
  screen.Frame4.SetVisible(false);
  screen.List1.ClearItems();
}

void SerialCapture::CheckSerialEntry() {
  auto& [screen, form, cursors, settings, world] = parts_;
  if (!screen.Text4.Text().empty()) Take();  // 1.
  // 2. As many serials as pieces.
  if (static_cast<double>(screen.List1.Items().size()) != NumberOrZero(screen.Text2(1).Text())) return;
  world.messages.MessageBox("Seri Numarası Girişi Tamamlandı.", "Giriş Tamam", MessageIcon::None, MessageButtons::Ok);
  screen.Frame4.SetVisible(false);
  screen.Command2.SetFocus();
}

void SerialCapture::Take() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const std::string serial = screen.Text4.Text();
  if (IsReadAlready(serial)) {
    Refuse("Bu Seri Numarası", "Daha önce okutulmuş");
    return;
  }
  if (IsBarcode(serial)) {
    Refuse("Bu Seri Numarası Değil", "Stok Barkodu");
  } else {
    const auto& taken = screen.List1.Items();
    // One that was scanned twice is passed over without a word.
    if (std::ranges::none_of(taken, [&](const std::string& one) { return EqualText(one, serial); })) screen.List1.AddItem(serial);
  }
  screen.Text4.SetText("");
  screen.Text4.SetFocus();
}

void SerialCapture::Refuse(const std::string& first, const std::string& second) {
  parts_.world.messages.MessageBox(first + "\n\n" + second, "Dikkat", MessageIcon::Stop, MessageButtons::Ok);
  parts_.screen.Text4.SetText("");
}

bool SerialCapture::IsReadAlready(const std::string& serial) {
  Cursor& serials = parts_.cursors.SeriNoData;
  step("refresh serials", serials.Refresh());
  // One column at a time: each has its index.
  for (const char* const column : {"barcode", "BarCode1"}) {
    step("find serial", serials.FindFirst(std::string(column) + "=" + sources::Quoted(serial)));
    if (!serials.NoMatch()) return true;
  }
  return false;
}

bool SerialCapture::IsBarcode(const std::string& serial) {
  auto& [screen, form, cursors, settings, world] = parts_;
  Cursor& cards = cursors.StokData;
  const RowKey item = cards.CurrentKey();
  // The look must not move the sale: its list of serials would be dropped with the item.
  form.RepositionGuard = 66;
  step("find barcode", cards.FindFirst("Barkod=" + sources::Quoted(serial)));
  const bool barcode = !cards.NoMatch();
  if (barcode && item != 0 && cards.CurrentKey() != item) {
    step("back to the item", cards.MoveTo(item));
  }
  if (cards.Text("StokAdi") != screen.Text1(1).Text())
    step("item of the line", cards.FindFirst("StokAdi=" + sources::Quoted(screen.Text1(1).Text())));
  form.RepositionGuard = 0;
  return barcode;
}

}  // namespace karvel
