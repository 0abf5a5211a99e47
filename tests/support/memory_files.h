// The file system in memory: drive C: is /home/C, shares lie in /home/net, the program folder is /program.
// Names match ignoring case. Writes can be made to fail, as on a full or write-protected disk.
#pragma once

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/files.h"
#include "text/turkish.h"

namespace karvel {

class MemoryFiles final : public Files {
 public:
  MemoryFiles() {
    AddFolder("/home/C");
    AddFolder("/program");
  }

  // From now on every write, copy, move, delete and new folder fails so; a good status ends it.
  void FailWrites(Status status) { failure_ = std::move(status); }
  // From now on reading this file fails so.
  void FailRead(const std::string& path, Status status) { readFailures_[KeyOf(path)] = std::move(status); }
  // A file's bytes, for a test to look at; "" when there is none.
  [[nodiscard]] std::string Bytes(const std::string& path) const {
    const auto found = entries_.find(KeyOf(path));
    return found == entries_.end() ? std::string() : found->second.bytes;
  }
  // Puts a file there whatever FailWrites says.
  void Put(const std::string& path, const std::string& bytes) {
    const std::string real = RealPath(path);
    AddFolder(Parent(real));
    auto [entry, added] = entries_.try_emplace(FoldKey(real), Entry{real, bytes, false});
    if (!added) entry->second.bytes = bytes;
  }
  // How many operations changed something or tried to.
  [[nodiscard]] int Writes() const { return writes_; }

  [[nodiscard]] std::string RealPath(const std::string& path) const override {
    std::string real = ReplaceAll(path, "\\", "/");
    if (real.starts_with("//")) {
      real = "/home/net/" + real.substr(2);
    } else if (real.size() >= 2 && real[1] == ':') {
      real = "/home/" + TurkishUpper(real.substr(0, 1)) + real.substr(2);
    }
    while (real.size() > 1 && real.ends_with('/')) real.pop_back();
    const auto found = entries_.find(FoldKey(real));
    return found == entries_.end() ? real : found->second.path;
  }
  [[nodiscard]] std::string ProgramFolder() const override { return "/program"; }
  [[nodiscard]] std::string HomeFolder() const override { return "/home"; }
  [[nodiscard]] bool Exists(const std::string& path) const override { return entries_.contains(KeyOf(path)); }
  [[nodiscard]] bool IsFolder(const std::string& path) const override {
    const auto found = entries_.find(KeyOf(path));
    return found != entries_.end() && found->second.folder;
  }
  Status MakeFolder(const std::string& path) override {
    if (Status status = Admit(); !status) return status;
    AddFolder(RealPath(path));
    return {};
  }
  Status Read(const std::string& path, std::string& bytes) const override {
    if (const auto failing = readFailures_.find(KeyOf(path)); failing != readFailures_.end()) return failing->second;
    const auto found = entries_.find(KeyOf(path));
    if (found == entries_.end() || found->second.folder) return {ErrorKind::Missing, path};
    bytes = found->second.bytes;
    return {};
  }
  Status Write(const std::string& path, const std::string& bytes) override {
    if (Status status = Admit(); !status) return status;
    if (!Exists(Parent(RealPath(path)))) return {ErrorKind::Missing, path};
    Put(path, bytes);
    return {};
  }
  Status Copy(const std::string& from, const std::string& to) override {
    std::string bytes;
    if (Status status = Read(from, bytes); !status) return status;
    return Write(to, bytes);
  }
  Status CopyNew(const std::string& from, const std::string& to) override { return Exists(to) ? Status() : Copy(from, to); }
  Status Move(const std::string& from, const std::string& to) override {
    if (Status status = Admit(); !status) return status;
    if (!Exists(from)) return {ErrorKind::Missing, from};
    const std::string source = RealPath(from);
    const std::string target = RealPath(to);
    if (!Exists(Parent(target))) return {ErrorKind::Missing, to};
    std::vector<Entry> moved;
    std::erase_if(entries_, [&](const auto& item) {
      if (!Within(item.second.path, source)) return false;
      moved.push_back(item.second);
      return true;
    });
    for (Entry& entry : moved) {
      entry.path = target + entry.path.substr(source.size());
      entries_[FoldKey(entry.path)] = entry;
    }
    return {};
  }
  Status Delete(const std::string& path) override {
    if (Status status = Admit(); !status) return status;
    if (!Exists(path)) return {ErrorKind::Missing, path};
    if (!List(path).empty()) return {ErrorKind::NoRights, "not empty: " + path};
    entries_.erase(KeyOf(path));
    return {};
  }
  [[nodiscard]] std::vector<std::string> List(const std::string& folder) const override {
    const std::string parent = RealPath(folder);
    std::vector<std::string> names;
    for (const auto& [key, entry] : entries_) {
      if (Parent(entry.path) == parent) names.push_back(entry.path.substr(parent.size() + 1));
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  [[nodiscard]] std::vector<std::string> Drives() const override { return {"C:"}; }
  [[nodiscard]] std::optional<std::uint64_t> Room(const std::string&) const override { return std::nullopt; }

 private:
  struct Entry {
    std::string path;
    std::string bytes;
    bool folder = false;
  };

  static std::string Parent(const std::string& path) { return path.substr(0, path.rfind('/')); }
  static bool Within(const std::string& path, const std::string& folder) { return path == folder || path.starts_with(folder + "/"); }
  [[nodiscard]] std::string KeyOf(const std::string& path) const { return FoldKey(RealPath(path)); }
  void AddFolder(const std::string& path) {
    if (path.empty()) return;
    AddFolder(Parent(path));
    entries_.try_emplace(FoldKey(path), Entry{path, {}, true});
  }
  Status Admit() {
    ++writes_;
    return failure_;
  }

  std::map<std::string, Entry> entries_;
  std::map<std::string, Status> readFailures_;
  Status failure_;
  int writes_ = 0;
};

}  // namespace karvel
