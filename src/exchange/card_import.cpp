#include "exchange/card_import.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "books/card_balance.h"
#include "books/customer_cards.h"
#include "store/table_rows.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

constexpr std::string_view kOrdinaryGroup = "Müşteri";

bool IsEmpty(const Value& cell) {
  return std::holds_alternative<std::monostate>(cell);
}

// Two texts that differ only in case or in the kind of an i are one.
std::string LooseKey(const std::string& text) {
  return FoldKey(AnyKindOfI(text));
}

// Whether a field holds what a cell tells. What a spreadsheet can't hold is no difference: blanks around a text, digits beyond those shown.
bool Holds(const Value& field, const Value& cell) {
  if (const auto* text = std::get_if<std::string>(&cell)) return Trim(AsText(field)) == *text;
  if (std::holds_alternative<bool>(cell)) return AsBoolean(field) == AsBoolean(cell);
  return IsNumberOrNothing(field) && PlainNumber(AsNumber(field)) == PlainNumber(AsNumber(cell));
}

class Importer {
 public:
  Importer(Stores& stores, const CardSheet& sheet, CardImport& result)
      : sheet_(sheet),
        kind_(*sheet.kind),
        table_(sheet.Columns()),
        rows_(stores, std::string(kind_.file), std::string(kind_.table)),
        groups_(stores, std::string(kind_.file), "Gurup"),
        result_(result),
        states_(sheet.cards.size()) {}

  // Holds the sheet against the stores, and names what is wrong.
  Status Look() {
    FindCodes();
    for (const std::string_view field : kind_.alone) NoteTexts(field);
    Status read = rows_.ForEach([this](const GridRow& row) { Meet(row); });
    if (!read.Ok()) return read;
    for (std::size_t i = 0; i < sheet_.cards.size(); ++i) CheckCard(i);
    read = FindNewGroups();
    Count();
    return read;
  }

  Status Write() {
    std::vector<std::size_t> added;
    for (std::size_t i = 0; i < sheet_.cards.size(); ++i) {
      if (states_[i].key == 0) added.push_back(i);
      if (states_[i].key == 0 || states_[i].changes.empty()) continue;
      if (Status changed = rows_.Change(states_[i].key, states_[i].changes); !changed.Ok()) return changed;
    }
    const auto count = static_cast<std::int64_t>(added.size());
    const auto fill = [&](std::int64_t number, Row& row) { FillNew(sheet_.cards[added[static_cast<std::size_t>(number)]], row); };
    if (Status written = rows_.Add(count, fill); !written.Ok()) return written;
    return groups_.Add(static_cast<std::int64_t>(newGroups_.size()), [this](std::int64_t number, Row& row) {
      row[Position(groups_.Columns(), "Gurup")] = newGroups_[static_cast<std::size_t>(number)];
      row[Position(groups_.Columns(), "Grp")] = true;
    });
  }

 private:
  // What was found for a card of the sheet.
  struct State {
    RowKey key = 0;                     // of the card that stands; 0 for a new one
    std::vector<FieldValue> changes{};  // of that
  };
  // Who bears a text that one card alone may bear.
  struct Bearers {
    int line = 0;          // the first in the sheet
    int otherLine = 0;     // one more; 0 for none
    std::string standing;  // the code of a card beside the sheet
  };

  static std::size_t Position(const Table& table, std::string_view field) { return static_cast<std::size_t>(table.Position(field)); }
  [[nodiscard]] std::size_t Position(std::string_view field) const { return Position(table_, field); }
  // The cell of a field; Null where the sheet has no such column.
  [[nodiscard]] const Value& Cell(const SheetCard& card, std::string_view field) const {
    static const Value none;
    const int index = sheet_.IndexOf(field);
    return index < 0 ? none : card.values[static_cast<std::size_t>(index)];
  }
  [[nodiscard]] std::string Text(const SheetCard& card, std::string_view field) const { return AsText(Cell(card, field)); }

