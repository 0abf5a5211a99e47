#include "exchange/day_file.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <limits>
#include <optional>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "books/steps.h"
#include "platform/log.h"
#include "store/cursor.h"
#include "store/table_rows.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

const Steps step("DayFile");

constexpr const char* kRoot = "C:\\";
constexpr const char* kDayBook = "Karvel.Mdb";
constexpr std::string_view kSent = "x";
constexpr std::string_view kWaiting = ".bekliyor";
constexpr std::string_view kEnding = ".csv";

// By position, for the file is read by position.
constexpr int kItemCode = 1, kPrice = 4, kQuantity = 5, kAmount = 6;

std::string ItemText(const Value& value) {
  return std::visit(
      [](const auto& item) -> std::string {
        using Item = std::decay_t<decltype(item)>;
        if constexpr (std::is_same_v<Item, std::string>) {
          return '"' + ReplaceAll(item, "\"", "\"\"") + '"';
        } else if constexpr (std::is_same_v<Item, DateTime>) {
          return item.IsEmpty() ? "#NULL#" : '#' + item.ToIso() + '#';
        } else if constexpr (std::is_same_v<Item, double>) {
          return CriteriaNumber(item);
        } else if constexpr (std::is_same_v<Item, bool>) {
          return item ? "#TRUE#" : "#FALSE#";
        } else {
          return "#NULL#";
        }
      },
      value);
}

std::string LineRecord(const Row& line) {
  return DelimitedRecord(std::vector<Value>{line[kItemCode], AsText(line[kQuantity]), AsText(line[kPrice]), AsText(line[kAmount])});
}

// A file beside its place, "01000123.csv.45.bekliyor": it is due when the line of the day book with this key is marked.
struct WaitingFile {
  std::string name;
  RowKey line = 0;
};

std::string WaitingName(const WaitingFile& file) {
  return fmt::format("{}.{}{}", file.name, file.line, kWaiting);
}

std::optional<WaitingFile> ReadWaitingName(std::string_view text) {
  if (!text.ends_with(kWaiting)) return std::nullopt;
  text.remove_suffix(kWaiting.size());
  const std::size_t dot = text.rfind('.');
  if (dot == std::string_view::npos || dot == 0) return std::nullopt;
  WaitingFile file{std::string(text.substr(0, dot))};
  const std::string_view key = text.substr(dot + 1);
  const auto [end, error] = std::from_chars(key.data(), key.data() + key.size(), file.line);
  if (error != std::errc() || end != key.data() + key.size()) return std::nullopt;
  return file;
}

// The customer, with which the first record begins, and the records of the lines.
std::pair<std::string_view, std::string_view> CustomerAndLines(std::string_view text) {
  const std::size_t end = std::min(text.find("\r\n"), text.size());
  const std::string_view head = text.substr(0, end);
  return {head.substr(0, std::min(head.rfind(",#"), head.size())), text.substr(end)};
}

std::string_view StemOf(std::string_view name) {
  if (name.ends_with(kEnding)) name.remove_suffix(kEnding.size());
  return name;
}

// Whether the name tells one document: the digits of its number stand at the end.
bool TellsDocument(std::string_view name) {
  constexpr std::size_t kDigits = 6;
  const std::string_view stem = StemOf(name);
  return stem.size() > kDigits &&
         std::ranges::all_of(stem.substr(stem.size() - kDigits), [](char sign) { return sign >= '0' && sign <= '9'; });
}

// What lies under the name has not been sent. It goes on beside, unless the new file is the same document or holds all of its lines.
Status KeepUnsent(Files& files, const WaitingFile& file) {
  std::string old, made;
  for (const auto& [name, bytes] : {std::pair(file.name, &old), std::pair(WaitingName(file), &made)}) {
    const Status read = files.Read(kRoot + name, *bytes);
    if (!read.Ok()) return read.Kind() == ErrorKind::Missing ? Status() : read;
  }
  const auto [customer, lines] = CustomerAndLines(old);
  const auto [newCustomer, newLines] = CustomerAndLines(made);
  if (customer == newCustomer && (TellsDocument(file.name) || newLines.starts_with(lines))) return {};
  for (int number = 2;; ++number) {
    const std::string aside = fmt::format("{}-{}{}", StemOf(file.name), number, kEnding);
    std::string kept;
    const Status there = files.Read(kRoot + aside, kept);
    if (there.Ok() && kept == old) return {};  // a desk was killed behind this
    if (there.Ok()) continue;
    if (there.Kind() != ErrorKind::Missing) return there;
    Log("day file: an older " + file.name + " was not sent, and stays as " + aside);
    return files.CopyNew(kRoot + file.name, kRoot + aside);
  }
}

Status Place(Files& files, const WaitingFile& file) {
  const std::string target = kRoot + file.name;
  if (Status kept = KeepUnsent(files, file); !kept.Ok()) return kept;
  Status moved = files.Move(kRoot + WaitingName(file), target);
  // Another terminal may have found it waiting, and finished it.
  if (moved.Kind() == ErrorKind::Missing && files.Exists(target)) return {};
  return moved;
}

// Swept where its line is not marked, else placed.
Status Settle(Stores& stores, Files& files, const WaitingFile& file, PlacedDayFiles& outcome) {
  Cursor lines(stores, "line of a day file");
  lines.SetDatabaseName(kDayBook);
  if (Status opened = lines.Open("Datam"); !opened.Ok()) return opened;
  const Status found = lines.MoveTo(file.line);
  if (!found.Ok() && found.Kind() != ErrorKind::NoRecord) return found;
  if (found.Ok() && lines.Text("Sube").empty()) {
    Log("day file: " + file.name + ": its lines were not marked, swept");
    return files.Delete(kRoot + WaitingName(file));
  }
  // A line that is gone since tells nothing; a file too many is seen, one too few is not.
  Status placed = Place(files, file);
  if (!placed.Ok()) return placed;
  Log("day file: " + file.name + ": finished");
  outcome.placed.push_back(file.name);
  return {};
}

