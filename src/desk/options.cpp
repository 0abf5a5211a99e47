#include "desk/options.h"

#include <array>

#include "platform/scanner.h"
#include "text/format.h"

namespace karvel {
namespace {

struct Option {
  Element& entry;
  Setting setting;
};

auto OptionsOf(Screen& screen) {
  return std::array{
      Option{screen.AySil, Setting::PurgeMonth},
      Option{screen.FiyatSabit, Setting::PriceFixed},
      Option{screen.Fiyat2, Setting::GroupSecondPrice},
      Option{screen.Stoklu, Setting::StockedSale},
      Option{screen.A5, Setting::A5Size},
      Option{screen.Efatura80cm, Setting::EInvoice80mm},
      Option{screen.SecimTamam, Setting::PostOnScan},
      Option{screen.AraVer, Setting::NameOnOwnLine},
      Option{screen.Silme, Setting::DeletionOpen},
      Option{screen.BarkodOku, Setting::ScannerOn},
  };
}

}  // namespace

Options::Options(const DeskParts& parts, PriceSelection& prices)
    : screen_(parts.screen), form_(parts.form), settings_(parts.settings), world_(parts.world), prices_(prices) {
  Screen& screen = screen_;
  for (const Option& option : OptionsOf(screen)) {
    Element& entry = option.entry;
    connections_ += entry.click.Connect([this, &entry, setting = option.setting] {
      entry.SetChecked(!entry.Checked());
      if (&entry == &screen_.BarkodOku) StartScanner();
      settings_.SaveBoolean(setting, entry.Checked());
    });
  }
  connections_ += screen.FiyatSabit.click.Connect([&screen] { screen.Text2(0).SetEnabled(!screen.FiyatSabit.Checked()); });
  connections_ += screen.Fiyat2.click.Connect([this] { prices_.SetFirstPriceColumn(); });
  for (int i = 0; i < screen.Klv.Count(); ++i)
    connections_ += screen.Klv(i).click.Connect([this, i] {
      settings_.SaveNumber(Setting::ScreenKeyboard, i);
      ShowKeyboardChoice();
    });
  connections_ += screen.Label1(7).mouseDown.Connect([this](const MouseEvent& event) { OpenMenu(event); });
}

void Options::Read() {
  for (const Option& option : OptionsOf(screen_)) option.entry.SetChecked(settings_.GetBoolean(option.setting));
  screen_.Text2(0).SetEnabled(!screen_.FiyatSabit.Checked());

  settings_.SaveNumber(Setting::FeedLines, settings_.GetNumber(Setting::FeedLines));
  const std::string marks = settings_.Get(Setting::InvoiceMarks);
  for (int i = 0; i <= 9; ++i)
    screen_.MnPop(i).SetChecked(static_cast<std::size_t>(i) < marks.size() && marks[static_cast<std::size_t>(i)] != '0');
  screen_.MnPop(10).SetCaption(settings_.Get(Setting::InvoicePrinter, screen_.MnPop(10).Caption()));
  form_.MinSalePercent = static_cast<float>(settings_.GetNumber(Setting::MinSalePercent));
  ShowKeyboardChoice();
  const int turnover = static_cast<int>(settings_.GetNumber(Setting::TurnoverChoice));
  if (!settings_.Get(Setting::TurnoverChoice).empty() && turnover >= 0 && turnover < screen_.CiroYaz.Count()) {
    screen_.CiroYaz(turnover).SetChecked(true);
    screen_.CiroYazCmd.SetCaption(screen_.CiroYaz(turnover).Caption());
  }
}

void Options::ShowKeyboardChoice() {
  const auto chosen = static_cast<int>(settings_.GetNumber(Setting::ScreenKeyboard));
  for (int i = 0; i < screen_.Klv.Count(); ++i) screen_.Klv(i).SetChecked(i == chosen);
}

void Options::StartScanner() {
  if (!screen_.BarkodOku.Checked()) {
    world_.scanner.Stop();
  } else if (!world_.scanner.Start()) {
    screen_.BarkodOku.SetChecked(false);
  }
}

void Options::OpenMenu(const MouseEvent& event) {
  if (event.button != 2) return;
  if (event.ctrl) {
    screen_.OnLine.SetChecked(!screen_.OnLine.Checked());
    screen_.FtpVar.SetChecked(!screen_.FtpVar.Checked());
  }
  if (form_.Sabit) screen_.popUp(screen_.PopBrk);
}

}  // namespace karvel