  // The column by its field; -1 tells of the line as a whole.
  void Fault(std::size_t card, std::string_view field, const std::string& what) {
    const int index = sheet_.IndexOf(field);
    const int column = index < 0 ? -1 : sheet_.columns[static_cast<std::size_t>(index)].sheetColumn;
    result_.faults.push_back({sheet_.cards[card].line, column, what});
  }

  void FindCodes() {
    codes_.reserve(sheet_.cards.size());
    for (std::size_t i = 0; i < sheet_.cards.size(); ++i) {
      const std::string code = Text(sheet_.cards[i], kind_.code);
      if (code.empty()) {
        if (!IsTold(i, kind_.code)) Fault(i, kind_.code, "Kod boş.");
        continue;
      }
      const auto [at, fresh] = codes_.emplace(CodeKey(code), i);
      if (!fresh) Fault(i, kind_.code, "\"" + code + "\" kodu " + std::to_string(sheet_.cards[at->second].line) + ". satırda da var.");
    }
  }

  // Whether a cell could not be read, which the sheet has told.
  [[nodiscard]] bool IsTold(std::size_t card, std::string_view field) const {
    const int column = sheet_.columns[static_cast<std::size_t>(sheet_.IndexOf(field))].sheetColumn;
    const auto told = std::ranges::equal_range(sheet_.faults, sheet_.cards[card].line, {}, &SheetFault::line);
    return std::ranges::find(told, column, &SheetFault::column) != told.end();
  }

  // Customers whose codes differ in the kind of an i would share a ledger.
  [[nodiscard]] std::string CodeKey(const std::string& code) const {
    return &kind_ == &CustomerCardKind() ? LooseKey(code) : FoldKey(code);
  }
  [[nodiscard]] std::string AloneKey(std::string_view field, const std::string& text) const {
    return field == kind_.name ? LooseKey(text) : FoldKey(text);
  }

  void NoteTexts(std::string_view field) {
    if (sheet_.IndexOf(field) < 0) return;
    auto& bearers = bearers_[field];
    for (const SheetCard& card : sheet_.cards) {
      const std::string text = Text(card, field);
      if (text.empty()) continue;
      const auto [at, fresh] = bearers.emplace(AloneKey(field, text), Bearers{card.line, 0, {}});
      if (!fresh) at->second.otherLine = card.line;
    }
  }

  // A card that stands.
  void Meet(const GridRow& row) {
    const std::string code = AsText(row.values[Position(kind_.code)]);
    const auto found = codes_.find(CodeKey(code));
    const SheetCard* card = nullptr;
    if (found != codes_.end()) {
      card = &sheet_.cards[found->second];
      MeetAgain(found->second, code, row);
    }
    for (auto& [field, bearers] : bearers_) {
      if (card != nullptr && !IsEmpty(Cell(*card, field))) continue;
      const auto at = bearers.find(AloneKey(field, AsText(row.values[Position(field)])));
      if (at != bearers.end()) at->second.standing = code;
    }
  }

  // One that the sheet tells of.
  void MeetAgain(std::size_t number, const std::string& code, const GridRow& row) {
    State& state = states_[number];
    const std::string told = Text(sheet_.cards[number], kind_.code);
    if (!EqualText(code, told)) {
      Fault(number, kind_.code, "\"" + told + "\": yalnız i harfi farklı bir kod var: \"" + code + "\".");
    } else if (state.key != 0) {
      Fault(number, kind_.code, "\"" + told + "\" kodlu birden çok kart var.");
    } else {
      state.key = row.key;
      FindChanges(number, row);
    }
  }

