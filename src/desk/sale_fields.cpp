#include "desk/sale_fields.h"

#include <algorithm>
#include <array>
#include <utility>

#include "books/steps.h"
#include "desk/captions.h"
#include "desk/price_selection.h"
#include "desk/quiet_line.h"
#include "platform/keyboard.h"
#include "text/format.h"
#include "text/turkish.h"
#include "touch/typed_number.h"

namespace karvel {
namespace {

constexpr int kPrice = 0, kQuantity = 1, kPayment = 2, kDiscount = 3;
// The name in Label1 that stands before each field of Text2.
constexpr std::array kNameOf{2, 3, 5, 6};
const Steps step("SaleFields");

// What the box would hold with the letter typed over its selection.
std::string WithLetter(const Element& box, char32_t letter) {
  const auto start = static_cast<std::size_t>(box.SelectionStart());
  const auto end = start + static_cast<std::size_t>(box.SelectionLength());
  return LeftLetters(box.Text(), start) + LetterToUtf8(letter) + MidLetters(box.Text(), end);
}

// Groups the whole part of an amount and leaves what is typed after the comma: "1500,5" becomes "1.500,5".
std::string Grouped(const std::string& text) {
  if (!IsNumeric(text)) return text;
  const std::size_t comma = text.find(',');
  return Format(NumberOrZero(text.substr(0, comma)), "#,##0") + (comma == std::string::npos ? "" : text.substr(comma));
}

void TellMostDiscount(Screen& screen) {
  Tell(screen, "İskonto en çok " + PlainNumber(kMostDiscount));
}

// A key that changes the number that stands, or moves the caret in it.
bool EditsWhatStands(int code) {
  constexpr std::array kKeys{key::kBackspace, key::kDelete, key::kEnd, key::kHome, key::kLeft, key::kUp, key::kRight, key::kDown};
  return std::ranges::find(kKeys, code) != kKeys.end();
}

}  // namespace

void UnmarkFieldNames(Screen& screen) {
  for (int i = 0; i <= 6; ++i) screen.Label1(i).SetColor(color::kYellow);
}

SaleFields::SaleFields(const DeskParts& parts, PriceFloor& floor, MainButton& button)
    : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), world_(parts.world), floor_(floor), button_(button) {
  Screen& screen = screen_;
  for (int i = 0; i < screen.Text2.Count(); ++i) {
    Element& box = screen.Text2(i);
    box.SetFontName("Agency FB");
    connections_ += box.changed.Connect([this, i] { Changed(i); });
    connections_ += box.gotFocus.Connect([this, i] { Focused(i); });
    connections_ += box.lostFocus.Connect([this, i] { LeaveField(i); });
    connections_ += box.keyDown.Connect([this](const KeyEvent& event) { KeyDown(event); });
    connections_ += box.keyUp.Connect([this](const KeyEvent&) { keyIsDown_ = false; });
    connections_ += box.mouseDown.Connect([this](const MouseEvent& event) {
      if (!event.entering) fresh_ = false;  // the finger places the caret in the number that stands
    });
    connections_ += box.character.Connect([this, i](CharacterEvent& event) { Character(i, event); });
  }
  screen.Label2.SetFontName("Agency FB");
  connections_ += screen.Label2.changed.Connect([&screen] { screen.Label2.SetCaption(Format(screen.Label2.Caption(), "#,##0.00")); });
  connections_ += screen.Text3.changed.Connect([this] { TakePadValue(); });
}

void SaleFields::Changed(int index) {
  if (screen_.Text2(index).HasFocus()) fresh_ = !keyIsDown_;
  if (form_.RepositionGuard.ItemsStill()) return;
  Element& box = screen_.Text2(index);
  if (box.Text().empty()) {
    box.SetText("0");
    return;
  }
  // A digit typed after the "0" that stands there replaces it.
  if (box.Text().size() > 1 && box.Text()[0] == '0' && box.Text()[1] >= '0' && box.Text()[1] <= '9') {
    box.SetText(box.Text().substr(1));
    return;
  }
  if (index == kPrice) KeepFloor();
  if (index == kDiscount) HoldDiscount();
  if (index < kDiscount) {
    const double amount = NumberOrZero(screen_.Text2(kPrice).Text()) * NumberOrZero(screen_.Text2(kQuantity).Text());
    screen_.Label2.SetCaption(Format(amount, form_.PriceFormat));
  }
  button_.FollowAmounts();
  if (index == kPayment) {
    const std::string grouped = Grouped(box.Text());
    if (grouped != box.Text()) {
      box.SetText(grouped);
      return;
    }
  }
  box.CaretToEnd();
}

void SaleFields::KeepFloor() {
  Element& price = screen_.Text2(kPrice);
  const std::string asked = price.Text();
  if (asked == floored_.shown) return;
  const bool typed = std::exchange(typing_, false);
  floored_ = {};
  floor_.Keep();
  if (typed && price.Text() != asked) floored_ = {asked, price.Text()};
}

