#include "exchange/spreadsheet/xlsx_sheet.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>
#include <optional>
#include <utility>

#include "exchange/spreadsheet/date_looks.h"
#include "exchange/spreadsheet/xml_reader.h"
#include "exchange/spreadsheet/zip_entry.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

// More than any shop has; a file made to fill the memory ends here.
constexpr std::size_t kMostCells = 20'000'000;
constexpr std::size_t kMostBytes = 1'000'000'000;
constexpr int kMostColumns = 16384;

const SheetFault kDamaged{0, -1, "Hesap tablosu okunamadı: dosya bozuk veya .xlsx değil."};
const SheetFault kTooLarge{0, -1, "Hesap tablosu çok büyük."};
constexpr const char* kDate = "Hücrede tarih var: hesap tablosu yazılanı tarihe çevirmiş. Sütunu sayı veya metin yapıp yeniden yazın.";
constexpr const char* kNotWorkedOut = "Formülün sonucu dosyada yok. Dosyayı hesap tablosunda açıp yeniden kaydedin.";

// Reads one XML file of the workbook. False where it is missing or damaged.
bool ReadXml(const ZipInMemory& zip, const std::string& name, XmlReader& reader) {
  std::size_t bytes = 0;
  const auto outcome =
      zip.Read(name, [&](std::string_view piece) { return (bytes += piece.size()) < kMostBytes && reader.Feed(piece, false); });
  return outcome == ZipInMemory::Outcome::Read && reader.Feed({}, true);
}

// Where the pieces of the workbook lie.
struct Places {
  std::string sheet, texts, looks;
};

// The files that the workbook is related to: by id, and the one of a kind.
struct Relations {
  std::map<std::string, std::string, std::less<>> byId;
  std::string texts, looks;
};

Relations ReadRelations(const ZipInMemory& zip) {
  Relations relations;
  XmlReader reader;
  reader.started = [&](std::string_view name, const XmlAttributes& attributes) {
    if (name != "Relationship") return;
    const std::string_view target = attributes.Get("Target");
    // From the top of the zip, or from the workbook's own folder.
    const std::string place = target.starts_with("/") ? std::string(target.substr(1)) : "xl/" + std::string(target);
    relations.byId.emplace(attributes.Get("Id"), place);
    if (attributes.Get("Type").ends_with("/sharedStrings")) relations.texts = place;
    if (attributes.Get("Type").ends_with("/styles")) relations.looks = place;
  };
  if (!ReadXml(zip, "xl/_rels/workbook.xml.rels", reader)) return {};
  return relations;
}

std::optional<Places> FindFirstSheet(const ZipInMemory& zip) {
  std::string id;
  XmlReader reader;
  reader.started = [&](std::string_view name, const XmlAttributes& attributes) {
    // Its own number is called sheetId.
    if (name == "sheet" && id.empty()) id = attributes.Get("id");
  };
  if (!ReadXml(zip, "xl/workbook.xml", reader)) return {};
  const Relations relations = ReadRelations(zip);
  const auto sheet = relations.byId.find(id);
  if (sheet == relations.byId.end()) return {};
  return Places{sheet->second, relations.texts, relations.looks};
}

// The texts that cells name by their number. Pieces of one text that look different are one text; how it is spoken is none.
bool ReadTexts(const ZipInMemory& zip, const std::string& name, std::vector<std::string>& texts) {
  if (name.empty()) return true;
  bool inText = false;
  int spoken = 0;
  XmlReader reader;
  reader.started = [&](std::string_view element, const XmlAttributes&) {
    if (element == "si") texts.emplace_back();
    spoken += element == "rPh" ? 1 : 0;
    inText = element == "t" && spoken == 0 && !texts.empty();
  };
  reader.ended = [&](std::string_view element) {
    spoken -= element == "rPh" ? 1 : 0;
    inText = false;
  };
  reader.text = [&](std::string_view letters) {
    if (inText) texts.back() += letters;
  };
  return ReadXml(zip, name, reader);
}

bool ReadLooks(const ZipInMemory& zip, const std::string& name, DateLooks& looks) {
  if (name.empty()) return true;
  XmlReader reader;
  reader.started = [&](std::string_view element, const XmlAttributes& attributes) { looks.Started(element, attributes); };
  reader.ended = [&](std::string_view element) { looks.Ended(element); };
  return ReadXml(zip, name, reader);
}

// The column of a cell's name ("C5"), from 0; -1 for none.
int ColumnOf(std::string_view name) {
  int column = 0;
  for (const char letter : name) {
    if (letter < 'A' || letter > 'Z' || column > kMostColumns) break;
    column = column * 26 + (letter - 'A' + 1);
  }
  return column - 1;
}

