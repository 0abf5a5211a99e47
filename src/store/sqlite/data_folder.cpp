#include "store/sqlite/data_folder.h"

#include <SQLiteCpp/Column.h>
#include <fcntl.h>
#include <fmt/format.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>
#include <vector>

#include "platform/log.h"
#include "platform/system_error.h"
#include "store/folder_preparation.h"
#include "store/sqlite/errors.h"
#include "store/table_sql.h"
#include "text/turkish.h"

namespace karvel::sqlite {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kMainFile = "Karvel.mdb";

Status WithName(const DatabaseFile& file, const std::string& path, const Status& status) {
  return Status(status.Kind(), fmt::format("{}: {}", file.name, status.Message())).At(status.Place()).At(path);
}

// A writer that died leaves its journal behind; the first read of the file rolls it back.
void Recover(Connection& connection, const std::string& schema) {
  connection.AskText("SELECT count(*) FROM " + schema + ".sqlite_schema");
}

// A write-ahead log commits each file by itself, and does not work on a share.
Status SetJournal(Connection& connection, const std::string& schema) {
  const std::string mode = connection.AskText("PRAGMA " + schema + ".journal_mode=DELETE");
  if (mode != "delete") return {ErrorKind::Busy, "can't leave journal mode " + mode + ": another program has it open"};
  connection.Execute("PRAGMA " + schema + ".synchronous=FULL");
  connection.Execute("PRAGMA " + schema + ".cache_size=-4000");
  return {};
}

Status CheckTables(Connection& connection, const DatabaseFile& file, const std::string& schema, const std::string& path) {
  for (const Table& table : file.tables) {
    std::vector<bool> present(table.columns.size(), false);
    SQLite::Statement columns(connection.Database(), fmt::format("PRAGMA {}.table_info({})", schema, QuotedName(table.name)));
    while (columns.executeStep()) {
      const int position = table.Position(columns.getColumn(1).getString());
      if (position >= 0) present[static_cast<std::size_t>(position)] = true;
    }
    for (std::size_t i = 0; i < present.size(); ++i) {
      if (present[i]) continue;
      const std::string lacks = fmt::format("no column {} in table {}", table.columns[i].name, table.name);
      return Status(ErrorKind::Damaged, lacks).At(fmt::format("{} ({})", path, table.name));
    }
  }
  return {};
}

// Recovers a file, sets it up, and checks that it is what its name says. A failure names the file.
Status PrepareFile(Connection& connection, const DatabaseFile& file, const std::string& schema, const std::string& path,
                   Patience& patience) {
  Status prepared = Patiently(patience, [&] {
    return Run(&connection.Database(), "open", [&]() -> Status {
      Recover(connection, schema);
      if (Status set = SetJournal(connection, schema); !set.Ok()) return set;
      return CheckTables(connection, file, schema, path);
    });
  });
  return prepared.Ok() ? prepared : WithName(file, path, prepared);
}

// Removes those super-journals that no journal of the folder names.
void RemoveUnnamed(const std::vector<fs::path>& supers, const std::string& folder) {
  std::error_code ignored;
  std::string journals;
  for (const auto& entry : fs::directory_iterator(folder, ignored)) {
    if (!entry.path().string().ends_with("-journal")) continue;
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string journal(std::istreambuf_iterator<char>(file), {});
    // A journal that begins with a zero was never synced: no file has been changed under it, and nobody will play it back.
    if (!journal.empty() && journal.front() != '\0') journals += journal;
  }
  for (const fs::path& super : supers) {
    if (journals.find(super.filename().string()) == std::string::npos) fs::remove(super, ignored);
  }
}

// A journal without a header, which nobody plays back. One of a writer at work looks the same.
bool IsIdleJournal(const fs::path& path) {
  if (!path.filename().string().ends_with(".mdb-journal")) return false;
  std::ifstream file(path, std::ios::binary);
  return file && file.get() <= 0;
}

// A writer that died in a commit over several files can leave its super-journal ("Karvel.mdb-mj…") behind, and journals without a header.
// Recovery has dealt with the journals that count; a super-journal is kept only if one still names it. Under the write lock of all files,
// for then nobody is committing.
void SweepLeftOver(Connection& connection, const std::string& folder, Gate& gate) {
  std::error_code ignored;
  std::vector<fs::path> supers, journals;
  for (const auto& entry : fs::directory_iterator(folder, ignored)) {
    const std::string name = entry.path().filename().string();
    const auto mark = name.rfind("-mj");
    const bool super = mark != std::string::npos && name.substr(mark + 3).find_first_not_of("0123456789ABCDEF") == std::string::npos;
    if (super && name.size() == mark + 12) supers.push_back(entry.path());
    if (IsIdleJournal(entry.path())) journals.push_back(entry.path());
  }
  // Another terminal at work leaves the sweep to a later start.
  if ((supers.empty() && journals.empty()) || !gate.TryTake().Ok()) return;
  const Status swept = Run(&connection.Database(), "sweep", [&] {
    connection.Execute("BEGIN IMMEDIATE");
    for (const fs::path& journal : journals)
      if (IsIdleJournal(journal)) fs::remove(journal, ignored);
    RemoveUnnamed(supers, folder);
    connection.Execute("ROLLBACK");
  });
  if (!swept.Ok()) Log(swept.Message());
  gate.Leave();
}

// The file's path in the folder. Missing only where the folder can be read and doesn't have it.
Status Locate(const DatabaseFile& file, const std::string& folder, std::string& path) {
  path = FindFile(folder, file.name);
  if (!path.empty()) return {};
  const std::string wanted = folder + "/" + std::string(file.name);
  std::error_code failed;
  const fs::directory_iterator look(folder, failed);
  if (failed) return WithName(file, wanted, StatusOfSystemError(failed.value(), folder));
  return WithName(file, wanted, {ErrorKind::Missing, "not in " + folder});
}

Status Connect(const DatabaseFile& file, const std::string& path, const SqliteOptions& options, Patience& patience,
               std::unique_ptr<Connection>& connection) {
  Status opened =
      Patiently(patience, [&] { return Run(nullptr, "open", [&] { connection = std::make_unique<Connection>(path, options.vfs); }); });
  return opened.Ok() ? opened : WithName(file, path, opened);
}

Status Attach(const DatabaseFile& file, const std::string& path, Patience& patience, Connection& connection) {
  Status attached = Patiently(patience, [&] {
    return Run(&connection.Database(), "attach", [&] {
      const std::vector<Value> parameters{path};
      RunningStatement attach = connection.Prepare("ATTACH ?1 AS " + SchemaOf(file), parameters);
      attach.Step();
    });
  });
  return attached.Ok() ? attached : WithName(file, path, attached);
}

// The folder may lie behind links; a file of it is none.
Status OpenAll(const std::string& asked, const SqliteOptions& options, Patience& patience, std::unique_ptr<Connection>& connection) {
  std::error_code failed;
  const std::string folder = fs::canonical(asked, failed).string();
  if (failed) return StatusOfSystemError(failed.value(), asked);
  const DatabaseFile& main = *Catalogue::File(kMainFile);
  std::string path;
  for (const DatabaseFile& file : Catalogue::Files()) {
    if (!InDataFolder(file)) continue;
    if (Status located = Locate(file, folder, path); !located.Ok()) return located;
  }
  path = FindFile(folder, main.name);
  if (Status opened = Connect(main, path, options, patience, connection); !opened.Ok()) return opened;
  // To attach a file reads the main one too, so the main one has to be in order first.
  if (Status prepared = PrepareFile(*connection, main, SchemaOf(main), path, patience); !prepared.Ok()) return prepared;
  for (const DatabaseFile& file : Catalogue::Files()) {
    if (!InDataFolder(file) || &file == &main) continue;
    path = FindFile(folder, file.name);
    if (Status attached = Attach(file, path, patience, *connection); !attached.Ok()) return attached;
    if (Status prepared = PrepareFile(*connection, file, SchemaOf(file), path, patience); !prepared.Ok()) return prepared;
  }
  return {};
}

// While no terminal that stands in line writes.
Status Prepare(const std::string& folder, FolderPreparation* preparation, Patience& patience, Gate& gate) {
  if (preparation == nullptr || !preparation->IsNeeded(folder)) return {};
  if (Status taken = gate.Take(patience); !taken.Ok()) return taken;
  Status prepared = preparation->Prepare(folder);
  gate.Leave();
  return prepared;
}

}  // namespace

