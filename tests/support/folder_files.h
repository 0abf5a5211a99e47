// The file system inside one real folder: drive C: is <root>/C, the program folder <root>/program.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "platform/files.h"
#include "text/turkish.h"

namespace karvel {

class FolderFiles final : public Files {
 public:
  explicit FolderFiles(std::string root) : root_(std::move(root)) {
    std::filesystem::create_directories(root_ + "/C");
    std::filesystem::create_directories(root_ + "/program");
  }
  [[nodiscard]] std::string RealPath(const std::string& path) const override {
    std::string real = ReplaceAll(path, "\\", "/");
    if (real.starts_with(root_)) return real;
    if (real.starts_with("//")) return root_ + "/net/" + real.substr(2);
    if (real.size() >= 2 && real[1] == ':') {
      const std::string drive = root_ + "/" + TurkishUpper(real.substr(0, 1));
      return std::filesystem::is_directory(drive) ? drive + real.substr(2) : "";
    }
    return real;
  }
  [[nodiscard]] std::string ProgramFolder() const override { return root_ + "/program"; }
  [[nodiscard]] std::string HomeFolder() const override { return root_; }
  [[nodiscard]] bool Exists(const std::string& path) const override { return std::filesystem::exists(RealPath(path)); }
  [[nodiscard]] bool IsFolder(const std::string& path) const override { return std::filesystem::is_directory(RealPath(path)); }
  Status MakeFolder(const std::string& path) override {
    std::error_code error;
    std::filesystem::create_directories(RealPath(path), error);
    return Outcome(error, path);
  }
  Status Read(const std::string& path, std::string& bytes) const override {
    std::ifstream file(RealPath(path), std::ios::binary);
    if (!file) return {ErrorKind::Missing, path};
    std::ostringstream text;
    text << file.rdbuf();
    bytes = text.str();
    return {};
  }
  Status Write(const std::string& path, const std::string& bytes) override {
    std::ofstream file(RealPath(path), std::ios::binary | std::ios::trunc);
    if (!(file << bytes)) return {ErrorKind::Other, path};
    return {};
  }
  Status Copy(const std::string& from, const std::string& to) override {
    std::error_code error;
    std::filesystem::copy_file(RealPath(from), RealPath(to), std::filesystem::copy_options::overwrite_existing, error);
    return Outcome(error, from);
  }
  Status CopyNew(const std::string& from, const std::string& to) override { return Exists(to) ? Status() : Copy(from, to); }
  Status Move(const std::string& from, const std::string& to) override {
    std::error_code error;
    std::filesystem::rename(RealPath(from), RealPath(to), error);
    return Outcome(error, from);
  }
  Status Delete(const std::string& path) override {
    std::error_code error;
    std::filesystem::remove(RealPath(path), error);
    return Outcome(error, path);
  }
  [[nodiscard]] std::vector<std::string> List(const std::string& folder) const override {
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(RealPath(folder), error)) names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }

  [[nodiscard]] std::vector<std::string> Drives() const override {
    std::vector<std::string> drives;
    for (char letter = 'C'; letter <= 'Z'; ++letter)
      if (std::filesystem::is_directory(root_ + "/" + letter)) drives.push_back(std::string(1, letter) + (letter > 'C' ? ": DISK" : ":"));
    return drives;
  }
  [[nodiscard]] std::optional<std::uint64_t> Room(const std::string& path) const override {
    const auto drive = room.find(path.substr(0, 2));
    return drive == room.end() ? std::nullopt : std::optional<std::uint64_t>(drive->second);
  }

  std::map<std::string, std::uint64_t> room;  // by drive; of another it can't be told

 private:
  static Status Outcome(const std::error_code& error, const std::string& path) {
    if (!error) return {};
    return Status(error == std::errc::no_such_file_or_directory ? ErrorKind::Missing : ErrorKind::Other, path + ": " + error.message())
        .At(path);
  }
  std::string root_;
};

}  // namespace karvel
