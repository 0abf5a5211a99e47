// karvel-move: a shop from the files of a folder onto a main machine's server, and back.
#include <fmt/format.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "exchange/other_files.h"
#include "exchange/store_move.h"
#include "platform/clerk_message.h"
#include "platform/log.h"
#include "store/postgres/postgres_engine.h"
#include "store/postgres/refusal.h"
#include "store/sqlite/new_store_file.h"
#include "store/sqlite/unknown_fields.h"
#include "text/format.h"
#include "tools/move_place.h"
#include "tools/shop_folder.h"
#include "tools/value_limits.h"

namespace karvel {
namespace {

using namespace std::chrono_literals;

constexpr std::string_view kUsage =
    "Kullanım: karvel-move --to postgres://ANAMAKİNE[:PORT][,YEDEK[:PORT]][/FİRMA] [--from KLASÖR]\n"
    "          karvel-move --to KLASÖR --from postgres://ANAMAKİNE[:PORT][,YEDEK[:PORT]][/FİRMA]\n"
    "Dükkânın bütün kayıtlarını ana makinedeki PostgreSQL sunucusuna (veritabanı MuhasebeData) taşır ya da oradan klasöre geri alır.\n"
    "Kaynak olduğu gibi kalır, hedefte hiç kayıt bulunmamalıdır. FİRMA söylenmezse 01, --from söylenmezse programın kendi veri klasörü.\n"
    "Kullanıcı ve şifre ~/.pgpass dosyasından ve PGUSER'dan okunur.\n";
constexpr std::string_view kNothingMoved = "Hiçbir kayıt taşınmadı; kaynak olduğu gibi duruyor.\n";
enum Answer { kWell = 0, kFailed = 1, kMisused = 2 };

// The server may take long over the indexes of a great table; a line that is dead is found out all the same.
constexpr int kAnswerMs = 3'600'000;

constexpr int kTries = 5;

volatile std::sig_atomic_t stopped = 0;

// The first time it ends in good order, the second time at once.
void StopWhenAsked() {
  struct sigaction action{};
  action.sa_handler = [](int) { stopped = 1; };
  action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
  sigaction(SIGINT, &action, nullptr);
  sigaction(SIGTERM, &action, nullptr);
}

struct Words {
  MovePlace from, to;
};

std::optional<Words> ReadWords(int count, char** given) {
  std::optional<MovePlace> from = ReadMovePlace(""), to;
  for (int i = 1; i < count; i += 2) {
    const std::string_view word = given[i];
    if (i + 1 == count || (word != "--to" && word != "--from") || *given[i + 1] == '\0') return {};
    (word == "--to" ? to : from) = ReadMovePlace(given[i + 1]);
    if (!from) return {};
  }
  if (!to || (!to->isServer && !from->isServer)) return {};
  return Words{*from, *to};
}

std::string Count(std::int64_t rows) {
  return Format(static_cast<double>(rows), "#,##0");
}

// One side of the move, open.
class Side {
 public:
  Side(MovePlace place, ShopFolder& shop, bool isSource) : place_(std::move(place)), shop_(shop) {
    if (place_.isServer) {
      PostgresOptions options;
      options.makesFirms = !isSource;
      options.makeFile = MakeSqliteStoreFile;
      options.answerMs = kAnswerMs;
      server_ = std::make_unique<Stores>(MakePostgresEngine(options));
    }
  }

  [[nodiscard]] bool IsServer() const { return place_.isServer; }
  [[nodiscard]] Stores& TheStores() { return server_ ? *server_ : shop_.TheStores(); }
  // The folder of the files that are no stores, as the desk knows it.
  [[nodiscard]] std::string Folder() const { return IsServer() ? place_.folder : shop_.PathOf(place_.folder); }
  [[nodiscard]] std::string Told() const { return IsServer() ? place_.told : shop_.Disk().RealPath(Folder()); }

  // A shop as it stands: nothing is laid beside its files.
  Status OpenSource() {
    if (IsServer()) return OpenServer();
    if (!shop_.Disk().IsFolder(Folder())) return Status(ErrorKind::Missing, Told() + ": no such folder").At(Told());
    return TheStores().Open(Told());
  }
  Status OpenTarget() { return IsServer() ? OpenServer() : shop_.Open(place_.folder); }
  // Whether it is a folder for something else: files, and none of the stores.
  [[nodiscard]] bool IsForeign() const {
    const std::vector<std::string> names = IsServer() ? std::vector<std::string>() : shop_.Disk().List(Folder());
    if (names.empty()) return false;
    for (const std::string& name : names)
      if (Catalogue::File(name) != nullptr) return false;
    return true;
  }

 private:
  // A server that is busy may answer too late for a desk, and lets in all the same.
  Status OpenServer() {
    Status opened = server_->Open(place_.folder);
    for (int turn = 1; turn < kTries && opened.Kind() == ErrorKind::Unreachable; ++turn) {
      if (postgres::AskWhyRefused(place_.folder).refusal != postgres::Refusal::None) break;
      opened = server_->Open(place_.folder);
    }
    return opened;
  }

