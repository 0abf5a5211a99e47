// Copies, moves, renames and deletes lists of files, with the questions that the shop's people know from their file windows.
// Start uses it to lay the template stores into the data folder.
//
// Sources and destinations pair up: the first source goes to the first destination and so on. One destination for several sources,
// or one that is a folder, is the folder that takes them. "*" and "?" in the last piece of a source stand for every name that fits.
// The lists stay as they are after an operation. An operation stops at the first file that fails; what was done before that stays done.
#pragma once

#include <expected>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/files.h"
#include "platform/messages.h"

namespace karvel {

struct FileOperationError {
  static constexpr int kNoSources = -2147220504;
  int number = 0;  // kNoSources, or 0 for a failure of the disk, which `status` tells
  std::string text;
  Status status;
};

using FileOperationResult = std::expected<void, FileOperationError>;

class CSHFileOp {
 public:
  // Both are borrowed. Without messages no question is asked, and the answer is yes.
  explicit CSHFileOp(Files& files, Messages* messages = nullptr) : files_(files), messages_(messages) {}

  // Kept as set: the desk's drives have no bin to take a deleted file back from.
  [[nodiscard]] bool AllowUndo() const { return allowUndo_; }
  void AllowUndo(bool on) { allowUndo_ = on; }
  // Ask before a missing folder is made for a destination.
  [[nodiscard]] bool ConfirmMakeDir() const { return confirmMakeDir_; }
  void ConfirmMakeDir(bool on) { confirmMakeDir_ = on; }
  // Ask before a file is replaced or deleted.
  [[nodiscard]] bool ConfirmOperation() const { return confirmOperation_; }
  void ConfirmOperation(bool on) { confirmOperation_ = on; }
  // The title of the questions.
  [[nodiscard]] const std::string& CustomText() const { return customText_; }
  void CustomText(std::string text) { customText_ = std::move(text); }
  // Take folders with all they hold; otherwise they are passed over.
  [[nodiscard]] bool IncludeDirectories() const { return includeDirectories_; }
  void IncludeDirectories(bool on) { includeDirectories_ = on; }
  // Kept as set: the questions belong to the desk's one window.
  [[nodiscard]] long long ParentWnd() const { return parentWnd_; }
  void ParentWnd(long long window) { parentWnd_ = window; }
  // Where the target exists, take a free name beside it, "Cari (2).mdb", in place of replacing it.
  [[nodiscard]] bool RenameOnCollision() const { return renameOnCollision_; }
  void RenameOnCollision(bool on) { renameOnCollision_ = on; }
  // Ask nothing at all.
  [[nodiscard]] bool SilentMode() const { return silentMode_; }
  void SilentMode(bool on) { silentMode_ = on; }

  // With no sources: the error kNoSources, and no file is touched.
  FileOperationResult MoveFiles();
  FileOperationResult CopyFiles();
  FileOperationResult DeleteFiles();
  FileOperationResult RenameFiles();
  void ClearSourceFiles() { sources_.clear(); }
  void AddSourceFile(std::string path) { sources_.push_back(std::move(path)); }
  void ClearDestFiles() { destinations_.clear(); }
  void AddDestFile(std::string path) { destinations_.push_back(std::move(path)); }

 private:
  enum class Task { Move, Copy, Delete };
  struct Step {
    std::string from;
    std::string to;  // "" where the step deletes
  };
  FileOperationResult Run(Task task);
  [[nodiscard]] Status Plan(Task task, std::vector<Step>& steps) const;
  [[nodiscard]] std::vector<std::string> Expanded(const std::string& source) const;
  [[nodiscard]] std::string FreeName(const std::string& path) const;
  Status Transfer(Task task, const Step& step);
  Status CopyFolder(const std::string& from, const std::string& to);
  Status Remove(const std::string& path);
  Status DeleteFolder(const std::string& path);
  bool Confirmed(bool wanted, const std::string& question);

  Files& files_;
  Messages* messages_;
  bool allowUndo_ = false;
  bool confirmMakeDir_ = false;
  bool confirmOperation_ = false;
  std::string customText_;
  bool includeDirectories_ = false;
  long long parentWnd_ = 0;
  bool renameOnCollision_ = false;
  bool silentMode_ = false;
  std::vector<std::string> sources_;
  std::vector<std::string> destinations_;
};

}  // namespace karvel
