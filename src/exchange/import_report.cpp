#include "exchange/import_report.h"

#include <fmt/format.h>

#include <algorithm>

#include "text/format.h"

namespace karvel {
namespace {

std::string Counted(std::int64_t count) {
  return Format(static_cast<double>(count), "#,##0");
}

std::string Summary(const CardImport& import, const CardSheet& sheet, ImportMode mode) {
  const bool write = mode == ImportMode::Write;
  const char* const kind = sheet.kind == &StockCardKind() ? "stok kartı" : "cari kart";
  std::string text = fmt::format("{} yeni {} {}, {} kart {}, {} kart aynı.\n", Counted(import.added), kind, write ? "yazıldı" : "yazılacak",
                                 Counted(import.changed), write ? "değişti" : "değişecek", Counted(import.same));
  if (import.groups > 0) text += fmt::format("{} yeni gurup {}.\n", Counted(import.groups), write ? "açıldı" : "açılacak");
  if (import.openingsPassed > 0)
    text += fmt::format("{} kartın açılış rakamları dosyadakinden farklı: kart olduğu gibi kalır.\n", Counted(import.openingsPassed));
  if (!write) text += "Bu bir denemeydi, hiçbir şey yazılmadı. Yazmak için sonuna --write ekleyin.\n";
  return text;
}

}  // namespace

std::string FaultLine(const SheetFault& fault, const CardSheet& sheet) {
  if (fault.line == 0) return fault.what;
  if (fault.column < 0) return fmt::format("Satır {}: {}", fault.line, fault.what);
  const auto used = std::ranges::find(sheet.columns, fault.column, &CardSheet::UsedColumn::sheetColumn);
  const std::string heading = used == sheet.columns.end() ? "" : fmt::format(" ({})", used->column->heading);
  return fmt::format("Satır {}, sütun {}{}: {}", fault.line, ColumnLetters(fault.column), heading, fault.what);
}

std::string ImportReport(const CardImport& import, const CardSheet& sheet, ImportMode mode) {
  if (import.faults.empty()) return Summary(import, sheet, mode);
  std::string text;
  for (const SheetFault& fault : import.faults) text += FaultLine(fault, sheet) + "\n";
  return text + fmt::format("{} hata bulundu; hiçbir kart yazılmadı. Dosyayı düzeltip yeniden deneyin.\n",
                            Counted(static_cast<std::int64_t>(import.faults.size())));
}

}  // namespace karvel
