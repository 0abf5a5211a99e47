#include "exchange/card_sheet.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <expected>
#include <optional>
#include <string>
#include <utility>

#include "books/card_balance.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

using Cell = std::expected<Value, std::string>;  // or what is wrong with it

// What a spreadsheet shows in the place of a value that it could not work out.
constexpr std::array<std::string_view, 14> kSheetErrors{"#N/A", "#REF!",  "#DIV/0!",  "#VALUE!", "#NAME?", "#NULL!", "#NUM!",
                                                        "#YOK", "#BAŞV!", "#SAYI/0!", "#DEĞER!", "#AD?",   "#BOŞ!",  "#SAYI!"};

bool IsDigit(char sign) {
  return sign >= '0' && sign <= '9';
}

// "8,69E+12": the digits behind are lost.
bool IsShortenedNumber(std::string_view text) {
  const std::size_t e = text.find_first_of("eE");
  if (e == std::string_view::npos || e == 0 || e + 2 >= text.size() || text[e + 1] != '+') return false;
  const auto digitOrPoint = [](char sign) { return IsDigit(sign) || sign == ',' || sign == '.'; };
  return std::ranges::all_of(text.substr(0, e), digitOrPoint) && std::ranges::all_of(text.substr(e + 2), IsDigit);
}

// Whether points stand only where they part thousands: "1250.75" and "1,250.75" would be read as other numbers than were meant.
bool HasPlainPoints(std::string_view number) {
  constexpr std::size_t kGroup = 3;
  const std::size_t comma = std::min(number.find(','), number.size());
  if (number.substr(comma).find('.') != std::string_view::npos) return false;
  const std::string_view whole = number.substr(0, comma);
  for (std::size_t at = whole.find('.'), next = 0; at != std::string_view::npos; at = next) {
    next = whole.find('.', at + 1);
    if (at == 0 || std::min(next, whole.size()) - at - 1 != kGroup) return false;
  }
  return true;
}

std::string WithoutSigns(std::string text) {
  for (const std::string_view sign : {"₺", "TL", "%"}) text = ReplaceAll(text, sign, "");
  return Trim(text);
}

Cell ReadAmount(const std::string& text, double least, double most) {
  const std::string number = WithoutSigns(text);
  const std::optional<double> value = ReadNumber(number);
  if (!value) return std::unexpected("\"" + text + "\" bir sayı değil.");
  if (!HasPlainPoints(number)) return std::unexpected("\"" + text + "\": kuruş ayırıcısı virgül olmalı.");
  if (*value < least) return std::unexpected("\"" + text + "\" eksi olamaz.");
  if (*value > most) return std::unexpected("\"" + text + "\" çok büyük.");
  return Value(*value);
}

Cell ReadTax(const std::string& text) {
  Cell tax = ReadAmount(text, 0, 100);
  // A cell that shows %18 holds 0,18.
  if (tax && AsNumber(*tax) > 0 && AsNumber(*tax) < 1) return std::unexpected("\"" + text + "\": vergiyi yüzde olarak yazın (18).");
  return tax;
}

Cell ReadYesNo(const std::string& text) {
  const std::string plain = AnyKindOfI(text);
  for (const std::string_view yes : {"Evet", "E", "True", "Doğru", "X", "1"})
    if (EqualText(plain, yes)) return Value(true);
  for (const std::string_view no : {"Hayır", "H", "False", "Yanlış", "0"})
    if (EqualText(plain, AnyKindOfI(std::string(no)))) return Value(false);
  return std::unexpected("\"" + text + "\": Evet veya Hayır yazın.");
}

Cell ReadSide(const std::string& text) {
  if (EqualText(text, kDebitSide)) return Value(std::string(kDebitSide));
  if (EqualText(text, kCreditSide)) return Value(std::string(kCreditSide));
  return std::unexpected("\"" + text + "\": Borç veya Alacak yazın.");
}

Cell ReadText(const std::string& text, CellKind kind) {
  if (std::ranges::any_of(text, [](char sign) { return static_cast<unsigned char>(sign) < ' '; }))
    return std::unexpected("Hücrede satır sonu veya görünmeyen bir işaret var.");
  if (kind == CellKind::Digits && IsShortenedNumber(text))
    return std::unexpected("\"" + text + "\": hesap tablosu rakamları kısaltmış. Sütunu metin yapıp numarayı yeniden yazın.");
  return Value(text);
}