  MovePlace place_;
  ShopFolder& shop_;
  std::unique_ptr<Stores> server_;
};

std::string WhyNotReached(const std::string& folder) {
  const postgres::RefusalReason reason = postgres::AskWhyRefused(folder);
  const auto told = [&](const std::string& text) { return text + (reason.words.empty() ? "" : "\n(" + reason.words + ")"); };
  switch (reason.refusal) {
    case postgres::Refusal::NotLetIn:
      return told(
          "Ana makine bu kullanıcıyı almadı. ~/.pgpass dosyasındaki kullanıcı ve şifreyi, sunucunun pg_hba.conf dosyasını denetleyin.");
    case postgres::Refusal::NoSuchDatabase:
      return told("Ana makinede MuhasebeData veritabanı yok. Orada bir kez açılmalıdır.");
    case postgres::Refusal::Standby:
      return told("Ana makine yedek olarak çalışıyor, kayıt almıyor. Asıl makinenin adını yazın.");
    default:
      return told("Ana makineye ulaşılamıyor. Açık ve ağa bağlı olduğunu, adresi ve portu denetleyin.");
  }
}

std::string WhyFailed(const Side& side, const Status& status) {
  // Where it doesn't even let in, the server itself is asked why.
  const bool refused = status.Kind() == ErrorKind::Missing || status.Kind() == ErrorKind::NoRights;
  if (side.IsServer() && refused && postgres::AskWhyRefused(side.Folder()).refusal != postgres::Refusal::None)
    return WhyNotReached(side.Folder());
  const auto told = [&](const std::string& text) { return text + "\n(" + status.Message() + ")"; };
  switch (status.Kind()) {
    case ErrorKind::Unreachable:
      return WhyNotReached(side.Folder());
    case ErrorKind::Busy:
      return told("Bir kasa kayıt yapıyor ya da başka bir program kullanıyor. Kasaları kapatıp yeniden deneyin.");
    case ErrorKind::DiskFull:
      return told("Diskte yer yok. Yer açıp yeniden deneyin.");
    case ErrorKind::NoRights:
      return told(side.IsServer() ? "Sunucudaki kullanıcının yetkisi yok. Veritabanının sahibi olan kullanıcıyla deneyin."
                                  : "Bu klasöre erişim izni yok.");
    case ErrorKind::Damaged:
      return told(side.IsServer() ? "Sunucuda bu firmanın tabloları eksik." : "Dosya bozuk. Yedekten geri yükleyip yeniden deneyin.");
    case ErrorKind::DiskFailed:
      return told("Disk okunamadı veya yazılamadı.");
    case ErrorKind::Missing:
      return told(side.IsServer() ? "Ana makinede bu firma yok. Firma numarasını denetleyin."
                                  : "Klasör ya da içindeki bir veri dosyası yok.");
    default:
      return told("Beklenmeyen bir hata oldu; yinelenirse destek isteyin.");
  }
}

Answer Fail(const std::string& what) {
  fmt::print(stderr, "{}\n{}", what, kNothingMoved);
  return kFailed;
}

// A line a table: on a terminal it counts.
class Progress {
 public:
  void Tell(const MoveProgress& progress) {
    const auto now = std::chrono::steady_clock::now();
    if (progress.stage != stage_ || &progress.table != table_) {
      if (progress.stage != MoveStage::Compare) began_ = now;
      stage_ = progress.stage;
      table_ = &progress.table;
    }
    const std::string seconds = Format(std::chrono::duration<double>(now - began_).count(), "0.0");
    const std::string name = fmt::format("{}/{}", progress.file.name, progress.table.name);
    if (progress.done && progress.stage == MoveStage::Compare && progress.rows > 0) {
      Clear();
      fmt::print("{}: {} kayıt, {} sn\n", name, Count(progress.rows), seconds);
    } else if (terminal_ && !progress.done) {
      fmt::print("\r\033[K{}: {} kayıt {}, {} sn", name, Count(progress.rows), kStages[static_cast<int>(progress.stage)], seconds);
    } else {
      return;
    }
    std::fflush(stdout);
  }
  void Clear() const {
    if (terminal_) fmt::print("\r\033[K");
    std::fflush(stdout);
  }

 private:
  static constexpr const char* kStages[] = {"denetlendi", "yazıldı", "karşılaştırıldı"};

