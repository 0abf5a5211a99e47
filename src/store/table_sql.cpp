#include "store/table_sql.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace karvel {
namespace {

bool InAnIndex(const Table& table, const Column& column) {
  return std::ranges::any_of(table.indexes, [&](const Index& index) {
    return std::ranges::any_of(index.columns, [&](std::string_view name) { return table.Position(name) == table.Position(column.name); });
  });
}

const Value& FieldOf(const GridRow& row, int position) {
  return row.values[static_cast<std::size_t>(position)];
}

bool IsNull(const Value& value) {
  return std::holds_alternative<std::monostate>(value);
}

bool KeyDescends(const RowQuery& query, bool reversed) {
  return (!query.order.empty() && query.order.back().descending) != reversed;
}

}  // namespace

TableSql::TableSql(const Table& table, const dialect::SqlTarget& words, TableNames names)
    : table_(table), words_(words), names_(std::move(names)) {
  std::string columns;
  std::string places;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const Column& column = table.columns[i];
    const std::string name = words_.ColumnName(column.name);
    if (i > 0) {
      columns += ", ";
      places += ", ";
    }
    columns += name;
    places += words_.Parameter(i);
    if (column.type == ColumnType::Text) keys_.emplace(name, InAnIndex(table, column) ? words_.IndexedKey(name) : words_.ComputedKey(name));
  }
  const std::string oneRow = fmt::format(" WHERE {} = {}", names_.rowKey, words_.Parameter(0));
  select_ = fmt::format("SELECT {}, {} FROM {}", names_.rowKey, columns, names_.table);
  read_ = select_ + oneRow;
  insert_ = fmt::format("INSERT INTO {} ({}) VALUES ({})", names_.table, columns, places);
  delete_ = fmt::format("DELETE FROM {}{}", names_.table, oneRow);
}

std::string TableSql::IndexedKey(std::string_view columnSql) const {
  const auto found = keys_.find(std::string(columnSql));
  return found != keys_.end() ? found->second : ComputedKey(columnSql);
}

std::string TableSql::KeyOf(int position) const {
  const std::string name = NameOf(position);
  return ColumnAt(position).type == ColumnType::Text ? IndexedKey(name) : name;
}

std::string TableSql::Put(Value value, SqlText& sql) const {
  sql.parameters.push_back(std::move(value));
  return Parameter(sql.parameters.size() - 1);
}

std::vector<Stretch> TableSql::Stretches(const RowQuery& query, const GridRow& beside, bool reversed) {
  std::vector<Stretch> stretches{{Stretch::Kind::SameTermsKeyBeyond, query.order.size()}};
  for (std::size_t term = query.order.size(); term-- > 0;) {
    const bool descends = query.order[term].descending != reversed;
    const bool null = IsNull(FieldOf(beside, query.order[term].position));
    if (!null) stretches.push_back({Stretch::Kind::TermBeyond, term});
    if (null && !descends) stretches.push_back({Stretch::Kind::TermNotNull, term});
    if (!null && descends) stretches.push_back({Stretch::Kind::TermNull, term});
  }
  return stretches;
}

SqlText TableSql::Select(const RowQuery& query, const RowsPart& part, int limit, std::int64_t offset) const {
  SqlText sql;
  sql.text.reserve(4096);
  sql.text = select_;
  AddWhere(query, part, sql);
  // Terms that are the same throughout a stretch are left out, else the engine would sort by them.
  const Stretch* const stretch = part.stretch;
  const bool same = stretch != nullptr && stretch->kind == Stretch::Kind::TermNull;
  AddOrder(query, part.reversed, stretch == nullptr ? 0 : stretch->term + (same ? 1 : 0), sql);
  sql.text += " LIMIT " + Put(static_cast<double>(limit), sql);
  if (offset > 0) sql.text += " OFFSET " + Put(static_cast<double>(offset), sql);
  return sql;
}

SqlText TableSql::Count(const RowQuery& query, const RowsPart& part, std::int64_t most) const {
  SqlText sql{(most > 0 ? "SELECT count(*) FROM (SELECT 1 FROM " : "SELECT count(*) FROM ") + names_.table, {}};
  AddWhere(query, part, sql);
  if (most > 0) sql.text += fmt::format(" LIMIT {}) AS counted", Put(static_cast<double>(most), sql));
  return sql;
}

void TableSql::SetSpan(SqlText& sql, const KeySpan& span) {
  sql.parameters[sql.spanAt] = span.from;
  sql.parameters[sql.spanAt + 1] = span.end;
}

SqlText TableSql::Sum(const RowQuery& query, int position) const {
  SqlText sql{fmt::format("SELECT sum({}) FROM {}", NameOf(position), names_.table), {}};
  AddWhere(query, {}, sql);
  return sql;
}

