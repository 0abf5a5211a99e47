#include "bench/finds.h"

#include <fmt/format.h>

#include <memory>
#include <stdexcept>

#include "bench/bare_engine.h"
#include "books/sources.h"
#include "store/cursor.h"
#include "store/sqlite/sqlite_engine.h"
#include "store/stores.h"
#include "text/turkish.h"

namespace karvel::bench {

namespace {

constexpr int kSamples = 2000;

// A shop opened by both sides.
struct OpenShop {
  explicit OpenShop(const std::string& home) : bare(home), stores(MakeSqliteEngine({.programFolder = home, .vfs = {}})) {
    const Status opened = stores.Driver().Open(home + "/C/KarvelData");
    if (!opened.Ok()) throw std::runtime_error(opened.Message());
  }
  BareShop bare;
  Stores stores;
};

struct Find {
  const char* column;
  const char* table;  // with its schema
  const char* file;
  std::string source;  // of the desk's list
  const char* where;   // of the rows in that list, for the sample
};

const Find kFinds[] = {
    {"Barkod", "stok.StokKartlar", "Stok.mdb", sources::kStock, "StokGizle=0"},
    {"StokKod", "stok.StokKartlar", "Stok.mdb", sources::kStock, "StokGizle=0"},
    {"CariKod", "cari.CariKartlar", "Cari.mdb", sources::kCustomers, "HesKullan=0 AND CariKod GLOB 'M[0-9]*'"},
    {"Unvan", "cari.CariKartlar", "Cari.mdb", sources::kCustomers, "HesKullan=0 AND CariKod GLOB 'M[0-9]*'"},
};

void MeasureOurs(const std::string& name, const std::shared_ptr<OpenShop>& shop, const Find& find, const std::vector<std::string>& texts) {
  const auto cursor = std::make_shared<Cursor>(shop->stores, find.column);
  cursor->SetDatabaseName(find.file);
  if (const Status opened = cursor->Open(find.source); !opened.Ok()) throw std::runtime_error(opened.Message());
  benchmark::RegisterBenchmark(name.c_str(), [shop, cursor, column = find.column, texts](benchmark::State& state) {
    std::size_t next = 0;
    for (auto unused : state) {
      const std::string& text = texts[next++ % texts.size()];
      if (!cursor->FindFirst(fmt::format("{}='{}'", column, text)).Ok() || cursor->NoMatch())
        return state.SkipWithError(("not found: " + text).c_str());
      benchmark::DoNotOptimize(cursor->Text(1));
    }
  });
}

void MeasureRival(const std::string& name, const std::shared_ptr<OpenShop>& shop, const Find& find, const std::vector<std::string>& texts) {
  const auto statement = std::make_shared<BareStatement>(
      shop->bare.Connection(), fmt::format("SELECT * FROM {} WHERE {}=?1", find.table, FoldKeySql(fmt::format("\"{}\"", find.column))));
  std::vector<std::string> keys;
  for (const std::string& text : texts) keys.push_back(FoldKey(text));
  benchmark::RegisterBenchmark(name.c_str(), [shop, statement, keys](benchmark::State& state) {
    std::size_t next = 0;
    for (auto unused : state) {
      if (!statement->With(keys[next++ % keys.size()]).Step()) return state.SkipWithError("not found");
      benchmark::DoNotOptimize(statement->Text(1));
      statement->Rest();
    }
  });
}

}  // namespace

void AddFinds(Shops& shops, RatioTable& table) {
  struct Sized {
    Size size;
    const char* rows;
  };
  for (const Sized sized : {Sized{Size::Small, "1,000"}, Sized{Size::Busy, "100,000"}, Sized{Size::Wide, "1,000,000"}}) {
    const auto shop = std::make_shared<OpenShop>(shops.Kept(sized.size));
    for (const Find& find : kFinds) {
      const std::string name = fmt::format("find by {} in {} rows", find.column, sized.rows);
      const std::vector<std::string> texts = shop->bare.Sample(find.table, find.column, find.where, kSamples);
      MeasureOurs(name + ", desk", shop, find, texts);
      MeasureRival(name + ", bare", shop, find, texts);
      table.Add(Pair{name, name + ", desk", name + ", bare", 5});
    }
  }
  for (const Find& find : kFinds) {
    const std::string name = fmt::format("find by {} in ", find.column);
    table.Add(Pair{name + "1,000,000 rows beside 1,000", name + "1,000,000 rows, desk", name + "1,000 rows, desk", 2.5});
  }
}

}  // namespace karvel::bench