std::string FindFile(const std::string& folder, std::string_view name) {
  std::error_code failed;
  const fs::path exact = fs::path(folder) / name;
  if (fs::exists(exact, failed)) return exact.string();
  for (const auto& entry : fs::directory_iterator(folder, failed)) {
    const std::string candidate = entry.path().filename().string();
    if (EqualText(candidate, name)) return entry.path().string();
  }
  return {};
}

std::string SchemaOf(const DatabaseFile& file) {
  return file.name == kMainFile ? "main" : std::string(file.schema);
}

bool InDataFolder(const DatabaseFile& file) {
  return file.schema != "datatemp";
}

Status OpenDataFolder(const std::string& folder, const SqliteOptions& options, Patience& patience, Gate& gate,
                      std::unique_ptr<Connection>& connection) {
  std::error_code failed;
  const bool there = fs::is_directory(folder, failed);
  if (failed) return StatusOfSystemError(failed.value(), folder);
  if (!there) return Status(ErrorKind::Missing, folder + ": no such folder").At(folder);
  // A folder that can't be written has no gate and no writers; its rows can be read all the same.
  const bool gated = gate.Open(folder).Ok();
  Status opened = Prepare(folder, options.preparation, patience, gate);
  if (opened.Ok()) opened = OpenAll(folder, options, patience, connection);
  if (!opened.Ok()) {
    connection.reset();
  } else if (gated) {
    SweepLeftOver(*connection, folder, gate);
  }
  return opened;
}

