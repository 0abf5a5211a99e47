#include "tests/support/desk_fixture.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <cctype>

#include "desk/sources.h"
#include "store/sqlite/sqlite_engine.h"
#include "store/sqlite/templates.h"

namespace karvel {
namespace {

struct Database {
  explicit Database(const std::string& path) {
    if (sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) ADD_FAILURE() << path;
  }
  ~Database() { sqlite3_close(handle); }
  sqlite3* handle = nullptr;
};

std::string ColumnText(sqlite3_stmt* statement, int i) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
  return text ? text : "NULL";
}

// The templates, made once a run.
const std::string& TemplateFolder() {
  static const TempFolder folder;
  static const bool made = [] {
    for (const DatabaseFile& file : Catalogue::Files())
      if (!WriteTemplate(file, folder.Path() + "/" + std::string(file.name)).Ok()) return false;
    return true;
  }();
  EXPECT_TRUE(made);
  return folder.Path();
}

// The code that the window gives to the key of a letter: only the plain letters and digits have one.
int KeyOf(const std::string& letter) {
  const auto first = static_cast<unsigned char>(letter[0]);
  return first == ' ' || std::isalnum(first) ? std::toupper(first) : 0;
}

}  // namespace

DeskFixture::DeskFixture() {
  std::filesystem::copy(TemplateFolder(), files.ProgramFolder(), std::filesystem::copy_options::recursive);
}

DeskFixture::~DeskFixture() {
  Stop();
}

bool DeskFixture::Start(const std::string& title) {
  Stop();
  stores = std::make_unique<Stores>(
      std::make_unique<testing::WatchedEngine>(MakeSqliteEngine({.programFolder = files.ProgramFolder(), .vfs = vfs}), engine));
  desk =
      std::make_unique<Desk>(World{clock, loop, files, messages, settings, shell, keyboard, window, scanner, connection, *stores}, title);
  accounts = std::make_unique<Accounts>(*desk);
  exchange = std::make_unique<Exchange>(*desk);
  keyboard.elements = &desk->screen.elements;
  if (!desk->Load()) return false;
  desk->Activate();
  return true;
}

void DeskFixture::Stop() {
  exchange.reset();
  accounts.reset();
  desk.reset();
  stores.reset();
  scanner.codeRead = {};  // its handlers were the desk's
  keyboard.elements = nullptr;
}

void DeskFixture::Sql(const std::string& file, const std::string& sql) {
  const Database database(folder.Path() + "/C/KarvelData/" + file);
  char* error = nullptr;
  if (sqlite3_exec(database.handle, sql.c_str(), nullptr, nullptr, &error) != SQLITE_OK) ADD_FAILURE() << sql << ": " << error;
  sqlite3_free(error);
}

