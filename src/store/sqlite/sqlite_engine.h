// The embedded engine: the eight files as SQLite databases of one connection, written through rollback journals so that a commit over
// several files is whole. Other programs may read and write the files at the same time.
#pragma once

#include <memory>
#include <string>

#include "store/engine.h"

namespace karvel {

class FolderPreparation;

struct SqliteOptions {
  std::string programFolder;  // where DataTemp.Mdb lies; this machine's own path
  bool scratchAlone = false;  // Open opens no folder, whatever it is told: there is DataTemp.Mdb and nothing else
  std::string scratchFile{};  // the terminal's own copy of it, made where it is missing; "": DataTemp.Mdb itself
  int patienceMs = 10000;     // how long an action, or a read beside one, waits for other terminals and programs in all
  std::string vfs;            // the SQLite file layer by name; empty for the usual one
  // What is done to a data folder before it is opened; null for nothing. Lives as long as the engine.
  FolderPreparation* preparation = nullptr;
};

// An engine with no folder open yet. DataTemp.Mdb is opened at its first use.
std::unique_ptr<Engine> MakeSqliteEngine(const SqliteOptions& options);

}  // namespace karvel
