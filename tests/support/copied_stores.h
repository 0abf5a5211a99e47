// Copies of a data folder, made and looked at by tests.
#pragma once

#include <sqlite3.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tests/store/engine_contract.h"

namespace karvel::testing {

// The rows of a query on a file, by a plain connection: fields with "|" between them, an error by its text.
inline std::vector<std::string> PlainRows(const std::string& path, const std::string& sql) {
  std::vector<std::string> rows;
  sqlite3* database = nullptr;
  sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READONLY, nullptr);
  const auto row = [](void* to, int count, char** fields, char**) {
    std::string line;
    for (int i = 0; i < count; ++i) line += (i > 0 ? "|" : "") + std::string(fields[i] != nullptr ? fields[i] : "");
    static_cast<std::vector<std::string>*>(to)->push_back(line);
    return 0;
  };
  if (sqlite3_exec(database, sql.c_str(), row, &rows, nullptr) != SQLITE_OK) rows.emplace_back(sqlite3_errmsg(database));
  sqlite3_close(database);
  return rows;
}

// Carries a copy through; after each bit of it, `meanwhile` runs.
inline Status CopyAll(Stores& stores, const std::string& folder, const std::function<void()>& meanwhile = [] {}) {
  std::unique_ptr<StoresCopy> copy;
  if (Status begun = stores.Copy(folder, copy); !begun.Ok()) return begun;
  while (!copy->IsDone()) {
    meanwhile();
    if (Status advanced = copy->Advance(); !advanced.Ok()) return advanced;
  }
  EXPECT_EQ(copy->Copied(), copy->Size());
  return {};
}

// A sale of the number told: a row in the day book and one in the ledger, in one action.
inline void BookTwice(Stores& stores, int number) {
  Action action(stores, "sale");
  const std::string id = std::to_string(number);
  AddLine(stores, "A", {2026, 3, 1, 8, 0, 0}, number, id);
  auto ledger = Opened(stores, "Cari.mdb", "CariHareket");
  EXPECT_TRUE(ledger->AddNew().Ok());
  ledger->Set("DigerId", Value(id));
  EXPECT_TRUE(ledger->Update().Ok());
  EXPECT_TRUE(action.Finish().Ok());
}

}  // namespace karvel::testing