  void FindChanges(std::size_t number, const GridRow& row) {
    bool openingPassed = false;
    for (std::size_t i = 0; i < sheet_.columns.size(); ++i) {
      const CardSheet::UsedColumn& used = sheet_.columns[i];
      const Value& cell = sheet_.cards[number].values[i];
      if (IsEmpty(cell) || used.column->field == kind_.code) continue;
      if (used.column->opening) {
        openingPassed = openingPassed || !Holds(Opening(used, row), cell);
      } else if (const Value value = Kept(*used.column, cell);
                 !Says(*used.column, row.values[static_cast<std::size_t>(used.position)], value)) {
        states_[number].changes.push_back({used.position, value});
      }
    }
    result_.openingsPassed += openingPassed ? 1 : 0;
  }

  // What stands on a card where a spreadsheet has its opening.
  [[nodiscard]] Value Opening(const CardSheet::UsedColumn& used, const GridRow& row) const {
    const Value& field = row.values[static_cast<std::size_t>(used.position)];
    if (used.column->kind == CellKind::Quantity) return AsNumber(field) - AsNumber(row.values[Position("KalanA")]);
    return field;
  }

  // A figure that stands for yes stays the figure that it is.
  static bool Says(const CardColumn& column, const Value& field, const Value& cell) {
    return column.kind == CellKind::YesNo ? AsBoolean(field) == AsBoolean(cell) : Holds(field, cell);
  }

  static Value Kept(const CardColumn& column, const Value& cell) {
    return column.field == "Email" ? Value(AddressLower(AsText(cell))) : cell;
  }

  // Whether the sheet brings a field that the card doesn't hold yet.
  [[nodiscard]] bool Brings(std::size_t number, std::string_view field) const {
    if (IsEmpty(Cell(sheet_.cards[number], field))) return false;
    const int position = table_.Position(field);
    const State& state = states_[number];
    return state.key == 0 || std::ranges::find(state.changes, position, &FieldValue::position) != state.changes.end();
  }

  void CheckCard(std::size_t number) {
    const SheetCard& card = sheet_.cards[number];
    const State& state = states_[number];
    const std::string code = Text(card, kind_.code);
    const bool nameTold = sheet_.IndexOf(kind_.name) >= 0 && IsTold(number, kind_.name);
    if (state.key == 0 && !code.empty() && Text(card, kind_.name).empty() && !nameTold) Fault(number, kind_.name, "Yeni kartın adı boş.");
    if (&kind_ == &CustomerCardKind()) CheckCustomer(number, code);
    const std::string group = Brings(number, "Gurup") ? Text(card, "Gurup") : "";
    if (ContainsText(group, "WinKarvel") || EqualText(group, "Tüm Guruplar"))
      Fault(number, "Gurup", "\"" + group + "\" programın kendi adı.");
    for (const std::string_view field : kind_.alone)
      if (Brings(number, field)) CheckAlone(number, field);
  }

  void CheckCustomer(std::size_t number, const std::string& code) {
    if (code.starts_with('=')) Fault(number, kind_.code, "\"" + code + "\": = ile başlayan kodlar dükkânın kendi hesaplarıdır.");
    // These would stand for any letter in the searches.
    for (const std::string_view field : {kind_.code, kind_.name}) {
      const bool brought = field == kind_.code ? states_[number].key == 0 : Brings(number, field);
      if (brought && Text(sheet_.cards[number], field).find_first_of("*?!") != std::string::npos)
        Fault(number, field, "* ? ! işaretleri kullanılamaz.");
    }
  }

  void CheckAlone(std::size_t number, std::string_view field) {
    const std::string text = Text(sheet_.cards[number], field);
    const Bearers& bearers = bearers_.at(field).at(AloneKey(field, text));
    const int line = bearers.line == sheet_.cards[number].line ? bearers.otherLine : bearers.line;
    if (!bearers.standing.empty()) {
      Fault(number, field, "\"" + text + "\" başka bir kartta var: " + bearers.standing + ".");
    } else if (line != 0) {
      Fault(number, field, "\"" + text + "\" " + std::to_string(line) + ". satırda da var.");
    }
  }