std::vector<WaitingFile> WaitingFiles(const Files& files) {
  std::vector<WaitingFile> waiting;
  for (const std::string& name : files.List(kRoot))
    if (auto file = ReadWaitingName(name)) waiting.push_back(std::move(*file));
  return waiting;
}

// Within the turn of the shop: nobody is in the middle of a day file.
PlacedDayFiles SettleWaiting(Stores& stores, Files& files) {
  PlacedDayFiles outcome;
  for (const WaitingFile& file : WaitingFiles(files)) {
    const Status settled = Settle(stores, files, file, outcome);
    step(file.name, settled);
    if (settled.Ok() || !outcome.status.Ok()) continue;
    outcome.waiting = file.name;
    outcome.status = settled;
  }
  return outcome;
}

// What was left is settled before any of its lines can be marked for another file: the older of two that wait for one name could take the
// place of the newer. A file that waits for another name hinders nobody.
Status SettleBefore(const Shop& shop, Files& files, const std::string& name) {
  const PlacedDayFiles left = SettleWaiting(shop.stores, files);
  const auto waits = [&](const WaitingFile& file) { return EqualText(file.name, name); };
  return std::ranges::any_of(WaitingFiles(files), waits) ? left.status : Status();
}

// The text of the lines, all of which are marked.
struct MarkedLines {
  std::string text;
  RowKey last = 0;  // 0 without lines
  bool lastWasSent = false;
};

// The lines are read once, before any of them is marked: a day may have thousands of them, and each mark would have the rest read again.
// In the turn of the shop no terminal changes them meanwhile.
std::expected<MarkedLines, Status> MarkLines(Stores& stores, const std::string& source) {
  Cursor lines(stores, "day file");
  lines.SetDatabaseName(kDayBook);
  if (Status opened = lines.Open(source); !opened.Ok()) return std::unexpected(opened);
  std::vector<GridRow> rows;
  if (Status read = lines.RowsFromStart(std::numeric_limits<int>::max(), rows); !read.Ok()) return std::unexpected(read);
  TableRows day(stores, kDayBook, "Datam");
  const int mark = day.Columns().Position("Sube");
  const std::vector<FieldValue> marking{{mark, std::string(kSent)}};
  MarkedLines marked;
  for (const GridRow& line : rows) {
    marked.text += LineRecord(line.values);
    marked.last = line.key;
    marked.lastWasSent = !AsText(line.values[static_cast<std::size_t>(mark)]).empty();
    if (Status written = day.Change(line.key, marking); !written.Ok()) return std::unexpected(written);
  }
  return marked;
}

}  // namespace

std::string DayFileName(std::string_view title, std::string_view slipNo) {
  const std::string rest = TurkishLower(ReplaceAll(title, "Velmora Karvel", ""));
  return (rest.empty() ? "00" : Format(std::string_view(rest), "00")) + std::string(slipNo) + std::string(kEnding);
}

std::string DelimitedRecord(std::span<const Value> items) {
  std::string record;
  for (const Value& item : items) {
    if (!record.empty()) record += ',';
    record += ItemText(item);
  }
  return record + "\r\n";
}

Outcome<std::string> LayDayFile(const Shop& shop, Files& files, const DayToSend& day) {
  const auto refuse = [](Status why) { return std::unexpected(Failure<std::string>(std::move(why))); };
  if (!IsPlainName(day.name)) return refuse({ErrorKind::BadText, "no name for a file: " + day.name});
  if (files.IsFolder(kRoot + day.name)) return refuse({ErrorKind::Other, day.name + ": a folder has the name"});
  Action action(shop.stores, "day file");
  if (!action.Begun().Ok()) return refuse(action.Begun());
  if (Status settled = SettleBefore(shop, files, day.name); !settled.Ok()) return refuse(settled);
  const auto lines = MarkLines(shop.stores, day.source);
  if (!lines) return refuse(lines.error());
  const Status nothing(ErrorKind::NoRecord, "nothing to send: " + day.name);
  if (lines->lastWasSent) return refuse(nothing);
  if (lines->last == 0) {
    // Lines that could not be read look like none, but fail the action.
    const Status read = action.Finish();
    return refuse(read.Ok() ? nothing : read);
  }
  const WaitingFile file{day.name, lines->last};
  const std::string head = DelimitedRecord(std::vector<Value>{day.customerCode, shop.clock.Now()});
  if (Status written = files.Write(kRoot + WaitingName(file), ToCp1254(head + lines->text)); !written.Ok()) return refuse(written);
  auto outcome = Answer(action, day.name);
  if (outcome) {
    if (Status placed = Place(files, file); !placed.Ok()) return refuse(placed);
  } else if (outcome.error().Kind() != ErrorKind::Unknown) {
    step("sweep", files.Delete(kRoot + WaitingName(file)));
  }
  return outcome;
}

PlacedDayFiles PlaceDayFiles(const Shop& shop, Files& files) {
  if (WaitingFiles(files).empty()) return {};
  Action action(shop.stores, "left day files");
  if (!action.Begun().Ok()) return {.placed = {}, .waiting = {}, .status = action.Begun()};
  PlacedDayFiles outcome = SettleWaiting(shop.stores, files);
  const Status ended = action.Finish();
  if (outcome.status.Ok()) outcome.status = ended;
  return outcome;
}

}  // namespace karvel