Cell ReadCell(const std::string& text, const CardColumn& column) {
  constexpr double kMost = 1e12;
  if (std::ranges::find(kSheetErrors, text) != kSheetErrors.end()) return std::unexpected("Hücrede hesap tablosunun hatası var: " + text);
  switch (column.kind) {
    case CellKind::Price:
    case CellKind::Count:
      return ReadAmount(text, 0, kMost);
    case CellKind::Quantity:
      return ReadAmount(text, -kMost, kMost);
    case CellKind::Tax:
      return ReadTax(text);
    case CellKind::YesNo:
      return ReadYesNo(text);
    case CellKind::Side:
      return ReadSide(text);
    case CellKind::Text:
    case CellKind::Digits:
      break;
  }
  return ReadText(text, column.kind);
}

// As the field holds it: one that counts has 1 and 0 for yes and no.
Value InField(const Table& table, int position, Value value) {
  const bool counts = table.columns[static_cast<std::size_t>(position)].type == ColumnType::Number;
  if (const bool* const yes = std::get_if<bool>(&value); yes != nullptr && counts) return *yes ? 1.0 : 0.0;
  return value;
}

const CardKind* KindOf(const SheetRow& headings) {
  for (const CardKind* const kind : {&StockCardKind(), &CustomerCardKind()}) {
    for (const std::string& heading : headings.cells) {
      const CardColumn* const column = heading.empty() ? nullptr : kind->Find(heading);
      if (column != nullptr && column->field == kind->code) return kind;
    }
  }
  return nullptr;
}

void ReadHeadings(const SheetRow& headings, CardSheet& cards) {
  for (std::size_t i = 0; i < headings.cells.size(); ++i) {
    const std::string& heading = headings.cells[i];
    if (heading.empty()) continue;
    const int at = static_cast<int>(i);
    const CardColumn* const column = cards.kind->Find(heading);
    if (column == nullptr) {
      cards.faults.push_back({headings.line, at, "\"" + heading + "\" sütunu tanınmıyor. Adını düzeltin veya sütunu silin."});
    } else if (cards.IndexOf(column->field) >= 0) {
      cards.faults.push_back({headings.line, at, "\"" + heading + "\" sütunu ikinci kez var."});
    } else {
      cards.columns.push_back({column, at, cards.Columns().Position(column->field)});
    }
  }
}

void ReadCard(const SheetRow& row, const SheetRow& headings, CardSheet& cards) {
  SheetCard card{row.line, std::vector<Value>(cards.columns.size())};
  for (std::size_t i = 0; i < cards.columns.size(); ++i) {
    const CardSheet::UsedColumn& used = cards.columns[i];
    const auto at = static_cast<std::size_t>(used.sheetColumn);
    if (at >= row.cells.size() || row.cells[at].empty()) continue;
    Cell cell = ReadCell(row.cells[at], *used.column);
    if (cell) {
      card.values[i] = InField(cards.Columns(), used.position, std::move(*cell));
    } else {
      cards.faults.push_back({row.line, used.sheetColumn, std::move(cell.error())});
    }
  }
  for (std::size_t at = 0; at < row.cells.size(); ++at) {
    if (row.cells[at].empty() || (at < headings.cells.size() && !headings.cells[at].empty())) continue;
    cards.faults.push_back({row.line, static_cast<int>(at), "Başlığı olmayan bir hücre dolu. Virgüllü sayılar tırnak içinde mi?"});
    break;
  }
  cards.cards.push_back(std::move(card));
}

}  // namespace

void SortFaults(std::vector<SheetFault>& faults) {
  std::ranges::stable_sort(faults, {}, [](const SheetFault& fault) { return std::pair(fault.line, fault.column); });
}

int CardSheet::IndexOf(std::string_view field) const {
  const auto found = std::ranges::find(columns, field, [](const UsedColumn& used) { return used.column->field; });
  return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

const Table& CardSheet::Columns() const {
  return *Catalogue::File(kind->file)->Find(kind->table);
}

CardSheet ReadCardSheet(const Sheet& sheet) {
  CardSheet cards;
  if (sheet.rows.empty()) {
    cards.faults = sheet.faults;
    if (cards.faults.empty()) cards.faults.push_back({0, -1, "Dosyada satır yok."});
    return cards;
  }
  const SheetRow& headings = sheet.rows.front();
  cards.faults = sheet.faults;
  // Under a heading that can't be read every cell would be a fault.
  if (!cards.faults.empty() && cards.faults.front().line <= headings.line) return cards;
  cards.kind = KindOf(headings);
  if (cards.kind == nullptr) {
    cards.faults.assign(1, {headings.line, -1, "Başlıklarda \"Stok Kodu\" veya \"Cari Kodu\" yok."});
    return cards;
  }
  ReadHeadings(headings, cards);
  cards.cards.reserve(sheet.rows.size() - 1);
  for (std::size_t i = 1; i < sheet.rows.size(); ++i) ReadCard(sheet.rows[i], headings, cards);
  SortFaults(cards.faults);
  return cards;
}

}  // namespace karvel