  Status FindNewGroups() {
    std::unordered_set<std::string> known;
    Status read =
        groups_.ForEach([&](const GridRow& row) { known.insert(FoldKey(AsText(row.values[Position(groups_.Columns(), "Gurup")]))); });
    for (std::size_t i = 0; i < sheet_.cards.size(); ++i) {
      if (!Brings(i, "Gurup")) continue;
      std::string group = Text(sheet_.cards[i], "Gurup");
      if (known.insert(FoldKey(group)).second) newGroups_.push_back(std::move(group));
    }
    return read;
  }

  void Count() {
    for (const State& state : states_) ++(state.key == 0 ? result_.added : state.changes.empty() ? result_.same : result_.changed);
    result_.groups = static_cast<std::int64_t>(newGroups_.size());
  }

  void FillNew(const SheetCard& card, Row& row) const {
    for (std::size_t i = 0; i < sheet_.columns.size(); ++i) {
      const CardSheet::UsedColumn& used = sheet_.columns[i];
      if (!IsEmpty(card.values[i]) && !used.column->opening)
        row[static_cast<std::size_t>(used.position)] = Kept(*used.column, card.values[i]);
    }
    if (&kind_ == &CustomerCardKind()) {
      OpenAccount(card, row);
    } else {
      OpenStock(card, row);
    }
  }

  // The goods that are there came in at their purchase price.
  void OpenStock(const SheetCard& card, Row& row) const {
    const double left = RoundTo(AsNumber(Cell(card, "KalanB")), 3);
    const double worth = RoundTo(std::abs(left) * AsNumber(row[Position("gFiyat")]), 2);
    const bool sold = left < 0;
    row[Position(sold ? "CikanMik" : "GirenMik")] = std::abs(left);
    row[Position(sold ? "CikanTutar" : "GirenTutar")] = worth;
    row[Position(sold ? "KalanA" : "KalanB")] = std::abs(left);
  }

  void OpenAccount(const SheetCard& card, Row& row) const {
    const bool owed = Text(card, "Hesap") == kCreditSide;
    const double amount = RoundTo(AsNumber(Cell(card, "Bakiye")), 2);
    const CardBalance balance = BalanceOf(owed ? 0 : amount, owed ? amount : 0);
    row[Position(owed ? "Alacak" : "Borc")] = amount;
    row[Position("Bakiye")] = balance.amount;
    row[Position("Hesap")] = balance.side;
    row[Position("Hes")] = std::string("C");
    row[Position("yeni")] = 1.0;
    if (IsEmpty(Cell(card, "Gurup"))) row[Position("Gurup")] = std::string(kOrdinaryGroup);
  }

  const CardSheet& sheet_;
  const CardKind& kind_;
  const Table& table_;
  TableRows rows_, groups_;
  CardImport& result_;
  std::vector<State> states_;                                                               // of the sheet's cards
  std::unordered_map<std::string, std::size_t> codes_;                                      // the sheet's card by its code
  std::unordered_map<std::string_view, std::unordered_map<std::string, Bearers>> bearers_;  // by field and text
  std::vector<std::string> newGroups_;
};

}  // namespace

Status ImportCards(Stores& stores, const CardSheet& sheet, ImportMode mode, CardImport& result) {
  result = {.faults = sheet.faults};
  if (sheet.kind == nullptr) return {};
  Importer importer(stores, sheet, result);
  // Nobody changes a card between the look and the writing.
  std::optional<Action> action;
  if (mode == ImportMode::Write) {
    action.emplace(stores, "ImportCards");
    if (!action->Begun().Ok()) return action->Finish();
  }
  Status done = importer.Look();
  SortFaults(result.faults);
  if (!done.Ok() || !result.faults.empty() || mode == ImportMode::Try) return done;
  done = importer.Write();
  const Status finished = action->Finish();
  return done.Ok() ? finished : done;
}

}  // namespace karvel
