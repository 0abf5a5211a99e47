// karvel-network-bench: the desk on a main machine's server beside the bare session, both sides in turn in one run, as one table of ratios.
//   karvel-network-bench <folder for the sample shops> [small]
#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <exception>
#include <functional>
#include <string_view>

#include "bench/ratio_table.h"
#include "bench/till.h"
#include "books/sources.h"
#include "network/bare_server.h"
#include "network/server_shops.h"
#include "store/cursor.h"
#include "store/postgres/postgres_sql.h"
#include "store/stores.h"
#include "store/table_sql.h"
#include "text/turkish.h"

namespace karvel::bench {
namespace {

constexpr const char* kCustomer = "M00003";
constexpr std::chrono::milliseconds kEachWay(3);  // a little more than half of 5
constexpr int kItems = 50, kWarmUp = 30, kTurns = 200, kSamples = 500, kShown = 20;

using Work = std::function<bool(const std::string&)>;

double SecondsOf(const std::function<void()>& work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

double Median(std::vector<double> times) {
  std::ranges::sort(times);
  return times[times.size() / 2];
}

// One firm, worked on by a desk and by a bare session.
class Firm {
 public:
  Firm(ServerShops& shops, const std::string& home, const std::string& name)
      : name_(name),
        folder_(shops.Firm(home, name)),
        till_(home, EngineOfFirm(folder_, engine_)),
        bare_(shops.Server()),
        posting_(bare_, name) {
    items_ = Texts("stok", "StokKartlar", "StokKod", "NOT \"StokGizle\"", kItems);
    till_.EnterSale(kCustomer);
  }

  // Seconds of one line: of the desk's, and of the same statements bare.
  double Ours() {
    till_.PickItem(Next(), 2);
    return SecondsOf([this] { till_.Post(); });
  }
  double Bare() {
    const std::string item = Next();
    return SecondsOf([&] { posting_.Post(kCustomer, item, 2); });
  }
  std::int64_t RoundTripsOfOne() {
    till_.PickItem(Next(), 2);
    const std::int64_t before = engine_->Costs().roundTrips;
    till_.Post();
    return engine_->Costs().roundTrips - before;
  }

  std::vector<std::string> Texts(const std::string& schema, const std::string& table, const std::string& column, const std::string& where,
                                 int limit) {
    std::vector<std::string> texts;
    for (const auto& row :
         bare_.Run(fmt::format("SELECT \"{}\" FROM \"{}_{}\".\"{}\" WHERE {} LIMIT {}", column, name_, schema, table, where, limit)))
      texts.push_back(row[0]);
    return texts;
  }
  [[nodiscard]] const std::string& Name() const { return name_; }
  // A terminal that only looks: its lists move nothing else.
  Stores& Looker() {
    if (!looker_) {
      PostgresEngine* engine = nullptr;
      looker_ = std::make_unique<Stores>(EngineOfFirm(folder_, engine));
      if (const Status opened = looker_->Open(folder_); !opened.Ok()) throw std::runtime_error(opened.Message());
    }
    return *looker_;
  }
  BareSession& Session() { return bare_; }

 private:
  const std::string& Next() { return items_[next_++ % items_.size()]; }

  const std::string name_, folder_;
  PostgresEngine* engine_ = nullptr;
  Till till_;
  BareSession bare_;
  BareServerPosting posting_;
  std::vector<std::string> items_;
  std::size_t next_ = 0;
  std::unique_ptr<Stores> looker_;
};

// A list of the desk's by itself.
class List {
 public:
  List(Firm& firm, bool stock) : cursor_(firm.Looker(), "list") {
    cursor_.SetDatabaseName(stock ? "Stok.mdb" : "Cari.mdb");
    const Status opened = cursor_.Open(stock ? sources::kStock : sources::kCustomers);
    if (!opened.Ok()) throw std::runtime_error(opened.Message());
  }
  [[nodiscard]] bool Find(const std::string& column, const std::string& text) {
    return cursor_.FindFirst(fmt::format("{}='{}'", column, text)).Ok() && !cursor_.NoMatch();
  }
  [[nodiscard]] bool Page() { return !cursor_.RowsAfter(cursor_.CurrentRow(), kShown).empty(); }

 private:
  Cursor cursor_;
};

void WarmUp(Firm& firm) {
  for (int i = 0; i < kWarmUp; ++i) {
    firm.Ours();
    firm.Bare();
  }
}

// Line by line in turn: what else the machine does falls on all alike.
void AddPostings(Firm& small, Firm* busy, RatioTable& table) {
  std::vector<double> ours, bare, large;
  for (int i = 0; i < kTurns; ++i) {
    ours.push_back(small.Ours());
    bare.push_back(small.Bare());
    if (busy != nullptr) large.push_back(busy->Ours());
  }
  table.Add(Measured{"line posted on the server, desk beside bare", Median(ours), Median(bare), 1.5});
  if (busy != nullptr) table.Add(Measured{"line posted on the server, 1,000,000 rows beside 1,000", Median(large), Median(ours), 1.15});
}

// A desk and a bare session on the same firm, look-up by look-up in turn.
void AddInTurn(const std::string& name, const std::vector<std::string>& texts, const Work& ours, const Work& bare, RatioTable& table) {
  std::vector<double> desk, rival;
  for (const std::string& text : texts) {
    bool found = true;
    desk.push_back(SecondsOf([&] { found = ours(text) && found; }));
    rival.push_back(SecondsOf([&] { found = bare(text) && found; }));
    if (!found) throw std::runtime_error(name + ": nothing was found for " + text);
  }
  table.Add(Measured{name, Median(desk), Median(rival), 3});
}

void AddFinds(Firm& firm, const std::string& rows, RatioTable& table) {
  struct Find {
    const char *schema, *table, *column, *where;
  };
  for (const Find& find : {Find{"stok", "StokKartlar", "Barkod", "NOT \"StokGizle\" AND \"Barkod\" <> ''"},
                           Find{"stok", "StokKartlar", "StokKod", "NOT \"StokGizle\""},
                           Find{"cari", "CariKartlar", "CariKod", "NOT \"HesKullan\" AND \"CariKod\" ~ '^M[0-9]+$'"},
                           Find{"cari", "CariKartlar", "Unvan", "NOT \"HesKullan\" AND \"CariKod\" ~ '^M[0-9]+$'"}}) {
    List list(firm, std::string_view(find.schema) == "stok");
    const std::string sql = fmt::format("SELECT * FROM \"{}_{}\".\"{}\" WHERE {} = $1", firm.Name(), find.schema, find.table,
                                        postgres::PostgresWords().IndexedKey(QuotedName(find.column)));
    AddInTurn(
        fmt::format("find on the server by {} in {} rows", find.column, rows),
        firm.Texts(find.schema, find.table, find.column, find.where, kSamples),
        [&](const std::string& text) { return list.Find(find.column, text); },
        [&](const std::string& text) { return !firm.Session().Run(sql, {FoldKey(text)}).empty(); }, table);
  }
}

void AddGrids(Firm& firm, const std::string& rows, RatioTable& table) {
  List list(firm, false);
  const std::string key = postgres::PostgresWords().IndexedKey("\"Unvan\"");
  const std::string page =
      fmt::format("SELECT * FROM \"{}_cari\".\"CariKartlar\" WHERE NOT \"HesKullan\" AND {} >= $1 ORDER BY {} NULLS FIRST, \"{}\" LIMIT {}",
                  firm.Name(), key, key, postgres::kRowKey, kShown);
  AddInTurn(
      fmt::format("page of a list on the server, {} customers", rows),
      firm.Texts("cari", "CariKartlar", "Unvan", "NOT \"HesKullan\" AND \"CariKod\" ~ '^M[0-9]+$'", kSamples / 5),
      [&](const std::string& text) { return list.Find("Unvan", text) && list.Page(); },
      [&](const std::string& text) {
        // The find, and the rows from there on.
        return !firm.Session().Run(page, {FoldKey(text)}).empty() && !firm.Session().Run(page, {FoldKey(text)}).empty();
      },
      table);
}

// A line that takes so long for the way there and back.
double MillisecondsOnSlowLine(ServerShops& shops, const std::string& home, const std::string& firm) {
  LoopbackProxy line({"127.0.0.1", shops.Server().Port()});
  PostgresEngine* engine = nullptr;
  Till till(home, EngineOfFirm(shops.Behind(line, firm), engine));
  till.EnterSale(kCustomer);
  std::vector<double> times;
  line.Delay(kEachWay);
  for (int i = 0; i < kWarmUp; ++i) {
    till.PickItem("S00007", 1);
    times.push_back(SecondsOf([&] { till.Post(); }) * 1000);
  }
  return Median(times);
}

int Run(const std::string& folder, bool onlySmall) {
  Shops shops(folder);
  ServerShops servers;
  RatioTable table;
  const std::string smallHome = shops.Copy(Size::Small);
  Firm small(servers, smallHome, "01");
  std::unique_ptr<Firm> busy;
  if (!onlySmall) busy = std::make_unique<Firm>(servers, shops.Copy(Size::Busy), "02");
  servers.Settle();
  WarmUp(small);
  if (busy) WarmUp(*busy);
  table.Add(Counts{"round trips of a posted line on the server", small.RoundTripsOfOne(), 20, 1});
  AddPostings(small, busy.get(), table);
  table.Add(Figure{"line posted on the server, 6 ms for each round trip", MillisecondsOnSlowLine(servers, smallHome, "01"), 100, "ms"});
  AddFinds(small, "1,000", table);
  AddGrids(small, "1,000", table);
  if (busy) {
    AddFinds(*busy, "100,000", table);
    AddGrids(*busy, "100,000", table);
  }
  return table.Print() ? 0 : 1;
}

}  // namespace
}  // namespace karvel::bench

int main(int count, char** words) {
  if (count < 2) {
    fmt::print(stderr, "karvel-network-bench <folder for the sample shops> [small]\n");
    return 2;
  }
  try {
    return karvel::bench::Run(words[1], count > 2);
  } catch (const std::exception& failure) {
    fmt::print(stderr, "karvel-network-bench: {}\n", failure.what());
    return 1;
  }
}
