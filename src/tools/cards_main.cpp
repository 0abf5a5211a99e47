// karvel-cards: a shop's cards from a spreadsheet, and into one.
#include <fmt/format.h>

#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/card_export.h"
#include "exchange/csv_sheet.h"
#include "exchange/import_report.h"
#include "exchange/spreadsheet/sheet_file.h"
#include "exchange/spreadsheet/xlsx_sheet.h"
#include "platform/clerk_message.h"
#include "tools/shop_folder.h"

namespace karvel {
namespace {

constexpr std::string_view kUsage =
    "Kullanım:\n"
    "  karvel-cards import DOSYA [--write] [--folder KLASÖR]   kartları .csv veya .xlsx dosyasından alır; --write olmadan yalnız dener\n"
    "  karvel-cards export stok|cari DOSYA [--folder KLASÖR]   kartları yeni bir .csv veya .xlsx dosyasına yazar\n"
    "KLASÖR söylenmezse programın kendi veri klasörü kullanılır.\n";
enum Answer { kWell = 0, kFailed = 1, kMisused = 2 };

struct Words {
  std::vector<std::string> plain;
  std::string folder;
  bool write = false;
};

std::optional<Words> ReadWords(int count, char** given) {
  Words words;
  for (int i = 1; i < count; ++i) {
    const std::string word = given[i];
    if (word == "--write") {
      words.write = true;
    } else if (word == "--folder" && i + 1 < count) {
      words.folder = given[++i];
    } else if (word.starts_with("--")) {
      return {};
    } else {
      words.plain.push_back(word);
    }
  }
  return words;
}

Answer Fail(const std::string& what, const Status& status) {
  fmt::print(stderr, "{}\n", WithPlace(what + OpeningMessage(status), status));
  return kFailed;
}

std::string AbsolutePath(const std::string& path) {
  std::error_code failed;
  return std::filesystem::absolute(path, failed).string();
}

Answer Import(ShopFolder& shop, const Words& words) {
  std::string bytes;
  if (const Status read = shop.Disk().Read(AbsolutePath(words.plain[1]), bytes); !read.Ok()) return Fail("Dosya okunamadı. ", read);
  const SheetOutcome sheet = ReadSheetFile(words.plain[1], bytes);
  if (!sheet) {
    fmt::print(stderr, "{}\n", FaultLine(sheet.error(), {}));
    return kFailed;
  }
  if (const Status opened = shop.Open(words.folder); !opened.Ok()) return Fail("Veri klasörü açılamadı. ", opened);
  fmt::print("{}", shop.TurnedFiles().Report());
  const CardSheet cards = ReadCardSheet(*sheet);
  const ImportMode mode = words.write ? ImportMode::Write : ImportMode::Try;
  CardImport import;
  const Status done = ImportCards(shop.TheStores(), cards, mode, import);
  if (!done.Ok()) {
    fmt::print(stderr, "{}\n", WithPlace(ClerkMessage(done), done));
    return kFailed;
  }
  fmt::print(import.faults.empty() ? stdout : stderr, "{}", ImportReport(import, cards, mode));
  return import.faults.empty() ? kWell : kFailed;
}

Status WriteSheet(ShopFolder& shop, const CardKind& kind, const Sheet& sheet, const std::string& path) {
  if (!path.ends_with(".xlsx")) return shop.Disk().Write(path, WriteCsv(sheet));
  // Whole or not at all.
  const std::string unfinished = path + ".yeni";
  const Status written = WriteXlsx(sheet, NumberColumns(kind), unfinished);
  if (written.Ok()) return shop.Disk().Move(unfinished, path);
  shop.Disk().Delete(unfinished).Ignore();
  return written;
}

Answer Export(ShopFolder& shop, const Words& words) {
  const CardKind& kind = words.plain[1] == "stok" ? StockCardKind() : CustomerCardKind();
  const std::string path = AbsolutePath(words.plain[2]);
  if (shop.Disk().Exists(path)) {
    fmt::print(stderr, "{} zaten var; üzerine yazılmadı.\n", path);
    return kFailed;
  }
  if (const Status opened = shop.Open(words.folder); !opened.Ok()) return Fail("Veri klasörü açılamadı. ", opened);
  Sheet sheet;
  if (const Status read = ExportCards(shop.TheStores(), kind, sheet); !read.Ok()) return Fail("Kartlar okunamadı. ", read);
  if (const Status written = WriteSheet(shop, kind, sheet, path); !written.Ok()) return Fail("Dosya yazılamadı. ", written);
  fmt::print("{} kart yazıldı: {}\n", sheet.rows.size() - 1, path);
  return kWell;
}

Answer Run(int count, char** given) {
  const std::optional<Words> words = ReadWords(count, given);
  const std::vector<std::string> plain = words ? words->plain : std::vector<std::string>();
  const bool import = plain.size() == 2 && plain[0] == "import";
  const bool exported = plain.size() == 3 && plain[0] == "export" && (plain[1] == "stok" || plain[1] == "cari") && !words->write;
  if (!import && !exported) {
    fmt::print(stderr, "{}", kUsage);
    return kMisused;
  }
  ShopFolder shop(given[0], "karvel-cards");
  return import ? Import(shop, *words) : Export(shop, *words);
}

}  // namespace
}  // namespace karvel

int main(int count, char** given) {
  return karvel::Run(count, given);
}