SqlText TableSql::SumBy(const RowQuery& query, int position, int by) const {
  SqlText sql{fmt::format("SELECT {0}, sum({1}) FROM {2}", NameOf(by), NameOf(position), names_.table), {}};
  AddWhere(query, {}, sql);
  sql.text += " GROUP BY " + NameOf(by);
  return sql;
}

SqlText TableSql::DeleteWhere(const RowQuery& query) const {
  SqlText sql{"DELETE FROM " + names_.table, {}};
  AddWhere(query, {}, sql);
  return sql;
}

SqlText TableSql::Change(RowKey key, std::span<const FieldValue> fields) const {
  SqlText sql{fmt::format("UPDATE {} SET ", names_.table), {}};
  for (const FieldValue& field : fields) {
    if (!sql.parameters.empty()) sql.text += ", ";
    sql.text += NameOf(field.position) + " = " + Put(field.value, sql);
  }
  sql.text += fmt::format(" WHERE {} = {}", names_.rowKey, Put(static_cast<double>(key), sql));
  return sql;
}

void TableSql::AddWhere(const RowQuery& query, const RowsPart& part, SqlText& sql) const {
  std::string_view glue = " WHERE ";
  // First of all: of several bounds on a key the engine seeks by the one that it meets first, and this is the narrowest.
  if (part.span != nullptr) {
    const std::string key = KeyOf(query.order.front().position);
    sql.spanAt = sql.parameters.size();
    sql.parameters.resize(sql.spanAt + 2);
    SetSpan(sql, *part.span);
    sql.text += fmt::format("{0}{1} >= {2} AND {1} < {3}", glue, key, Parameter(sql.spanAt), Parameter(sql.spanAt + 1));
    glue = " AND ";
  }
  for (const dialect::ExprPtr& condition : query.where) {
    if (!condition) continue;
    sql.text += glue;
    sql.text += '(';
    sql.text += dialect::PrintSql(*condition, table_, *this, sql.parameters);
    sql.text += ')';
    glue = " AND ";
  }
  if (part.stretch != nullptr) AddStretch(query, part, glue, sql);
}

void TableSql::AddStretch(const RowQuery& query, const RowsPart& part, std::string_view glue, SqlText& sql) const {
  const Stretch& stretch = *part.stretch;
  const GridRow& beside = *part.beside;
  const auto compare = [&](std::size_t term, std::string_view op) {
    const int position = query.order[term].position;
    const Value& value = FieldOf(beside, position);
    const auto* text = std::get_if<std::string>(&value);
    const bool folded = text != nullptr && ColumnAt(position).type == ColumnType::Text;
    sql.text += fmt::format("{} {} {}", KeyOf(position), op, Put(folded ? Value(Key(*text)) : value, sql));
  };
  for (std::size_t term = 0; term < stretch.term; ++term) {
    sql.text += glue;
    if (IsNull(FieldOf(beside, query.order[term].position))) {
      sql.text += KeyOf(query.order[term].position) + " IS NULL";
    } else {
      compare(term, "=");
    }
    glue = " AND ";
  }
  sql.text += glue;
  const auto beyond = [](bool descends) { return descends ? "<" : ">"; };
  switch (stretch.kind) {
    case Stretch::Kind::SameTermsKeyBeyond:
      sql.text +=
          fmt::format("{} {} {}", names_.rowKey, beyond(KeyDescends(query, part.reversed)), Put(static_cast<double>(beside.key), sql));
      break;
    case Stretch::Kind::TermBeyond:
      compare(stretch.term, beyond(query.order[stretch.term].descending != part.reversed));
      break;
    case Stretch::Kind::TermNull:
      sql.text += KeyOf(query.order[stretch.term].position) + " IS NULL";
      break;
    case Stretch::Kind::TermNotNull:
      sql.text += KeyOf(query.order[stretch.term].position) + " IS NOT NULL";
      break;
  }
}

void TableSql::AddOrder(const RowQuery& query, bool reversed, std::size_t from, SqlText& sql) const {
  sql.text += " ORDER BY ";
  for (std::size_t i = from; i < query.order.size(); ++i) {
    const dialect::OrderTerm& term = query.order[i];
    sql.text += KeyOf(term.position);
    sql.text += Direction(term.descending != reversed);
    sql.text += ", ";
  }
  sql.text += names_.rowKey;
  if (KeyDescends(query, reversed)) sql.text += " DESC";
}

std::string QuotedName(std::string_view name) {
  std::string quoted = "\"";
  for (const char letter : name) {
    if (letter == '"') quoted += '"';
    quoted += letter;
  }
  return quoted + '"';
}

}  // namespace karvel