int NumberOf(std::string_view digits) {
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

class SheetReader {
 public:
  SheetReader(const std::vector<std::string>& texts, const DateLooks& looks) : texts_(texts), looks_(looks) {
    reader_.started = [this](std::string_view name, const XmlAttributes& attributes) { Started(name, attributes); };
    reader_.ended = [this](std::string_view name) { Ended(name); };
    reader_.text = [this](std::string_view letters) {
      if (inValue_) value_ += letters;
    };
  }

  SheetOutcome Read(const ZipInMemory& zip, const std::string& name) {
    const bool read = ReadXml(zip, name, reader_);
    if (tooLarge_) return std::unexpected(kTooLarge);
    if (!read) return std::unexpected(kDamaged);
    return std::move(sheet_);
  }

 private:
  void Started(std::string_view name, const XmlAttributes& attributes) {
    if (name == "row") {
      const int line = NumberOf(attributes.Get("r"));
      row_.line = line > 0 ? line : row_.line + 1;
      row_.cells.clear();
      column_ = -1;
    } else if (name == "c") {
      const int column = ColumnOf(attributes.Get("r"));
      column_ = column >= 0 ? column : column_ + 1;
      kind_ = attributes.Get("t");
      look_ = NumberOf(attributes.Get("s"));
      value_.clear();
      hasFormula_ = hasValue_ = false;
    } else {
      inValue_ = name == "v" || name == "t";
      hasValue_ = hasValue_ || inValue_;
      hasFormula_ = hasFormula_ || name == "f";
    }
  }

  void Ended(std::string_view name) {
    inValue_ = false;
    if (name == "c") TakeCell();
    if (name == "row" && !row_.cells.empty()) sheet_.rows.push_back({row_.line, std::exchange(row_.cells, {})});
  }

  void TakeCell() {
    if (const char* const what = CellFault()) return sheet_.faults.push_back({row_.line, column_, what});
    std::string text = Trim(CellText());
    if (text.empty() || tooLarge_) return;
    const auto at = static_cast<std::size_t>(column_);
    if (column_ >= kMostColumns) {
      tooLarge_ = true;
      return;
    }
    if (row_.cells.size() <= at) {
      cells_ += at + 1 - row_.cells.size();
      tooLarge_ = cells_ > kMostCells;
      if (tooLarge_) return;
      row_.cells.resize(at + 1);
    }
    row_.cells[at] = std::move(text);
  }

  [[nodiscard]] bool IsNumber() const { return kind_.empty() || kind_ == "n"; }

  // What is wrong with a cell that holds something else than it seems to; null where nothing is.
  [[nodiscard]] const char* CellFault() const {
    // An empty text is a result, an empty number none.
    if (hasFormula_ && (!hasValue_ || (IsNumber() && value_.empty()))) return kNotWorkedOut;
    const bool date = kind_ == "d" || (IsNumber() && looks_.IsDate(look_));
    return date && !value_.empty() ? kDate : nullptr;
  }

  [[nodiscard]] std::string CellText() const {
    if (kind_ == "s") {
      const auto number = static_cast<std::size_t>(std::max(NumberOf(value_), 0));
      return number < texts_.size() && !value_.empty() ? texts_[number] : "";
    }
    // Never a figure, which a price would take for 1.
    if (kind_ == "b") return value_ == "0" ? "Hayır" : "Evet";
    if (!IsNumber()) return value_;
    // Of longer ones the last digits would be lost.
    constexpr double kMostDigits = 1e15;
    double number = 0;
    const auto read = std::from_chars(value_.data(), value_.data() + value_.size(), number);
    const bool whole = read.ec == std::errc() && read.ptr == value_.data() + value_.size();
    return whole && std::abs(number) < kMostDigits ? PlainNumber(number) : value_;
  }

  const std::vector<std::string>& texts_;
  const DateLooks& looks_;
  XmlReader reader_;
  Sheet sheet_;
  SheetRow row_;
  int column_ = -1;
  std::string kind_, value_;
  int look_ = 0;
  bool inValue_ = false, hasValue_ = false, hasFormula_ = false;
  bool tooLarge_ = false;
  std::size_t cells_ = 0;
};

bool WriteCells(const Sheet& sheet, const std::vector<bool>& numbers, lxw_worksheet* page) {
  bool written = true;
  for (std::size_t y = 0; y < sheet.rows.size(); ++y) {
    const std::vector<std::string>& cells = sheet.rows[y].cells;
    for (std::size_t x = 0; x < cells.size(); ++x) {
      const auto row = static_cast<lxw_row_t>(y);
      const auto column = static_cast<lxw_col_t>(x);
      const std::optional<double> number = numbers[x] ? ReadNumber(cells[x]) : std::nullopt;
      const lxw_error error = number ? worksheet_write_number(page, row, column, *number, nullptr)
                                     : worksheet_write_string(page, row, column, cells[x].c_str(), nullptr);
      written = written && error == LXW_NO_ERROR;
    }
  }
  return written;
}

}  // namespace

bool IsXlsx(std::string_view bytes) {
  return bytes.starts_with("PK\x03\x04");
}

SheetOutcome ReadXlsx(std::string_view bytes) {
  const ZipInMemory zip(bytes);
  if (!zip.IsOpen()) return std::unexpected(kDamaged);
  const std::optional<Places> places = FindFirstSheet(zip);
  std::vector<std::string> texts;
  DateLooks looks;
  const bool read = places && ReadTexts(zip, places->texts, texts) && ReadLooks(zip, places->looks, looks);
  if (!read) return std::unexpected(kDamaged);
  return SheetReader(texts, looks).Read(zip, places->sheet);
}

Status WriteXlsx(const Sheet& sheet, const std::vector<bool>& numbers, const std::string& realPath) {
  lxw_workbook* const book = workbook_new(realPath.c_str());
  if (book == nullptr) return {ErrorKind::Other, realPath + ": no memory"};
  lxw_worksheet* const page = workbook_add_worksheet(book, nullptr);
  const bool written = page != nullptr && WriteCells(sheet, numbers, page);
  const lxw_error closed = workbook_close(book);
  if (written && closed == LXW_NO_ERROR) return {};
  return Status(closed == LXW_ERROR_CREATING_XLSX_FILE ? ErrorKind::NoRights : ErrorKind::Other, realPath + ": " + lxw_strerror(closed))
      .At(realPath);
}

}  // namespace karvel
