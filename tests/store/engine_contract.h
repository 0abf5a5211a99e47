// The one suite that every engine under a cursor has to pass: what cursor.h, stores.h and engine.h promise, sentence by sentence.
// An engine's test file instantiates EngineContract with a factory of its kind and includes the suites.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "store/cursor.h"
#include "store/stores.h"
#include "tests/support/logged_lines.h"
#include "tests/support/watched_engine.h"

namespace karvel::testing {

// One engine's kind of data folder, fresh and empty; it is gone with this object.
class EngineKind {
 public:
  virtual ~EngineKind() = default;
  // What Engine::Open takes.
  [[nodiscard]] virtual std::string Folder() const = 0;
  // Another terminal on the folder: an engine with its own connection, not open yet.
  [[nodiscard]] virtual std::unique_ptr<Engine> NewEngine() = 0;
};

using EngineFactory = std::function<std::unique_ptr<EngineKind>()>;

class EngineContract : public ::testing::TestWithParam<EngineFactory> {
 protected:
  EngineContract() : kind_(GetParam()()), stores_(std::make_unique<WatchedEngine>(kind_->NewEngine(), watch_)) {
    EXPECT_TRUE(stores_.Open(kind_->Folder()).Ok());
  }

  // A second terminal on the same folder.
  std::unique_ptr<Stores> OtherTerminal() {
    auto other = std::make_unique<Stores>(kind_->NewEngine());
    EXPECT_TRUE(other->Open(kind_->Folder()).Ok());
    return other;
  }

  std::unique_ptr<EngineKind> kind_;
  EngineWatch watch_;
  Stores stores_;
  Connections connections;  // what a test hears
};

inline std::unique_ptr<Cursor> Opened(Stores& stores, const std::string& file, const std::string& source) {
  auto cursor = std::make_unique<Cursor>(stores, source);
  cursor->SetDatabaseName(file);
  EXPECT_TRUE(cursor->Open(source).Ok()) << source;
  return cursor;
}

inline std::unique_ptr<Cursor> Customers(Stores& stores, const std::string& source = "CariKartlar") {
  return Opened(stores, "Cari.mdb", source);
}

// Adds a customer card with this key and name.
inline void AddCustomer(Stores& stores, const std::string& code, const std::string& name, double debit = 0) {
  auto cursor = Customers(stores);
  EXPECT_TRUE(cursor->AddNew().Ok());
  cursor->Set("CariKod", Value(code));
  cursor->Set("Unvan", Value(name));
  cursor->Set("Borc", Value(debit));
  EXPECT_TRUE(cursor->Update().Ok());
}

// Key and name alike: the cards that most tests need.
inline void AddCustomers(Stores& stores, const std::vector<std::string>& names) {
  Action action(stores, "cards");
  for (const std::string& name : names) AddCustomer(stores, name, name);
  EXPECT_TRUE(action.Finish().Ok());
}

// A day-book row of a customer.
inline void AddLine(Stores& stores, const std::string& customer, const DateTime& at, double amount, const std::string& id = "") {
  auto cursor = Opened(stores, "Karvel.mdb", "Datam");
  EXPECT_TRUE(cursor->AddNew().Ok());
  cursor->Set("CariKod", Value(customer));
  cursor->Set("Tarih", Value(at));
  cursor->Set("Tutar", Value(amount));
  cursor->Set("DigerId", Value(id));
  EXPECT_TRUE(cursor->Update().Ok());
}

// What a walk from the first to the last row reads in a field.
inline std::vector<std::string> Walk(Cursor& cursor, const std::string& field) {
  std::vector<std::string> texts;
  EXPECT_TRUE(cursor.MoveFirst().Ok());
  for (int guard = 0; !cursor.Eof() && guard < 10000; ++guard) {
    texts.push_back(cursor.Text(field));
    if (!cursor.MoveNext().Ok()) break;
  }
  return texts;
}

inline std::vector<std::string> Texts(const std::vector<GridRow>& rows, int position) {
  std::vector<std::string> texts;
  for (const GridRow& row : rows) texts.push_back(AsText(row.values[static_cast<std::size_t>(position)]));
  return texts;
}

}  // namespace karvel::testing
