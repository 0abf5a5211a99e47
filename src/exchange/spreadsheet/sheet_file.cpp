#include "exchange/spreadsheet/sheet_file.h"

#include <string>

#include "exchange/csv_sheet.h"
#include "exchange/spreadsheet/xlsx_sheet.h"
#include "text/turkish.h"

namespace karvel {
namespace {

constexpr std::string_view kEnding = ".xlsx";
// What older spreadsheets wrote begins so, and what one locked by a password.
constexpr std::string_view kOldOrLocked = "\xD0\xCF\x11\xE0";

bool IsNamedXlsx(std::string_view name) {
  return name.size() >= kEnding.size() && EqualText(std::string(name.substr(name.size() - kEnding.size())), std::string(kEnding));
}

}  // namespace

SheetOutcome ReadSheetFile(std::string_view name, std::string_view bytes) {
  if (IsXlsx(bytes)) return ReadXlsx(bytes);
  if (!IsNamedXlsx(name)) return ReadCsv(bytes);
  if (bytes.starts_with(kOldOrLocked))
    return std::unexpected(SheetFault{0, -1, "Dosya şifreli veya eski hesap tablosu biçiminde (.xls). Şifresiz .xlsx olarak kaydedin."});
  return std::unexpected(SheetFault{0, -1, "Dosyanın adı .xlsx ama içi öyle değil. Hesap tablosunda açıp .xlsx olarak kaydedin."});
}

}  // namespace karvel