void SaleFields::HoldDiscount() {
  Element& box = screen_.Text2(kDiscount);
  const double percent = NumberOrZero(box.Text());
  if (HeldDiscount(percent) == percent) return;
  if (percent > kMostDiscount) TellMostDiscount(screen_);
  box.SetText(PlainNumber(HeldDiscount(percent)));
}

void SaleFields::Focused(int index) {
  Screen& screen = screen_;
  floored_ = {};
  typing_ = false;
  fresh_ = true;
  keyIsDown_ = false;
  form_.ActiveFieldCode = static_cast<float>(index);
  UnmarkFieldNames(screen);
  screen.Label1(kNameOf[static_cast<std::size_t>(index)]).SetColor(color::kGreen);
  screen.Text2(index).CaretToEnd();
}

void SaleFields::KeyDown(const KeyEvent& event) {
  keyIsDown_ = true;
  if (EditsWhatStands(event.code)) fresh_ = false;
}

void SaleFields::Character(int index, CharacterEvent& event) {
  if (event.character == key::kEnter) {
    event.character = 0;
    if (index == kPrice) LookUpPriceText();
    world_.keyboard.Send(key::kTab);
    return;
  }
  if (event.character < ' ') return;
  if (event.character == '.') event.character = ',';
  const bool sign = event.character == '-' || event.character == '+';
  if (sign || !TakeLetter(index, event)) {
    event.character = 0;
    world_.keyboard.Beep();
  }
}

bool SaleFields::TakeLetter(int index, CharacterEvent& event) {
  Element& box = screen_.Text2(index);
  const bool selected = box.SelectionLength() > 0;
  if (index == kPrice && !fresh_ && !selected && !floored_.shown.empty() && box.Text() == floored_.shown) {
    // The floor took the place of a price of which only the first digits were typed: the next digit goes on from those.
    const std::string price = floored_.typed + LetterToUtf8(event.character);
    if (MayBecomeNumber(price)) {
      event.character = 0;
      typing_ = true;
      box.SetText(price);
      return true;
    }
  }
  const bool replaces = fresh_ && !selected;
  const std::string number = replaces ? LetterToUtf8(event.character) : WithLetter(box, event.character);
  if (!MayBecomeNumber(number)) return false;
  if (index == kDiscount && NumberOrZero(number) > kMostDiscount) {
    TellMostDiscount(screen_);
    return false;
  }
  fresh_ = false;
  typing_ = index == kPrice;
  if (number == ",") {
    event.character = 0;
    box.SetText("0,");
  } else if (replaces) {
    box.SelectAll();  // the letter then takes the place of the number
  }
  return true;
}

void SaleFields::LeaveField(int index) {
  Element& box = screen_.Text2(index);
  if (box.Text().empty()) box.SetText("0");
  if (IsNumeric(box.Text())) box.SetText(FinishedNumber(box.Text()));
  if (ModeOnScreen(screen_) == LineMode::Purchase && form_.SerialEntryOn && NumberOrZero(screen_.Text2(kQuantity).Text()) > 0) {
    // There are more serials than pieces now, and only the goods can tell which to leave out.
    if (static_cast<double>(screen_.List1.Items().size()) > NumberOrZero(screen_.Text2(kQuantity).Text())) screen_.List1.ClearItems();
    screen_.Frame4.SetVisible(true);
    screen_.Frame4.BringToFront();
    // The serials come after the quantity; a clerk who goes to another field of the line is left to type there.
    const Element* const next = screen_.elements.Focused();
    const bool onLine = next == &screen_.Text2(kPrice) || next == &screen_.Text2(kQuantity) || next == &screen_.Text2(kDiscount);
    if (!onLine && (index == kQuantity || next != &screen_.Text2(kPayment))) screen_.Text4.SetFocus();
  }
}

void SaleFields::LookUpPriceText() {
  Cursor& cards = cursors_.StokData;
  const std::string text = screen_.Text2(kPrice).Text();
  step("find barcode", cards.FindFirst("Barkod='" + text + "'"));
  if (cards.NoMatch()) step("find name", cards.FindFirst("StokAdi like '" + text + "*'"));
  if (cards.NoMatch()) return;
  screen_.Text2(kPrice).SetText(cards.Text("StokAdi"));
  screen_.Text6(5).SetText(cards.Text("Barkod"));
}

// No more than is on hand can be sold; goods that come back or in are not bound by it.
std::string SaleFields::WithinStock(const std::string& quantity) {
  const double onHand = cursors_.StokData.Number("KalanB");
  if (!screen_.Stoklu.Checked() || ModeOnScreen(screen_) != LineMode::Sale || NumberOrZero(quantity) <= onHand) return quantity;
  Tell(screen_, "Stokta " + PlainNumber(onHand) + " var");
  return PlainNumber(onHand);
}

void SaleFields::TakePadValue() {
  const std::string text = screen_.Text3.Text();
  if (text.empty()) return;
  const int field = static_cast<int>(form_.ActiveFieldCode);
  if (field >= 0 && field < screen_.Text2.Count()) screen_.Text2(field).SetText(field == kQuantity ? WithinStock(text) : text);
  screen_.Text3.SetText("");
}

}  // namespace karvel
