#include "tests/support/desk_fixture.h"

#include <cctype>

#include "books/sources.h"
#include "store/engine_of_place.h"
#include "store/sqlite/sqlite_engine.h"

namespace karvel {
namespace {

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
  const SqliteOptions options{.programFolder = files.ProgramFolder(), .vfs = vfs};
  SqliteOptions scratch = options;
  scratch.scratchAlone = true;
  auto onServer = std::make_unique<testing::ShareEngine>(MakeSqliteEngine(options), server, folder.Path() + "/net", files.ProgramFolder());
  stores = std::make_unique<Stores>(std::make_unique<testing::WatchedEngine>(
      MakeEngineOfPlace(MakeSqliteEngine(options), std::move(onServer), MakeSqliteEngine(scratch)), engine));
  desk = std::make_unique<Desk>(World{clock, loop, files, messages, settings, shell, keyboard, window, scanner, connection, ftp, printer,
                                      barcodes, archives, *stores},
                                title);
  accounts = std::make_unique<Accounts>(*desk);
  exchange = std::make_unique<Exchange>(*desk);
  documents = std::make_unique<Documents>(*desk, *exchange);
  keyboard.elements = &desk->screen.elements;
  if (!desk->Load()) return false;
  desk->Activate();
  return true;
}

void DeskFixture::Stop() {
  documents.reset();
  exchange.reset();
  accounts.reset();
  desk.reset();
  stores.reset();
  scanner.codeRead = {};  // its handlers were the desk's
  keyboard.elements = nullptr;
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
