// SQLite data folders for tests.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "store/catalogue.h"
#include "store/sqlite/sqlite_engine.h"
#include "store/sqlite/templates.h"
#include "tests/store/engine_contract.h"
#include "tests/support/temp_folder.h"

namespace karvel::testing {

inline void WriteTemplates(const std::string& folder) {
  for (const DatabaseFile& file : Catalogue::Files()) {
    EXPECT_TRUE(WriteTemplate(file, folder + "/" + std::string(file.name)).Ok());
  }
}

// Waits are short: a test that waits in vain shall not wait long.
inline SqliteOptions TestOptions(const std::string& programFolder) {
  return {.programFolder = programFolder, .patienceMs = 300, .vfs = ""};
}

class SqliteKind final : public EngineKind {
 public:
  SqliteKind() { WriteTemplates(folder_.Path()); }
  [[nodiscard]] std::string Folder() const override { return folder_.Path(); }
  [[nodiscard]] std::unique_ptr<Engine> NewEngine() override { return MakeSqliteEngine(TestOptions(folder_.Path())); }
  [[nodiscard]] std::string Path(const std::string& name) const { return folder_.Path() + "/" + name; }

 private:
  TempFolder folder_;
};

// Runs work in a process of its own; true when it ended with true. Expectations inside are not seen by the test: return them.
inline bool InChild(const std::function<bool()>& work) {
  const pid_t child = fork();
  if (child == 0) _exit(work() ? 0 : 1);
  int outcome = 0;
  return waitpid(child, &outcome, 0) == child && WIFEXITED(outcome) && WEXITSTATUS(outcome) == 0;
}

}  // namespace karvel::testing
