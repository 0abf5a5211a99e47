#include "bench/lists.h"

#include <fmt/format.h>

#include <functional>
#include <memory>
#include <stdexcept>

#include "bench/bare_engine.h"
#include "bench/till.h"
#include "books/sources.h"
#include "text/turkish.h"

namespace karvel::bench {

namespace {

constexpr int kShown = 20;  // rows that a list paints at first
constexpr int kNames = 500;
constexpr int kLetters = 5;
constexpr const char* kStandard =
    "HesKullan=0 AND Gurup<>'Toptan' AND lower(Gurup)<>'plasiyer' AND substr(CariKod,1,1)<>'=' AND CariKod<>'Merkez'";

// One measurement: what is done with one text after another.
void Measure(const std::string& name, std::vector<std::string> texts, std::function<bool(const std::string&)> action) {
  benchmark::RegisterBenchmark(name.c_str(), [texts = std::move(texts), action = std::move(action)](benchmark::State& state) {
    std::size_t next = 0;
    for (auto unused : state)
      if (!action(texts[next++ % texts.size()])) return state.SkipWithError("nothing was found");
  });
}

std::vector<std::string> Beginnings(const std::vector<std::string>& names, std::size_t letters) {
  std::vector<std::string> beginnings;
  for (const std::string& name : names) beginnings.push_back(LeftLetters(name, letters));
  return beginnings;
}

// A key in a name field: the letter stands in it, the desk looks the name up and completes it.
std::function<bool(const std::string&)> Key(const std::shared_ptr<Till>& till, Element& field) {
  field.SetFocus();
  if (!field.HasFocus()) throw std::runtime_error(field.Name() + " can't be typed into");
  return [till, &field](const std::string& text) {
    KeyEvent key{'A'};
    field.keyDown(key);
    field.SetText(text);
    field.Select(static_cast<int>(LetterCount(text)), 0);
    field.keyUp(key);
    return field.Text().size() >= text.size();
  };
}

bool ReadsRows(const Cursor& list) {
  const auto rows = list.RowsFromStart(kShown);
  benchmark::DoNotOptimize(rows.data());
  return !rows.empty();
}

// The rival: one prepared statement, a prefix as a range over the key.
std::function<bool(const std::string&)> Prefix(const std::shared_ptr<BareShop>& shop, const std::string& table, const std::string& column,
                                               const std::string& where, int rows) {
  const std::string key = FoldKeySql("\"" + column + "\"");
  const auto statement = std::make_shared<BareStatement>(
      shop->Connection(),
      fmt::format("SELECT * FROM {0} WHERE {1}>=?1 AND {1}<?2 AND {2} ORDER BY {1} LIMIT {3}", table, key, where, rows));
  return [shop, statement](const std::string& text) {
    const std::string from = FoldKey(text), end = FoldKeyPrefixEnd(text);
    bool any = false;
    for (statement->With(from, end); statement->Step(); any = true) benchmark::DoNotOptimize(statement->Text(1));
    statement->Rest();
    return any;
  };
}

std::function<bool(const std::string&)> Pattern(const std::shared_ptr<BareShop>& shop) {
  const auto statement = std::make_shared<BareStatement>(
      shop->Connection(), fmt::format("SELECT * FROM cari.CariKartlar WHERE Unvan LIKE ?1 AND {} ORDER BY {} LIMIT {}", kStandard,
                                      FoldKeySql("\"Unvan\""), kShown));
  return [shop, statement](const std::string& text) {
    const std::string pattern = ReplaceAll(ReplaceAll(text, "İ", "_"), "i", "_") + "%";
    bool any = false;
    for (statement->With(pattern); statement->Step(); any = true) benchmark::DoNotOptimize(statement->Text(1));
    statement->Rest();
    return any;
  };
}

std::function<bool(const std::string&)> Group(const std::shared_ptr<BareShop>& shop) {
  const auto statement = std::make_shared<BareStatement>(
      shop->Connection(), fmt::format("SELECT * FROM cari.CariKartlar WHERE {}=?1 AND HesKullan=0 ORDER BY {} LIMIT {}",
                                      FoldKeySql("\"Gurup\""), FoldKeySql("\"Unvan\""), kShown));
  return [shop, statement](const std::string& text) {
    const std::string key = FoldKey(text);
    bool any = false;
    for (statement->With(key); statement->Step(); any = true) benchmark::DoNotOptimize(statement->Text(1));
    statement->Rest();
    return any;
  };
}

}  // namespace

void AddLists(Shops& shops, RatioTable& table) {
  const std::string home = shops.Copy(Size::Wide);
  const auto bare = std::make_shared<BareShop>(home);
  const auto customers = bare->Sample("cari.CariKartlar", "Unvan", "HesKullan=0 AND CariKod GLOB 'M[0-9]*'", kNames);
  const auto items = bare->Sample("stok.StokKartlar", "StokAdi", "StokGizle=0", kNames);
  // Each measurement has a desk of its own: the list that one leaves must not be the next one's.
  const auto desk = [&home] { return std::make_shared<Till>(home); };
  const auto pair = [&table](const std::string& name, double limit) { table.Add(Pair{name, name + ", desk", name + ", bare", limit}); };

  std::string name = "key in the customer's field, 1,000,000 customers";
  const auto typist = desk();
  Measure(name + ", desk", Beginnings(customers, kLetters), Key(typist, typist->TheScreen().Text1(0)));
  Measure(name + ", bare", Beginnings(customers, kLetters), Prefix(bare, "cari.CariKartlar", "Unvan", kStandard, 1));
  pair(name, 12);

  name = "list by the filter, 1,000,000 customers";
  const auto filter = [till = desk()](const std::string& text) {
    till->TheScreen().Text5.SetText("");
    till->TheScreen().Text5.SetText(text);
    return ReadsRows(till->TheCursors().CariData);
  };
  Measure(name + ", desk", Beginnings(customers, 3), filter);
  Measure(name + ", bare", Beginnings(customers, 3), Prefix(bare, "cari.CariKartlar", "Unvan", kStandard, kShown));
  pair(name, 12);

  name = "list by a filter with i for any letter";
  const std::vector<std::string> dotted{"ibrahim", "ismail", "ilk", "fil", "İb"};
  Measure(name + ", desk", dotted, filter);
  Measure(name + ", bare", dotted, Pattern(bare));
  pair(name, 12);

  name = "list of a group, 1,000,000 customers";
  const auto chooser = desk();
  const auto& entries = chooser->TheScreen().GurupCombo.Items();
  const std::vector<std::string> groups(entries.begin() + 1, entries.end());
  Measure(name + ", desk", groups, [chooser](const std::string& group) {
    chooser->TheScreen().GurupCombo.Choose(0);
    chooser->TheScreen().GurupCombo.ChooseText(group);
    return ReadsRows(chooser->TheCursors().CariData);
  });
  Measure(name + ", bare", groups, Group(bare));
  pair(name, 60);

  const auto seller = desk();
  seller->EnterSale("M00003");
  name = "key in the product field, 1,000,000 cards";
  Measure(name + ", desk", Beginnings(items, kLetters), Key(seller, seller->TheScreen().Text1(1)));
  Measure(name + ", bare", Beginnings(items, kLetters), Prefix(bare, "stok.StokKartlar", "StokAdi", "StokGizle=0", 1));
  pair(name, 12);
}

}  // namespace karvel::bench