std::vector<std::string> DeskFixture::Rows(const std::string& file, const std::string& sql) {
  const Database database(folder.Path() + "/C/KarvelData/" + file);
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(database.handle, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
    ADD_FAILURE() << sql << ": " << sqlite3_errmsg(database.handle);
  std::vector<std::string> rows;
  while (statement && sqlite3_step(statement) == SQLITE_ROW) {
    std::string row;
    for (int i = 0; i < sqlite3_column_count(statement); ++i) row += (i ? "|" : "") + ColumnText(statement, i);
    rows.push_back(row);
  }
  sqlite3_finalize(statement);
  return rows;
}

std::string DeskFixture::One(const std::string& file, const std::string& sql) {
  const auto rows = Rows(file, sql);
  EXPECT_EQ(rows.size(), 1U) << sql;
  return rows.empty() ? std::string() : rows.front();
}

DeskFixture::Fields DeskFixture::RowOf(const std::string& file, const std::string& table, const std::string& where) {
  const Database database(folder.Path() + "/C/KarvelData/" + file);
  const std::string sql = fmt::format("SELECT * FROM \"{}\" WHERE {}", table, where);
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(database.handle, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
    ADD_FAILURE() << sql << ": " << sqlite3_errmsg(database.handle);
  Fields fields;
  int count = 0;
  while (statement && sqlite3_step(statement) == SQLITE_ROW) {
    ++count;
    for (int i = 0; i < sqlite3_column_count(statement); ++i) fields[sqlite3_column_name(statement, i)] = ColumnText(statement, i);
  }
  sqlite3_finalize(statement);
  EXPECT_EQ(count, 1) << sql;
  return fields;
}

void DeskFixture::AddCustomer(const std::string& code, const std::string& name, const std::string& more) {
  Sql("Cari.mdb", fmt::format("INSERT INTO CariKartlar(CariKod, Unvan, Gurup) VALUES('{}','{}','Müşteri')", code, name));
  if (!more.empty()) Sql("Cari.mdb", fmt::format("UPDATE CariKartlar SET {} WHERE CariKod='{}'", more, code));
}

void DeskFixture::AddStock(const std::string& code, const std::string& name, const std::string& more) {
  Sql("Stok.mdb", fmt::format("INSERT INTO StokKartlar(StokKod, StokAdi, Barkod, Birim, Fiyat, gFiyat, Gurup) "
                              "VALUES('{0}','{1}','869{0}','Adet',10,6,'Gıda')",
                              code, name));
  if (!more.empty()) Sql("Stok.mdb", fmt::format("UPDATE StokKartlar SET {} WHERE StokKod='{}'", more, code));
}

Element& DeskFixture::At(const std::string& name) {
  Element* const element = desk->screen.elements.Find(name);
  if (!element) throw std::invalid_argument(name);
  return *element;
}

void DeskFixture::Click(const std::string& name) {
  Element& element = At(name);
  ASSERT_TRUE(element.IsOpen()) << name << " is off";
  element.click();
}

void DeskFixture::Type(const std::string& name, const std::string& letters) {
  Element& field = At(name);
  field.SetFocus();
  for (std::size_t i = 0; i < LetterCount(letters); ++i) {
    const std::string letter = MidLetters(letters, i, 1);
    KeyEvent event{KeyOf(letter)};
    field.keyDown(event);
    if (event.dropped) continue;
    char32_t code = static_cast<unsigned char>(letter[0]);
    if (code >= 0xC0) code = ((code & 0x1FU) << 6U) | (static_cast<unsigned char>(letter[1]) & 0x3FU);
    CharacterEvent character{code};
    field.character(character);
    if (character.character != 0) {
      const auto start = static_cast<std::size_t>(field.SelectionStart());
      const auto end = start + static_cast<std::size_t>(field.SelectionLength());
      const std::string text = LeftLetters(field.Text(), start) + LetterToUtf8(character.character);
      const int caret = static_cast<int>(LetterCount(text));
      field.SetText(text + MidLetters(field.Text(), end));
      if (field.SelectionStart() == 0) field.Select(caret, 0);
    }
    field.keyUp(event);
  }
}

void DeskFixture::Set(const std::string& name, const std::string& text) {
  At(name).SetFocus();
  At(name).SelectAll();
  Type(name, text);
}

void DeskFixture::Key(const std::string& name, int code) {
  At(name).SetFocus();
  keyboard.Send(code);
}

void DeskFixture::Erase(const std::string& name) {
  Element& field = At(name);
  field.SetFocus();
  KeyEvent event{key::kBackspace};
  field.keyDown(event);
  CharacterEvent character{key::kBackspace};
  field.character(character);
  if (!event.dropped && character.character != 0) {
    auto start = static_cast<std::size_t>(field.SelectionStart());
    const auto end = start + static_cast<std::size_t>(field.SelectionLength());
    if (start == end && start > 0) --start;
    const std::string before = LeftLetters(field.Text(), start);
    field.SetText(before + MidLetters(field.Text(), end));
    if (field.SelectionStart() == 0) field.Select(static_cast<int>(LetterCount(before)), 0);
  }
  field.keyUp(event);
}

void DeskFixture::Tap(const std::string& name) {
  At(name).SetFocus();
  Click(name);
}

void DeskFixture::EnterSale(const std::string& customer) {
  Set("Text1(0)", customer);
  DoubleTap("Label1(0)");
  ASSERT_FALSE(desk->screen.CariGrid.Visible()) << "no sale for " << customer;
}

void DeskFixture::PickItem(const std::string& code) {
  Cursor& cards = desk->cursors.StokData;
  ASSERT_TRUE(cards.FindFirst("StokKod='" + code + "'").Ok());
  ASSERT_FALSE(cards.NoMatch()) << code;
  desk->screen.StokGrid.TapCell(1);
}

void DeskFixture::Post(const std::string& quantity) {
  Set("Text2(1)", quantity);
  Click("Command2");
}

void DeskFixture::Sell(const std::string& customer, const std::string& item, const std::string& quantity) {
  EnterSale(customer);
  PickItem(item);
  Post(quantity);
}

}  // namespace karvel
