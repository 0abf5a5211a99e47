#include "desk/double_tap_hints.h"

#include <utility>

#include "desk/captions.h"
#include "desk/quiet_line.h"

namespace karvel {

DoubleTapHints::DoubleTapHints(const DeskParts& parts) : screen_(parts.screen) {
  const auto always = [](const char* text) { return [text] { return std::string(text); }; };
  Explain(screen_.Label1(0), [this] { return LeadingTo(); });
  Explain(screen_.Label1(1), always("Adla ve barkodla arama: çift dokunun"));
  Explain(screen_.Label1(2), always("Sıradaki fiyat: çift dokunun"));
  Explain(screen_.Label1(3), always("Miktarı yazmak için çift dokunun"));
  Explain(screen_.Label1(5), always("Tutarı yazmak için çift dokunun"));
  Explain(screen_.Label1(6), always("İskontoyu yazmak için çift dokunun"));
  Explain(screen_.Label4, always("Satış, iade, alış: çift dokunun"));
  Explain(screen_.Label5, [this] { return std::string(AtRest(screen_) ? "" : "Günün toplamını ödemeye almak için çift dokunun"); });
}

void DoubleTapHints::Explain(Element& tile, std::function<std::string()> hint) {
  connections_ += tile.click.Connect([this, hint = std::move(hint)] {
    shown_ = hint();
    if (!shown_.empty()) Tell(screen_, shown_);
  });
  connections_ += tile.dblClick.Connect([this] {
    if (!std::exchange(shown_, {}).empty()) Tell(screen_, "");
  });
}

std::string DoubleTapHints::LeadingTo() const {
  if (!AtRest(screen_)) return "Müşteri listesine dönmek için çift dokunun";
  return IsWholesale(screen_) ? "Müşterilere dönmek için çift dokunun" : "Satışa geçmek için çift dokunun";
}

}  // namespace karvel
