#include "accounts/collection_panel.h"

#include <algorithm>
#include <array>

#include "desk/captions.h"
#include "desk/quiet_line.h"
#include "desk/refusal.h"
#include "text/format.h"

namespace karvel {
namespace {

constexpr int kOk = 1, kCancel = 0;
constexpr int kAmount = 2;  // of Text2
// In the order in which taps on Label3 go through them.
constexpr std::array<const char*, 4> kInstruments{"Nakit", "Kredi Kartı", "Çek", "Senet"};

void Flip(Element& button, const char* one, const char* other) {
  button.SetCaption(button.Caption() == one ? other : one);
}

}  // namespace

CollectionPanel::CollectionPanel(const DeskParts& parts, MoneyConfirmation& money, CustomerInFront& customer, BalanceDisplay& figure)
    : screen_(parts.screen), cursors_(parts.cursors), world_(parts.world), money_(money), customer_(customer), figure_(figure) {
  Screen& screen = screen_;
  connections_ += screen.Command1.click.Connect([this] {
    if (screen_.Command1.Caption() == caption::kCollectAtOnce) Open();
  });
  connections_ += screen.Label3.click.Connect([this] { NextInstrument(); });
  connections_ += screen.Label3.changed.Connect([this] { ShowInstrument(); });
  for (int i = 0; i < screen.Command8.Count(); ++i) connections_ += screen.Command8(i).click.Connect([this, i] { ChooseInstrument(i); });
  connections_ += screen.Text2(kAmount).keyDown.Connect([this](KeyEvent& event) { AmountKey(event); });
  connections_ += screen.Command9.click.Connect([&screen] {
    Flip(screen.Command9, caption::kWithSlip, caption::kWithoutSlip);
    screen.Command7(kOk).SetFocus();
  });
  connections_ += screen.NakitCmd.click.Connect([&screen] {
    Flip(screen.NakitCmd, caption::kOnAccount, caption::kInCash);
    screen.Command7(kOk).SetFocus();
  });
  connections_ += screen.DökNoYaz.click.Connect([this] { PrintSlip(); });
  connections_ += screen.Command7(kCancel).click.Connect([&screen] { screen.TahsilatFrame.SetVisible(false); });
  connections_ += screen.Command7(kOk).click.Connect([this] { Collect(); });
}

void CollectionPanel::Open() {
  if (!customer_.BringServed() || customer_.IsGone()) return;
  const double balance = customer_.StoredBalance();
  if (balance == 0) return;
  screen_.Text2(2).SetText(PlainNumber(balance));
  ShowInstrument();
  screen_.TahsilatFrame.SetVisible(true);
  screen_.TahsilatFrame.BringToFront();
  screen_.Command7(kOk).SetFocus();
}

// The panel says how Label3 takes the money. Cheques and notes have no button of their own in it.
void CollectionPanel::ShowInstrument() {
  Screen& screen = screen_;
  const std::string& instrument = screen.Label3.Caption();
  screen.TahsilatFrame.SetCaption(" " + instrument + " Tahsilat ");
  for (int i = 0; i < screen.Command8.Count(); ++i)
    screen.Command8(i).SetColor(screen.Command8(i).Caption() == instrument ? color::kGreen : color::kYellow);
  // Enter in the amount must not take it in another way than the panel says.
  if (defaultButton_ && defaultButton_->Caption() != instrument) defaultButton_ = nullptr;
}

void CollectionPanel::NextInstrument() {
  Element& label = screen_.Label3;
  const auto now = std::find(kInstruments.begin(), kInstruments.end(), label.Caption());
  const bool last = now == kInstruments.end() || now + 1 == kInstruments.end();
  label.SetCaption(last ? kInstruments.front() : *(now + 1));
}

void CollectionPanel::ChooseInstrument(int index) {
  screen_.Label3.SetCaption(screen_.Command8(index).Caption());
  ShowInstrument();  // also where Label3 said so before
  defaultButton_ = &screen_.Command8(index);
  screen_.Command7(kOk).SetFocus();
}

void CollectionPanel::AmountKey(KeyEvent& event) {
  // The one field of a collection stands outside the panel; every element inside is a button, which takes Enter itself.
  if (event.code != key::kEnter || !defaultButton_ || !screen_.TahsilatFrame.Visible()) return;
  event.dropped = true;
  defaultButton_->Press();
}

// Where another was named since the panel was opened he comes in front, and the panel closes.
bool CollectionPanel::PayerStays() {
  if (!world_.stores.IsOpen()) return true;  // the posting tells why nothing can be booked
  const bool shown = screen_.TahsilatFrame.Visible();
  return customer_.BringServed() && shown == screen_.TahsilatFrame.Visible();
}

void CollectionPanel::Collect() {
  if (!PayerStays()) return;
  // Off until it is done: a second tap, which the printing could let in, would post again.
  screen_.Command7(kOk).SetEnabled(false);
  screen_.SetBusy(true);
  // Nothing is ever paid out here.
  screen_.Label1(5).SetCaption(caption::kCollection);
  const Status booked = money_.PostMoneyMovement();
  if (booked.Ok()) {
    if (screen_.Command9.Caption() == caption::kWithSlip) PrintBeside();
    figure_.Show(customer_.StoredBalance());
  }
  const Status posted = money_.WhereThere(booked);
  screen_.SetBusy(false);
  screen_.Command7(kOk).SetEnabled(true);
  // Last: this lets in the codes that waited behind the panel, and they need a desk that takes input.
  if (posted.Ok()) screen_.TahsilatFrame.SetVisible(false);
  ShowRefusal(screen_, world_, posted);
}

// What was collected stays told beside what became of the slip.
void CollectionPanel::PrintBeside() {
  const std::string collected = screen_.Durum.Caption();
  screen_.DökNoYaz.Press();
  if (const std::string printed = screen_.Durum.Caption(); printed != collected) Tell(screen_, collected + "; " + printed);
}

void CollectionPanel::PrintSlip() {
  Screen& screen = screen_;
  // Hidden, it tells the slip's writer that the slip still open is meant; off, that it is at work.
  screen.DökNoYaz.SetVisible(false);
  screen.DökNoYaz.SetEnabled(false);
  screen.Command5(1).Press();
  screen.DökNoYaz.SetEnabled(true);
}

}  // namespace karvel
