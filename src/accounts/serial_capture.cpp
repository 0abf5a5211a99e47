#include "accounts/serial_capture.h"

#include <algorithm>

#include "books/sources.h"
#include "books/steps.h"
#include "desk/captions.h"
#include "platform/messages.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

const Steps step("CheckSerialEntry");

}  // namespace

SerialCapture::SerialCapture(const DeskParts& parts, MainButton& button)
    : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), world_(parts.world), button_(button) {
  connections_ += screen_.Text4.character.Connect([this](CharacterEvent& event) {
    if (event.character != key::kEnter) return;
    event.character = 0;
    CheckSerialEntry();
  });
  connections_ += screen_.Label4.changed.Connect([this] { FollowMode(); });
}

void SerialCapture::FollowMode() {
  Screen& screen = screen_;
  if (ModeOnScreen(screen) == LineMode::Purchase) return;
  // Only a purchase brings serials in; what was read for one would otherwise be stored with a sale.
  screen.Frame4.SetVisible(false);
  screen.List1.ClearItems();
}

void SerialCapture::CheckSerialEntry() {
  if (!screen_.Text4.Text().empty()) Take();
  // The entry is complete with as many serials as pieces.
  if (static_cast<double>(screen_.List1.Items().size()) != NumberOrZero(screen_.Text2(1).Text())) return;
  world_.messages.MessageBox("Seri Numarası Girişi Tamamlandı.", "Giriş Tamam", MessageIcon::None, MessageButtons::Ok);
  screen_.Frame4.SetVisible(false);
  button_.SetFocus();
}

void SerialCapture::Take() {
  const std::string serial = screen_.Text4.Text();
  if (IsReadAlready(serial)) {
    Refuse("Bu Seri Numarası", "Daha önce okutulmuş");
    return;
  }
  if (IsBarcode(serial)) {
    Refuse("Bu Seri Numarası Değil", "Stok Barkodu");
  } else {
    const auto& taken = screen_.List1.Items();
    // One that was scanned twice is passed over without a word.
    if (std::ranges::none_of(taken, [&](const std::string& one) { return EqualText(one, serial); })) screen_.List1.AddItem(serial);
  }
  screen_.Text4.SetText("");
  screen_.Text4.SetFocus();
}

void SerialCapture::Refuse(const std::string& first, const std::string& second) {
  world_.messages.MessageBox(first + "\n\n" + second, "Dikkat", MessageIcon::Stop, MessageButtons::Ok);
  screen_.Text4.SetText("");
}

bool SerialCapture::IsReadAlready(const std::string& serial) {
  Cursor& serials = cursors_.SeriNoData;
  step("refresh serials", serials.Refresh());
  // One column at a time: each has its index.
  for (const char* const column : {"barcode", "BarCode1"}) {
    step("find serial", serials.FindFirst(std::string(column) + "=" + sources::Quoted(serial)));
    if (!serials.NoMatch()) return true;
  }
  return false;
}

bool SerialCapture::IsBarcode(const std::string& serial) {
  Cursor& cards = cursors_.StokData;
  const RowKey item = cards.CurrentKey();
  // Looking must not change the item of the line: its serials would be dropped with it.
  const Muted muted(form_.RepositionGuard, Mute::Items);
  step("find barcode", cards.FindFirst("Barkod=" + sources::Quoted(serial)));
  const bool barcode = !cards.NoMatch();
  if (barcode && item != 0 && cards.CurrentKey() != item) {
    step("back to the item", cards.MoveTo(item));
  }
  if (cards.Text("StokAdi") != screen_.Text1(1).Text())
    step("item of the line", cards.FindFirst("StokAdi=" + sources::Quoted(screen_.Text1(1).Text())));
  return barcode;
}

}  // namespace karvel
