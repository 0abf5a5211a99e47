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

Options::Options(const DeskParts& parts, PriceSelection& prices) : parts_(parts), prices_(prices) {
  Screen& screen = parts_.screen;
  for (const Option& option : OptionsOf(screen)) {
    Element& entry = option.entry;
    entry.click.Connect([this, &entry, setting = option.setting] {
      entry.SetChecked(!entry.Checked());
      if (&entry == &parts_.screen.BarkodOku) StartScanner();
      parts_.settings.SaveBoolean(setting, entry.Checked());
    });
  }
  screen.FiyatSabit.click.Connect([&screen] { screen.Text2(0).SetEnabled(!screen.FiyatSabit.Checked()); });
  screen.Fiyat2.click.Connect([this] { prices_.SetFirstPriceColumn(); });
  screen.Label1(7).mouseDown.Connect([this](const MouseEvent& event) { OpenMenu(event); });
}

void Options::Read() {
  auto& [screen, form, cursors, settings, world] = parts_;
  for (const Option& option : OptionsOf(screen)) option.entry.SetChecked(settings.GetBoolean(option.setting));
  screen.Text2(0).SetEnabled(!screen.FiyatSabit.Checked());

  settings.SaveNumber(Setting::FeedLines, settings.GetNumber(Setting::FeedLines));
  const std::string marks = settings.Get(Setting::InvoiceMarks);
  for (int i = 0; i <= 9; ++i)
    screen.MnPop(i).SetChecked(static_cast<std::size_t>(i) < marks.size() && marks[static_cast<std::size_t>(i)] != '0');
  screen.MnPop(10).SetCaption(settings.Get(Setting::InvoicePrinter, screen.MnPop(10).Caption()));
  form.MinSalePercent = static_cast<float>(settings.GetNumber(Setting::MinSalePercent));
  const int turnover = static_cast<int>(settings.GetNumber(Setting::TurnoverChoice));
  if (!settings.Get(Setting::TurnoverChoice).empty() && turnover >= 0 && turnover < screen.CiroYaz.Count()) {
    screen.CiroYaz(turnover).SetChecked(true);
    screen.CiroYazCmd.SetCaption(screen.CiroYaz(turnover).Caption());
  }
}

void Options::StartScanner() {
  auto& [screen, form, cursors, settings, world] = parts_;
  if (!screen.BarkodOku.Checked()) {
    world.scanner.Stop();
  } else if (!world.scanner.Start()) {
    screen.BarkodOku.SetChecked(false);
  }
}

void Options::OpenMenu(const MouseEvent& event) {
  auto& [screen, form, cursors, settings, world] = parts_;
  if (event.button != 2) return;
  if (event.ctrl) {
    screen.OnLine.SetChecked(!screen.OnLine.Checked());
    screen.FtpVar.SetChecked(!screen.FtpVar.Checked());
  }
  if (form.Sabit) screen.popUp(screen.PopBrk);
}

}  // namespace karvel
