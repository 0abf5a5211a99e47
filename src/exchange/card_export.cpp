#include "exchange/card_export.h"

#include <string>
#include <utility>

#include "store/table_rows.h"
#include "text/format.h"

namespace karvel {
namespace {

std::string CellOf(const CardColumn& column, const Table& table, const GridRow& row) {
  const Value& field = row.values[static_cast<std::size_t>(table.Position(column.field))];
  switch (column.kind) {
    case CellKind::YesNo:
      return AsBoolean(field) ? "Evet" : "Hayır";
    case CellKind::Quantity:
      return PlainNumber(AsNumber(field) - AsNumber(row.values[static_cast<std::size_t>(table.Position("KalanA"))]));
    default:
      return AsText(field);
  }
}

}  // namespace

Status ExportCards(Stores& stores, const CardKind& kind, Sheet& sheet) {
  TableRows rows(stores, std::string(kind.file), std::string(kind.table));
  const Table& table = rows.Columns();
  SheetRow headings{1, {}};
  for (const CardColumn& column : kind.columns) headings.cells.emplace_back(column.heading);
  sheet.rows = {std::move(headings)};
  return rows.ForEach([&](const GridRow& row) {
    SheetRow card{static_cast<int>(sheet.rows.size()) + 1, {}};
    for (const CardColumn& column : kind.columns) card.cells.push_back(CellOf(column, table, row));
    const bool moneyAccount = card.cells.front().starts_with('=');
    if (!moneyAccount) sheet.rows.push_back(std::move(card));
  });
}

std::vector<bool> NumberColumns(const CardKind& kind) {
  std::vector<bool> numbers;
  for (const CardColumn& column : kind.columns) {
    const bool text = column.kind == CellKind::Text || column.kind == CellKind::Digits || column.kind == CellKind::Side;
    numbers.push_back(!text && column.kind != CellKind::YesNo);
  }
  return numbers;
}

}  // namespace karvel
