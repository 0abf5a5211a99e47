// A desk on real SQLite stores in a fresh folder, without a window: taps and keys are given to the elements, and the stores are read back
// by a plain SQLite connection, as any other program would.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "accounts/accounts.h"
#include "desk/desk.h"
#include "documents/documents.h"
#include "exchange/exchange.h"
#include "exchange/zip/zip_archives.h"
#include "store/stores.h"
#include "tests/support/folder_files.h"
#include "tests/support/memory_settings.h"
#include "tests/support/quiet_world.h"
#include "tests/support/recording_printer.h"
#include "tests/support/share_engine.h"
#include "tests/support/shop_rows.h"
#include "tests/support/temp_folder.h"
#include "tests/support/watched_engine.h"

namespace karvel {

class DeskFixture : public ::testing::Test, protected ShopRows {
 protected:
  DeskFixture();
  ~DeskFixture() override;

  // Starts a desk, ending one that runs. False when it ends at once.
  bool Start(const std::string& title = "Velmora Karvel1");
  void Stop();

  // The clerk.
  Element& At(const std::string& name);
  void DoubleTap(const std::string& name) { At(name).dblClick(); }
  void Click(const std::string& name);
  void Type(const std::string& name, const std::string& letters);  // behind what is there
  void Set(const std::string& name, const std::string& text);      // over what is there
  void Key(const std::string& name, int code);
  void Erase(const std::string& name);  // Backspace: the selection, or the letter before the caret
  void Tap(const std::string& name);    // on a field: the focus goes there, then the click
  void EnterSale(const std::string& customer);
  void PickItem(const std::string& code);  // a tap on its row in StokGrid
  void Post(const std::string& quantity);  // the quantity and Tamam
  void Sell(const std::string& customer, const std::string& item, const std::string& quantity);

  [[nodiscard]] std::string DataFolder() const override { return folder.Path() + "/C/KarvelData"; }

  std::string vfs;  // SQLite's file layer by name, for the next Start; empty for the usual one
  TempFolder folder;
  FolderFiles files{folder.Path()};
  MemorySettings settings;
  FixedClock clock;
  InstantLoop loop;
  ScriptedMessages messages;
  QuietShell shell;
  ElementKeyboard keyboard;
  QuietWindow window;
  TestScanner scanner;
  TestConnection connection;
  TestFtp ftp;
  RecordingPrinter printer;
  PlainBarcodes barcodes;
  ZipArchives archives;
  testing::EngineWatch engine;  // counts what the stores do, and lets them fail
  testing::ServerWatch server;  // of network work
  std::unique_ptr<Stores> stores;
  std::unique_ptr<Desk> desk;
  std::unique_ptr<Accounts> accounts;
  std::unique_ptr<Exchange> exchange;
  std::unique_ptr<Documents> documents;
  Connections connections;  // what a test hears
};

}  // namespace karvel