  const bool terminal_ = isatty(STDOUT_FILENO) != 0;
  MoveStage stage_ = MoveStage::Check;
  const Table* table_ = nullptr;
  std::chrono::steady_clock::time_point began_;
};

Answer TellMisfits(const StoreMove& move) {
  fmt::print(stderr, "Hedefin olduğu gibi tutamayacağı {} alan var:\n", Count(move.misfits));
  for (const std::string& misfit : move.firstMisfits) fmt::print(stderr, "{}\n", misfit);
  const auto named = static_cast<std::int64_t>(move.firstMisfits.size());
  if (move.misfits > named) fmt::print(stderr, "ve {} tane daha.\n", Count(move.misfits - named));
  return Fail("Bunları düzeltip yeniden deneyin.");
}

Answer TellEnd(const StoreMove& move, const Side& from, const Side& to) {
  switch (move.end) {
    case MoveEnd::SourceFailed:
      return Fail("Kaynak: " + WhyFailed(from, move.status));
    case MoveEnd::TargetFailed:
      return Fail("Hedef: " + WhyFailed(to, move.status));
    case MoveEnd::TargetHoldsRows:
      return Fail(fmt::format("Hedef boş değil: {} tablosunda kayıt var, üzerine yazılmadı.", move.where));
    case MoveEnd::Misfits:
      return TellMisfits(move);
    case MoveEnd::NotAlike:
      return Fail("Yazılanlar geri okununca farklı çıktı: " + move.where + ". Yeniden deneyin; yinelenirse destek isteyin.");
    case MoveEnd::Stopped:
      return Fail("Durduruldu.");
    case MoveEnd::OutcomeUnknown:
      fmt::print(stderr,
                 "Kayıtların hedefe geçip geçmediği bilinmiyor: son yanıt gelmedi. Bağlantı gelince aynı komutu yeniden verin;\n"
                 "\"Hedef boş değil\" derse hepsi geçmiştir. ({})\n",
                 move.status.Message());
      return kFailed;
    case MoveEnd::Moved:
      break;
  }
  return kWell;
}

void TellUnknownFields(const std::string& folder) {
  std::vector<std::string> names;
  if (const Status found = FindUnknownFields(folder, names); !found.Ok()) Log(found.Message());
  if (names.empty()) return;
  fmt::print("Başka programların eklediği şu tablo ve alanlar taşınmadı, eski dosyalarda duruyor:\n");
  for (const std::string& name : names) fmt::print("{}\n", name);
}

void MoveOtherFiles(ShopFolder& shop, const Side& from, const Side& to) {
  const OtherFiles others = CopyOtherFiles(shop.Disk(), from.Folder(), to.Folder());
  const std::string folder = shop.Disk().RealPath(to.Folder());
  for (const std::string& name : others.copied) fmt::print("{} kopyalandı: {}\n", name, folder);
  for (const std::string& name : others.kept) fmt::print("{} orada zaten var, olduğu gibi bırakıldı.\n", name);
  if (!others.status.Ok()) fmt::print(stderr, "Kayıtlar taşındı, ama bir dosya kopyalanamadı. ({})\n", others.status.Message());
}

StoreMove Carry(Side& from, Side& to) {
  Progress progress;
  bool told = false;
  MoveOrder order{from.TheStores(),
                  to.TheStores(),
                  to.IsServer() ? WhatServerCantHold : WhatFilesCantHold,
                  [&](const MoveProgress& now) { progress.Tell(now); },
                  [] { return stopped != 0; },
                  [&] {
                    if (!told) fmt::print(stderr, "Son yanıt gelmedi; kayıtların geçip geçmediğine bakılıyor. Vazgeçmek için Ctrl+C.\n");
                    told = true;
                    std::this_thread::sleep_for(1s);
                    return stopped == 0;
                  }};
  StoreMove move = MoveStores(order);
  progress.Clear();
  return move;
}

Answer Run(int count, char** given) {
  const std::optional<Words> words = ReadWords(count, given);
  if (!words) {
    fmt::print(stderr, "{}", kUsage);
    return kMisused;
  }
  StopWhenAsked();
  ShopFolder shop(given[0], "karvel-move");
  Side from(words->from, shop, true), to(words->to, shop, false);
  if (from.IsServer() && to.IsServer() && from.Folder() == to.Folder()) return Fail("Kaynak ile hedef aynı.");
  if (const Status opened = from.OpenSource(); !opened.Ok()) return Fail("Kaynak açılamadı. " + WhyFailed(from, opened));
  if (!from.IsServer()) fmt::print("{}", shop.TurnedFiles().Report());
  if (to.IsForeign()) return Fail(to.Told() + " boş değil ve veri klasörü değil. Boş ya da olmayan bir klasör söyleyin.");
  if (const Status opened = to.OpenTarget(); !opened.Ok()) return Fail("Hedef açılamadı. " + WhyFailed(to, opened));
  const StoreMove move = Carry(from, to);
  if (const Answer answer = TellEnd(move, from, to); answer != kWell) return answer;
  MoveOtherFiles(shop, from, to);
  if (!from.IsServer()) TellUnknownFields(from.Told());
  fmt::print("{} kayıt taşındı ve tek tek karşılaştırıldı: {}\n", Count(move.rows), to.Told());
  return kWell;
}

}  // namespace
}  // namespace karvel

int main(int count, char** given) {
  return karvel::Run(count, given);
}
