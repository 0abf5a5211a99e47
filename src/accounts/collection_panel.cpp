#include "accounts/collection_panel.h"

#include <algorithm>
#include <array>

#include "desk/refusal.h"
#include "desk/stored_cards.h"
#include "text/format.h"

namespace karvel {
namespace {

constexpr int kOk = 1, kCancel = 0;
constexpr int kAmount = 2;  // of Text2
// In the order in which a tap on Label3 goes round.
constexpr std::array<const char*, 4> kInstruments{"Nakit", "Kredi Kartı", "Çek", "Senet"};

void Flip(Element& button, const char* one, const char* other) {
  button.SetCaption(button.Caption() == one ? other : one);
}

}  // namespace

CollectionPanel::CollectionPanel(const DeskParts& parts, MoneyPosting& money) : parts_(parts), money_(money) {
  Screen& screen = parts_.screen;
  screen.Command1.click.Connect([this] {
    if (parts_.screen.Command1.Caption() == "Tahsilat") Open();
  });
  screen.Label3.click.Connect([this] { NextInstrument(); });
  for (int i = 0; i < screen.Command8.Count(); ++i) screen.Command8(i).click.Connect([this, i] { ChooseInstrument(i); });
  screen.Text2(kAmount).keyDown.Connect([this](KeyEvent& event) { AmountKey(event); });
  screen.Command9.click.Connect([&screen] {
    Flip(screen.Command9, "Yazıcı Var", "Yazıcı Yok");
    screen.Command7(kOk).SetFocus();
  });
  screen.NakitCmd.click.Connect([&screen] {
    Flip(screen.NakitCmd, "Cari Hesap", "Nakit");
    screen.Command7(kOk).SetFocus();
  });
  screen.DökNoYaz.click.Connect([this] { PrintSlip(); });
  screen.Command7(kCancel).click.Connect([&screen] { screen.TahsilatFrame.SetVisible(false); });
  screen.Command7(kOk).click.Connect([this] { Collect(); });
}

void CollectionPanel::Open() {
  auto& [screen, form, cursors, settings, world] = parts_;
  Cursor stored(world.stores, "debtor");
  if (!OpenStoredCustomer(stored, cursors.CariData)) return;
  const double balance = stored.Number("Bakiye");
  if (balance == 0) return;
  screen.Text2(2).SetText(PlainNumber(balance));
  screen.TahsilatFrame.SetVisible(true);
  screen.TahsilatFrame.BringToFront();
  screen.Command7(kOk).SetFocus();
}

void CollectionPanel::NextInstrument() {
  Element& label = parts_.screen.Label3;
  const auto now = std::find(kInstruments.begin(), kInstruments.end(), label.Caption());
  const bool last = now == kInstruments.end() || now + 1 == kInstruments.end();
  label.SetCaption(last ? kInstruments.front() : *(now + 1));
}

void CollectionPanel::ChooseInstrument(int index) {
  Screen& screen = parts_.screen;
  for (int i = 0; i < screen.Command8.Count(); ++i) screen.Command8(i).SetColor(i == index ? color::kGreen : color::kYellow);
  const std::string& instrument = screen.Command8(index).Caption();
  screen.TahsilatFrame.SetCaption(" " + instrument + " Tahsilat ");
  screen.Label3.SetCaption(instrument);
  defaultButton_ = &screen.Command8(index);
  screen.Command7(kOk).SetFocus();
}

void CollectionPanel::AmountKey(KeyEvent& event) {
  // The one field of a collection stands outside the panel; every element inside is a button, which takes Enter itself.
  if (event.code != key::kEnter || !defaultButton_ || !parts_.screen.TahsilatFrame.Visible()) return;
  event.dropped = true;
  defaultButton_->Press();
}

void CollectionPanel::Collect() {
  auto& [screen, form, cursors, settings, world] = parts_;
  // Off until it is done: a second tap, which the printing could let in, would post again.
  screen.Command7(kOk).SetEnabled(false);
  screen.SetBusy(true);
  // Nothing is ever paid out here.
  screen.Label1(5).SetCaption(" Tahsilat");
  const Status posted = money_.PostMoneyMovement();
  if (posted.Ok()) {
    if (screen.Command9.Caption() == "Yazıcı Var") screen.DökNoYaz.Press();
    screen.Label5.SetCaption(PlainNumber(cursors.CariData.Number("Bakiye")));
  }
  screen.SetBusy(false);
  screen.Command7(kOk).SetEnabled(true);
  // Last: the codes that waited behind the panel are entered now, by a desk that takes input.
  if (posted.Ok()) screen.TahsilatFrame.SetVisible(false);
  ShowRefusal(world, posted);
}

void CollectionPanel::PrintSlip() {
  Screen& screen = parts_.screen;
  // Hidden, it tells the slip's writer that the slip still open is meant; off, that it is at work.
  screen.DökNoYaz.SetVisible(false);
  screen.DökNoYaz.SetEnabled(false);
  screen.Command5(1).Press();
  screen.DökNoYaz.SetEnabled(true);
}

}  // namespace karvel
