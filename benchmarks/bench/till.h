// A desk without a window at work in a shop: sells lines as a clerk does, by the elements of the screen.
#pragma once

#include <memory>
#include <string>

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

namespace karvel::bench {

class Till {
 public:
  // Starts the desk in a home folder, on its files where no engine is given. Throws std::runtime_error where it doesn't start.
  explicit Till(const std::string& home, std::unique_ptr<Engine> engine = nullptr);
  ~Till();

  [[nodiscard]] Cursors& TheCursors() { return desk_->cursors; }
  [[nodiscard]] Screen& TheScreen() { return desk_->screen; }
  // What was printed.
  [[nodiscard]] const std::vector<RecordingPrinter::Job>& Jobs() const { return printer_.jobs; }
  // The customers' list stands on the one of this code.
  void StandOn(const std::string& customerCode);
  // Enters the sale of the customer of this code.
  void EnterSale(const std::string& customerCode);
  // Puts an item of this code and a quantity on the screen; posts nothing yet.
  void PickItem(const std::string& stockCode, int quantity);
  // The clerk's tap on "Tamam". Throws when the line was not posted.
  void Post();
  [[nodiscard]] const std::string& LastLineId() const { return desk_->form.CurrentLineId; }

 private:
  FolderFiles files_;
  MemorySettings settings_;
  FixedClock clock_;
  InstantLoop loop_;
  ScriptedMessages messages_;
  QuietShell shell_;
  ElementKeyboard keyboard_;
  QuietWindow window_;
  TestScanner scanner_;
  TestConnection connection_;
  TestFtp ftp_;
  RecordingPrinter printer_;
  PlainBarcodes barcodes_;
  ZipArchives archives_;
  std::unique_ptr<Stores> stores_;
  std::unique_ptr<Desk> desk_;
  std::unique_ptr<Accounts> accounts_;
  std::unique_ptr<Exchange> exchange_;
  std::unique_ptr<Documents> documents_;
};

}  // namespace karvel::bench
