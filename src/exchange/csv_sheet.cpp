#include "exchange/csv_sheet.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "text/turkish.h"
#include "text/utf8.h"

namespace karvel {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr char kQuote = '"';

std::optional<SheetFault> NotText(std::string_view bytes) {
  const bool wide = bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
  if (wide) return SheetFault{0, -1, "Dosya UTF-16 ile yazılmış. Hesap tablosunda \"CSV UTF-8\" olarak kaydedin."};
  if (bytes.starts_with("\xD0\xCF\x11\xE0"))
    return SheetFault{0, -1, "Eski hesap tablosu biçimi (.xls) okunmaz. .xlsx veya .csv olarak kaydedin."};
  if (bytes.find('\0') != std::string_view::npos) return SheetFault{0, -1, "Bu bir metin dosyası değil. .xlsx veya .csv olarak kaydedin."};
  return {};
}

// The sign between the cells of the first line, outside quotes.
char SeparatorOf(std::string_view text) {
  std::size_t semicolons = 0, commas = 0, tabs = 0;
  bool quoted = false;
  for (const char sign : text) {
    if (sign == kQuote) quoted = !quoted;
    if (quoted) continue;
    if (sign == '\n' || sign == '\r') break;
    semicolons += sign == ';' ? 1 : 0;
    commas += sign == ',' ? 1 : 0;
    tabs += sign == '\t' ? 1 : 0;
  }
  if (tabs > semicolons && tabs > commas) return '\t';
  return commas > semicolons ? ',' : ';';
}

// Reads the rows one after the other.
class Reader {
 public:
  Reader(std::string_view text, char separator) : text_(text), separator_(separator) {}

  SheetOutcome Read() {
    Sheet sheet;
    while (at_ < text_.size()) {
      SheetRow row;
      row.line = line_;
      while (ReadCell(row)) {
      }
      if (openQuote_) return std::unexpected(SheetFault{row.line, static_cast<int>(row.cells.size()) - 1, "Açılan tırnak kapanmamış."});
      const bool filled = std::ranges::any_of(row.cells, [](const std::string& cell) { return !cell.empty(); });
      if (filled) sheet.rows.push_back(std::move(row));
    }
    return sheet;
  }

 private:
  // False behind the last cell of its row.
  bool ReadCell(SheetRow& row) {
    std::string cell;
    if (at_ < text_.size() && text_[at_] == kQuote) ReadQuoted(cell);
    const std::size_t end = std::min(text_.find_first_of(std::string{separator_, '\r', '\n'}, at_), text_.size());
    cell += text_.substr(at_, end - at_);
    at_ = end;
    row.cells.push_back(Trim(cell));
    if (at_ == text_.size()) return false;
    if (text_[at_] == separator_) {
      ++at_;
      return true;
    }
    EndLine();
    return false;
  }

  void ReadQuoted(std::string& cell) {
    for (++at_; at_ < text_.size();) {
      if (text_[at_] != kQuote) {
        if (text_[at_] == '\n') ++line_;
        cell.push_back(text_[at_++]);
      } else if (text_.substr(at_).starts_with("\"\"")) {
        cell.push_back(kQuote);
        at_ += 2;
      } else {
        ++at_;
        return;
      }
    }
    openQuote_ = true;
  }

  void EndLine() {
    at_ += text_.substr(at_).starts_with("\r\n") ? 2 : 1;
    ++line_;
  }

  const std::string_view text_;
  const char separator_;
  std::size_t at_ = 0;
  int line_ = 1;
  bool openQuote_ = false;
};

// A few damaged bytes make no code page of a UTF-8 file: all of its letters would come in as odd pairs ("Åark").
bool IsMeantAsUtf8(std::string_view bytes) {
  const Utf8Signs signs = SignsOfUtf8(bytes);
  return signs.damaged == 0 || (signs.letters > 0 && signs.letters >= signs.damaged);
}

// Whether a text of the code page holds one of the bytes that have no letter there.
bool HoldsNoLetter(std::string_view cell) {
  constexpr std::string_view kWithout = "\x81\x8D\x8E\x8F\x90\x9D\x9E";
  for (std::size_t at = 0; at + 1 < cell.size(); ++at)
    if (cell[at] == '\xC2' && kWithout.find(cell[at + 1]) != std::string_view::npos) return true;
  return false;
}

void RefuseDamagedCells(Sheet& sheet, bool isUtf8) {
  for (SheetRow& row : sheet.rows) {
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
      std::string& cell = row.cells[i];
      if (isUtf8 ? IsUtf8(cell) : !HoldsNoLetter(cell)) continue;
      sheet.faults.push_back({row.line, static_cast<int>(i), "Bozuk bir harf var. Düzeltip dosyayı \"CSV UTF-8\" olarak kaydedin."});
      cell.clear();
    }
  }
}

std::string Quoted(const std::string& cell) {
  if (cell.find_first_of(";\"\r\n") == std::string::npos) return cell;
  return kQuote + ReplaceAll(cell, "\"", "\"\"") + kQuote;
}

}  // namespace

SheetOutcome ReadCsv(std::string_view bytes) {
  if (auto fault = NotText(bytes)) return std::unexpected(std::move(*fault));
  const bool marked = bytes.starts_with(kUtf8Mark);
  if (marked) bytes.remove_prefix(kUtf8Mark.size());
  const bool isUtf8 = marked || IsMeantAsUtf8(bytes);
  const std::string text = isUtf8 ? std::string(bytes) : FromCp1254(bytes);
  SheetOutcome sheet = Reader(text, SeparatorOf(text)).Read();
  if (sheet) RefuseDamagedCells(*sheet, isUtf8);
  return sheet;
}

std::string WriteCsv(const Sheet& sheet) {
  std::string text(kUtf8Mark);
  for (const SheetRow& row : sheet.rows) {
    for (std::size_t i = 0; i < row.cells.size(); ++i) text += (i == 0 ? "" : ";") + Quoted(row.cells[i]);
    text += "\r\n";
  }
  return text;
}

}  // namespace karvel