Status OpenAnew(const std::string& folder, const SqliteOptions& options, Patience& patience, std::unique_ptr<Connection>& connection) {
  Status opened = OpenAll(folder, options, patience, connection);
  if (!opened.Ok()) connection.reset();
  return opened;
}

bool MayBeWrittenByNow(Connection& connection) {
  return std::ranges::any_of(Catalogue::Files(), [&](const DatabaseFile& file) {
    if (!InDataFolder(file)) return false;
    const std::string schema = SchemaOf(file);
    const bool readOnly = sqlite3_db_readonly(connection.Database().getHandle(), schema.c_str()) == 1;
    return readOnly && faccessat(AT_FDCWD, connection.PathOf(schema).c_str(), W_OK, AT_EACCESS) == 0;
  });
}

Status OpenScratch(const DatabaseFile& file, const SqliteOptions& options, Patience& patience, std::unique_ptr<Connection>& connection) {
  std::string path;
  Status opened = Locate(file, options.programFolder, path);
  std::error_code failed;
  if (opened.Ok()) path = fs::canonical(path, failed).string();  // an installation may lay the program's own files as links
  if (opened.Ok() && !options.scratchFile.empty() && path != options.scratchFile) {
    if (!fs::exists(options.scratchFile, failed)) {
      fs::create_directories(fs::path(options.scratchFile).parent_path(), failed);
      fs::copy_file(path, options.scratchFile, failed);
      if (failed) return WithName(file, options.scratchFile, StatusOfSystemError(failed.value(), options.scratchFile));
      fs::permissions(options.scratchFile, fs::perms::owner_read | fs::perms::owner_write, failed);  // the template may be read-only
    }
    path = options.scratchFile;
  }
  if (opened.Ok()) opened = Connect(file, path, options, patience, connection);
  if (opened.Ok()) opened = PrepareFile(*connection, file, "main", path, patience);
  if (!opened.Ok()) connection.reset();
  return opened;
}

}  // namespace karvel::sqlite
