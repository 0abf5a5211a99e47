// The database files of the shop's older program, turned into store files of the same names.
//
// What stays true:
// - The old file stays, under another name beside the new one, which takes its place whole or not at all.
// - What can't be read is named, row by row. Fields that are missing get their defaults; fields and tables that the desk doesn't know are
//   kept in the file.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "exchange/old_database.h"
#include "store/folder_preparation.h"
#include "store/store_file_writer.h"

namespace karvel {

struct ConvertedFile {
  std::string name;    // "Cari.mdb"
  std::string keptAs;  // the old one's new name; "" where it was left as it was
  std::int64_t rows = 0;
  std::vector<std::string> faults{};  // what could not be read, in plain Turkish
};

// Makes a store file, which must not exist, of an old one. Damaged where the old one lacks the first of the file's tables.
Status ConvertOldFile(OldDatabases& databases, const StoreFileMaker& make, const std::string& oldPath, const DatabaseFile& file,
                      const std::string& newPath, ConvertedFile& converted);

// A data folder whose old files are turned before it is opened.
class OldFiles final : public FolderPreparation {
 public:
  OldFiles(OldDatabases& databases, StoreFileMaker make) : databases_(databases), make_(std::move(make)) {}

  [[nodiscard]] bool IsNeeded(const std::string& folder) const override;
  Status Prepare(const std::string& folder) override;

  // What came of it, for the clerk; "" where there was no old file.
  [[nodiscard]] std::string Report() const;

 private:
  Status Convert(const std::string& folder, const std::string& name, const DatabaseFile& file);

  OldDatabases& databases_;
  StoreFileMaker make_;
  std::vector<ConvertedFile> converted_;
};

}  // namespace karvel
