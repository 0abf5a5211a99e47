#include "store/sqlite/table_sql.h"

#include <fmt/format.h>

#include <algorithm>

#include "store/sqlite/connection.h"
#include "text/turkish.h"

namespace karvel::sqlite {
namespace {

bool InAnIndex(const Table& table, int position) {
  for (const Index& index : table.indexes)
    for (const std::string_view column : index.columns)
      if (table.Position(column) == position) return true;
  return false;
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

TableSql::TableSql(const Table& table, const std::string& schema) : table_(table), name_(schema + "." + Quoted(table.name)) {
  std::string columns;
  std::string places;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const std::string column = Quoted(table.columns[i].name);
    if (i > 0) {
      columns += ", ";
      places += ", ";
    }
    columns += column;
    places += Parameter(i);
    if (table.columns[i].type == ColumnType::Text) {
      keys_.emplace(column, InAnIndex(table, static_cast<int>(i)) ? FoldKeySql(column) : ComputedKey(column));
    }
  }
  select_ = fmt::format("SELECT _rowid_, {} FROM {}", columns, name_);
  read_ = select_ + " WHERE _rowid_ = ?1";
  insert_ = fmt::format("INSERT INTO {} ({}) VALUES ({})", name_, columns, places);
  delete_ = fmt::format("DELETE FROM {} WHERE _rowid_ = ?1", name_);
}

std::string TableSql::ColumnName(std::string_view column) const {
  return Quoted(column);
}
std::string TableSql::Parameter(std::size_t n) const {
  return fmt::format("?{}", n + 1);
}

std::string TableSql::IndexedKey(std::string_view columnSql) const {
  const auto found = keys_.find(std::string(columnSql));
  return found != keys_.end() ? found->second : ComputedKey(columnSql);
}

std::string TableSql::ComputedKey(std::string_view textSql) const {
  return fmt::format("karvel_fold({})", textSql);
}

std::string TableSql::Fits(std::string_view textSql, std::string_view patternSql) const {
  return fmt::format("karvel_like({}, {})", textSql, patternSql);
}

std::string TableSql::LeftOf(std::string_view textSql, int count) const {
  return fmt::format("substr({}, 1, {})", textSql, count);
}

std::string TableSql::KeyOf(int position) const {
  const Column& column = table_.columns[static_cast<std::size_t>(position)];
  const std::string name = Quoted(column.name);
  return column.type == ColumnType::Text ? IndexedKey(name) : name;
}

std::vector<Stretch> TableSql::Stretches(const RowQuery& query, const GridRow& beside, bool reversed) {
  std::vector<Stretch> stretches{{Stretch::Kind::SameTermsKeyBeyond, query.order.size()}};
  // Nulls, which only other programs write, stand before all values.
  for (std::size_t term = query.order.size(); term-- > 0;) {
    const bool descends = query.order[term].descending != reversed;
    const bool null = IsNull(FieldOf(beside, query.order[term].position));
    if (!null) stretches.push_back({Stretch::Kind::TermBeyond, term});
    if (null && !descends) stretches.push_back({Stretch::Kind::TermNotNull, term});
    if (!null && descends) stretches.push_back({Stretch::Kind::TermNull, term});
  }
  return stretches;
}

Sql TableSql::Select(const RowQuery& query, bool reversed, const Stretch* stretch, const GridRow* beside, int limit, std::int64_t offset,
                     const KeySpan* span) const {
  Sql sql;
  sql.text.reserve(4096);
  sql.text = select_;
  AddWhere(query, stretch, beside, reversed, span, sql);
  // Terms that are the same throughout a stretch are left out, else the engine would sort by them.
  const bool same = stretch != nullptr && stretch->kind == Stretch::Kind::TermNull;
  AddOrder(query, reversed, stretch == nullptr ? 0 : stretch->term + (same ? 1 : 0), sql);
  sql.parameters.emplace_back(static_cast<double>(limit));
  sql.text += " LIMIT " + Parameter(sql.parameters.size() - 1);
  if (offset > 0) {
    sql.parameters.emplace_back(static_cast<double>(offset));
    sql.text += " OFFSET " + Parameter(sql.parameters.size() - 1);
  }
  return sql;
}

Sql TableSql::Count(const RowQuery& query, const Stretch* stretch, const GridRow* beside, const KeySpan* span, std::int64_t most) const {
  Sql sql{(most > 0 ? "SELECT count(*) FROM (SELECT 1 FROM " : "SELECT count(*) FROM ") + name_, {}};
  AddWhere(query, stretch, beside, true, span, sql);
  if (most > 0) {
    sql.parameters.emplace_back(static_cast<double>(most));
    sql.text += fmt::format(" LIMIT {})", Parameter(sql.parameters.size() - 1));
  }
  return sql;
}

void TableSql::SetSpan(Sql& sql, const KeySpan& span) {
  // Behind all keys there is none that begins with the highest byte.
  static const std::string kBehindAll("\xFF");
  sql.parameters[sql.spanAt] = span.from;
  sql.parameters[sql.spanAt + 1] = span.end.empty() ? kBehindAll : span.end;
}

Sql TableSql::Sum(const RowQuery& query, int position) const {
  Sql sql{fmt::format("SELECT sum({}) FROM {}", Quoted(table_.columns[static_cast<std::size_t>(position)].name), name_), {}};
  AddWhere(query, nullptr, nullptr, false, nullptr, sql);
  return sql;
}

Sql TableSql::DeleteWhere(const RowQuery& query) const {
  Sql sql{"DELETE FROM " + name_, {}};
  AddWhere(query, nullptr, nullptr, false, nullptr, sql);
  return sql;
}

Sql TableSql::Change(RowKey key, std::span<const FieldValue> fields) const {
  Sql sql{fmt::format("UPDATE {} SET ", name_), {}};
  for (const FieldValue& field : fields) {
    if (!sql.parameters.empty()) sql.text += ", ";
    sql.parameters.push_back(field.value);
    sql.text += Quoted(table_.columns[static_cast<std::size_t>(field.position)].name) + " = " + Parameter(sql.parameters.size() - 1);
  }
  sql.parameters.emplace_back(static_cast<double>(key));
  sql.text += " WHERE _rowid_ = " + Parameter(sql.parameters.size() - 1);
  return sql;
}

void TableSql::AddWhere(const RowQuery& query, const Stretch* stretch, const GridRow* beside, bool reversed, const KeySpan* span,
                        Sql& sql) const {
  std::string_view glue = " WHERE ";
  // First of all: of several bounds on a key the engine seeks by the one that it meets first, and this is the narrowest.
  if (span != nullptr) {
    const std::string key = KeyOf(query.order.front().position);
    sql.spanAt = sql.parameters.size();
    sql.parameters.resize(sql.spanAt + 2);
    SetSpan(sql, *span);
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
  if (stretch != nullptr) AddStretch(query, *stretch, *beside, reversed, glue, sql);
}

void TableSql::AddStretch(const RowQuery& query, const Stretch& stretch, const GridRow& beside, bool reversed, std::string_view glue,
                          Sql& sql) const {
  const auto compare = [&](std::size_t term, std::string_view op) {
    const int position = query.order[term].position;
    const Value& value = FieldOf(beside, position);
    const auto* text = std::get_if<std::string>(&value);
    const bool folded = text != nullptr && table_.columns[static_cast<std::size_t>(position)].type == ColumnType::Text;
    sql.parameters.push_back(folded ? Value(FoldKey(*text)) : value);
    sql.text += fmt::format("{} {} {}", KeyOf(position), op, Parameter(sql.parameters.size() - 1));
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
      sql.parameters.emplace_back(static_cast<double>(beside.key));
      sql.text += fmt::format("_rowid_ {} {}", beyond(KeyDescends(query, reversed)), Parameter(sql.parameters.size() - 1));
      break;
    case Stretch::Kind::TermBeyond:
      compare(stretch.term, beyond(query.order[stretch.term].descending != reversed));
      break;
    case Stretch::Kind::TermNull:
      sql.text += KeyOf(query.order[stretch.term].position) + " IS NULL";
      break;
    case Stretch::Kind::TermNotNull:
      sql.text += KeyOf(query.order[stretch.term].position) + " IS NOT NULL";
      break;
  }
}

void TableSql::AddOrder(const RowQuery& query, bool reversed, std::size_t from, Sql& sql) const {
  sql.text += " ORDER BY ";
  for (std::size_t i = from; i < query.order.size(); ++i) {
    const dialect::OrderTerm& term = query.order[i];
    sql.text += KeyOf(term.position);
    sql.text += term.descending != reversed ? " DESC, " : ", ";
  }
  sql.text += KeyDescends(query, reversed) ? "_rowid_ DESC" : "_rowid_";
}

std::string CreateIndexSql(const Table& table, const Index& index) {
  std::string name = "ix_" + std::string(table.name);
  std::string keys;
  for (const std::string_view column : index.columns) {
    name += "_" + std::string(column);
    if (!keys.empty()) keys += ", ";
    const bool text = table.columns[static_cast<std::size_t>(table.Position(column))].type == ColumnType::Text;
    keys += text ? FoldKeySql(Quoted(column)) : Quoted(column);
  }
  return fmt::format("CREATE INDEX {} ON {} ({})", Quoted(name), Quoted(table.name), keys);
}

std::string CreateTableSql(const Table& table) {
  std::string columns;
  for (const Column& column : table.columns) {
    if (!columns.empty()) columns += ", ";
    columns += Quoted(column.name);
    switch (column.type) {
      case ColumnType::Number:
        columns += " REAL DEFAULT 0";
        break;
      case ColumnType::Boolean:
        columns += " INTEGER DEFAULT 0";
        break;
      case ColumnType::Text:
      case ColumnType::Date:
        columns += " TEXT DEFAULT ''";
        break;
    }
  }
  return fmt::format("CREATE TABLE {} ({})", Quoted(table.name), columns);
}

}  // namespace karvel::sqlite
