#include "network/bare_server.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "store/catalogue.h"
#include "store/postgres/postgres_sql.h"
#include "store/table_sql.h"
#include "text/turkish.h"

namespace karvel::bench {
namespace {

std::string Key(std::string_view column) {
  return postgres::PostgresWords().IndexedKey(QuotedName(column));
}

std::string Number(double number) {
  return fmt::format("{}", number);
}

}  // namespace

// The way that a desk takes: a socket of this machine would be a shorter one.
BareSession::BareSession(const PostgresServer& server)
    : session_(
          PQconnectdb(fmt::format("host=127.0.0.1 port={} dbname=MuhasebeData user={}", server.Port(), PostgresServer::User()).c_str())) {
  if (PQstatus(session_.get()) != CONNECTION_OK) throw std::runtime_error(PQerrorMessage(session_.get()));
}

std::vector<std::vector<std::string>> BareSession::Run(const std::string& sql, const std::vector<std::string>& values) {
  auto known = names_.find(sql);
  if (known == names_.end()) {
    known = names_.emplace(sql, fmt::format("b{}", names_.size())).first;
    PQclear(PQprepare(session_.get(), known->second.c_str(), sql.c_str(), 0, nullptr));
  }
  std::vector<const char*> texts;
  for (const std::string& value : values) texts.push_back(value.c_str());
  PGresult* const result =
      PQexecPrepared(session_.get(), known->second.c_str(), static_cast<int>(texts.size()), texts.data(), nullptr, nullptr, 0);
  const ExecStatusType status = PQresultStatus(result);
  std::vector<std::vector<std::string>> rows(static_cast<std::size_t>(PQntuples(result)));
  for (std::size_t row = 0; row < rows.size(); ++row)
    for (int column = 0; column < PQnfields(result); ++column) rows[row].emplace_back(PQgetvalue(result, static_cast<int>(row), column));
  PQclear(result);
  if (status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK) throw std::runtime_error(PQerrorMessage(session_.get()) + sql);
  return rows;
}

BareServerPosting::BareServerPosting(BareSession& session, const std::string& firm) : session_(session), firm_(firm) {}

std::string BareServerPosting::Table(const std::string& schema, const std::string& table) const {
  return fmt::format("\"{}_{}\".{}", firm_, schema, QuotedName(table));
}

void BareServerPosting::Post(const std::string& customerCode, const std::string& stockCode, int quantity) {
  const std::string kNow = "2026-03-01 10:15:00", kDay = "2026-03-01 00:00:00", kYear = "2026";
  const std::string customerKey = FoldKey(customerCode), stockKey = FoldKey(stockCode);
  const std::string row = QuotedName(postgres::kRowKey);
  const auto insert = [&](const std::string& schema, const char* file, const char* table, const std::vector<std::string>& values) {
    std::string names, places;
    for (const Column& column : Catalogue::File(file)->Find(table)->columns) {
      names += (names.empty() ? "" : ", ") + QuotedName(column.name);
      places += fmt::format("{}${}", places.empty() ? "" : ", ", std::ranges::count(places, '$') + 1);
    }
    session_.Run(fmt::format("INSERT INTO {} ({}) VALUES ({})", Table(schema, table), names, places), values);
  };
  session_.Run("BEGIN");
  session_.Run("SELECT pg_advisory_xact_lock($1)", {std::to_string(postgres::LockOf(firm_, "actions"))});
  const auto number =
      session_.Run(fmt::format("SELECT \"Indexi\" FROM {} WHERE {} = $1 FOR UPDATE", Table("indeks", "Mdbindex"), Key("Tarih")), {kYear});
  const std::string next = number.at(0).at(0).substr(0, 2) + std::to_string(std::stol(number[0][0].substr(2)) + 1);
  session_.Run(fmt::format("UPDATE {} SET \"Indexi\" = $2 WHERE {} = $1", Table("indeks", "Mdbindex"), Key("Tarih")), {kYear, next});
  const std::string id = fmt::format("9{:0>10}{}", next, ++posted_);
  const auto card = session_
                        .Run(fmt::format("SELECT {}, \"StokAdi\", \"Birim\", \"Barkod\", \"Fiyat\", \"gFiyat\", \"Gurup\", \"Maliyet\", "
                                         "\"GirenMik\", \"CikanMik\", "
                                         "\"CikanTutar\", \"Kar\" FROM {} WHERE {} = $1 FOR UPDATE",
                                         row, Table("stok", "StokKartlar"), Key("StokKod")),
                             {stockKey})
                        .at(0);
  const double price = std::stod(card[4]), cost = std::stod(card[5]), amount = price * quantity;
  const double in = std::stod(card[8]), out = std::stod(card[9]) + quantity;
  const double profit = std::stod(card[7]) != 0 ? std::max(0.0, amount - quantity * cost) : 0;
  const auto customer = session_
                            .Run(fmt::format("SELECT {}, \"Unvan\", \"Borc\", \"Alacak\" FROM {} WHERE {} = $1 FOR UPDATE", row,
                                             Table("cari", "CariKartlar"), Key("CariKod")),
                                 {customerKey})
                            .at(0);
  const double debit = std::stod(customer[2]) + amount, credit = std::stod(customer[3]);
  session_.Run(fmt::format("SELECT \"0Fiyat\" FROM {} WHERE {} = $1 AND {} = $2", Table("cari", "Cari"), Key("StokKod"), Key("CariKod")),
               {stockKey, customerKey});
  const auto due = session_.Run(fmt::format("SELECT {}, \"Tutar\" FROM {} WHERE {} = $1 AND \"VadeTarih\" = $2 FOR UPDATE", row,
                                            Table("cari", "VadeGün"), Key("CariKod")),
                                {customerKey, kDay});
  if (due.empty()) {
    insert("cari", "Cari.mdb", "VadeGün", {customerCode, kDay, Number(amount)});
  } else {
    session_.Run(fmt::format("UPDATE {} SET \"Tutar\" = $2 WHERE {} = $1", Table("cari", "VadeGün"), row),
                 {due[0][0], Number(std::stod(due[0][1]) + amount)});
  }
  const std::string pieces = std::to_string(quantity);
  insert("stok", "Stok.mdb", "StokHareket",
         {stockCode,
          kDay,
          card[1] + " Satış İle",
          Number(amount),
          card[2],
          pieces,
          card[4],
          "Satış",
          customerCode,
          id,
          "C",
          kDay,
          card[1],
          customer[1],
          card[3],
          card[5],
          "",
          card[6],
          "1",
          "WinKarvel01",
          "WinKarvel01",
          Number(profit),
          "0"});
  insert("karvel", "Karvel.mdb", "Datam",
         {customerCode, stockCode, customer[1], card[1],      card[4],      pieces,   Number(amount), kNow, id, card[2],
          "1",          "Satış",   card[6],     "WinKarvel0", "WinKarvel0", "000001", Number(profit), "0",  "", "",
          "0",          "",        ""});
  insert("cari", "Cari.mdb", "CariHareket",
         {customerCode, kNow, card[1] + " Satış", stockCode, card[1], card[2], Number(amount), "0", stockCode, card[1], id, "S", pieces,
          card[4], "1", ""});
  session_.Run(
      fmt::format("UPDATE {} SET \"CikanMik\" = $2, \"CikanTutar\" = $3, \"Kar\" = $4, \"KalanA\" = $5, \"KalanB\" = $6 WHERE {} = $1",
                  Table("stok", "StokKartlar"), row),
      {card[0], Number(out), Number(std::stod(card[10]) + amount), Number(std::stod(card[11]) + profit), Number(std::max(0.0, out - in)),
       Number(std::max(0.0, in - out))});
  session_.Run(fmt::format("UPDATE {} SET \"Borc\" = $2, \"Bakiye\" = $3, \"Hesap\" = $4 WHERE {} = $1", Table("cari", "CariKartlar"), row),
               {customer[0], Number(debit), Number(std::abs(debit - credit)), credit > debit ? "Alacak" : "Borç"});
  session_.Run("COMMIT");
}

}  // namespace karvel::bench
