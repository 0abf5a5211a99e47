#include "documents/invoice_options.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "desk/quiet_line.h"
#include "platform/messages.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {
constexpr int kMarks = 10, kLines = 11, kFont = 12, kTax = 13;
constexpr double kMostLines = 999;  // no paper holds more
}  // namespace

InvoiceOptions::InvoiceOptions(const DeskParts& parts) : screen_(parts.screen), settings_(parts.settings), world_(parts.world) {
  Screen& screen = screen_;
  for (int i = 0; i < kMarks; ++i) connections_ += screen.MnPop(i).click.Connect([this, i] { Toggle(i); });
  connections_ += screen.MnPop(kLines).click.Connect([this] { AskLines(); });
  connections_ += screen.MnPop(kFont).click.Connect([this] { AskFont(); });
  connections_ += screen.MnPop(kTax).click.Connect([this] { ToggleTax(); });
}

// One character an entry, in their order.
void InvoiceOptions::Toggle(int index) {
  Element& entry = screen_.MnPop(index);
  entry.SetChecked(!entry.Checked());
  std::string marks = settings_.Get(Setting::InvoiceMarks);
  marks.resize(std::max<std::size_t>(marks.size(), kMarks), '0');
  marks[static_cast<std::size_t>(index)] = entry.Checked() ? '1' : '0';
  settings_.Save(Setting::InvoiceMarks, marks);
}

void InvoiceOptions::AskLines() {
  const auto answer = world_.messages.InputBox("Fatura Satır Sayısı Giriniz", "Fatura Satır Sayısı", settings_.Get(Setting::InvoiceLines));
  if (!answer) return;
  const auto lines = ReadNumber(*answer);
  if (!lines || *lines < 1 || *lines > kMostLines || *lines != std::floor(*lines)) {
    const std::string typed = Trim(*answer);
    Tell(screen_, (typed.empty() ? "Satır sayısı yazılmadı" : typed + " satır sayısı değil") + ", eskisi kaldı");
    return;
  }
  settings_.SaveNumber(Setting::InvoiceLines, static_cast<float>(*lines));
}

void InvoiceOptions::AskFont() {
  const FontChoice kept{settings_.Get(Setting::PrintFontName), settings_.GetNumber(Setting::PrintFontSize)};
  const auto font = world_.messages.FontDialog(kept.name.empty() ? FontChoice{} : kept);
  if (!font) return;
  settings_.Save(Setting::PrintFontName, font->name);
  settings_.SaveNumber(Setting::PrintFontSize, font->size);
}

void InvoiceOptions::ToggleTax() {
  const std::string told = settings_.Get(Setting::TaxMode) == "Dahil" ? "Hariç" : "Dahil";
  settings_.Save(Setting::TaxMode, told);
  screen_.MnPop(kTax).SetCaption("Kdv " + told);
}

}  // namespace karvel
