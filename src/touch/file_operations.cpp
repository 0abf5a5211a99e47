#include "touch/file_operations.h"

#include <cstddef>

#include "platform/clerk_message.h"
#include "text/like_pattern.h"
#include "text/turkish.h"

namespace karvel {
namespace {

constexpr std::string_view kNoSourcesText = "No source files specified file operation";

// The desk's paths have "\" between their pieces, this machine's "/".
std::size_t NameStart(std::string_view path) {
  const std::size_t at = path.find_last_of("\\/");
  return at == std::string_view::npos ? 0 : at + 1;
}

std::string NameOf(std::string_view path) {
  return std::string(path.substr(NameStart(path)));
}

// Without the separator; "" when there is nothing before the name.
std::string FolderOf(std::string_view path) {
  const std::size_t start = NameStart(path);
  return std::string(path.substr(0, start == 0 ? 0 : start - 1));
}

// Whether the place lies inside the folder: no folder can go into itself.
bool Inside(std::string_view place, std::string_view folder) {
  return place.size() > folder.size() && EqualText(place.substr(0, folder.size()), folder) &&
         (place[folder.size()] == '\\' || place[folder.size()] == '/');
}

// A pattern's "#" and "[" are plain signs in a file name.
std::string NamePattern(std::string_view name) {
  std::string pattern;
  for (const char sign : name) {
    if (sign == '#' || sign == '[') {
      pattern += std::string("[") + sign + "]";
    } else {
      pattern.push_back(sign);
    }
  }
  return pattern;
}

}  // namespace

FileOperationResult CSHFileOp::MoveFiles() {
  return Run(Task::Move);
}
FileOperationResult CSHFileOp::CopyFiles() {
  return Run(Task::Copy);
}
FileOperationResult CSHFileOp::DeleteFiles() {
  return Run(Task::Delete);
}
FileOperationResult CSHFileOp::RenameFiles() {
  return Run(Task::Move);
}

FileOperationResult CSHFileOp::Run(Task task) {
  if (sources_.empty()) {
    return std::unexpected(FileOperationError{FileOperationError::kNoSources, std::string(kNoSourcesText), {}});
  }
  std::vector<Step> steps;
  Status status = Plan(task, steps);
  for (std::size_t i = 0; status && i < steps.size(); ++i) status = task == Task::Delete ? Remove(steps[i].from) : Transfer(task, steps[i]);
  if (!status) return std::unexpected(FileOperationError{0, ClerkMessage(status), status});
  return {};
}

Status CSHFileOp::Plan(Task task, std::vector<Step>& steps) const {
  const bool paired = destinations_.size() == sources_.size();
  if (task != Task::Delete && !paired && destinations_.size() != 1) {
    return {ErrorKind::BadText, "sources and destinations do not pair up"};
  }
  for (std::size_t i = 0; i < sources_.size(); ++i) {
    const std::vector<std::string> found = Expanded(sources_[i]);
    for (const std::string& from : found) {
      if (files_.IsFolder(from) && !includeDirectories_) continue;
      if (task == Task::Delete) {
        steps.push_back({from, {}});
        continue;
      }
      const std::string& to = destinations_[paired ? i : 0];
      const bool into = !paired || found.size() > 1 || to.ends_with('\\') || to.ends_with('/') || files_.IsFolder(to);
      steps.push_back({from, into ? PathIn(to, NameOf(from)) : to});
    }
  }
  return {};
}

std::vector<std::string> CSHFileOp::Expanded(const std::string& source) const {
  const std::string name = NameOf(source);
  if (name.find_first_of("*?") == std::string::npos) return {source};
  std::vector<std::string> paths;
  const std::string folder = FolderOf(source);
  const LikePattern pattern(NamePattern(name == "*.*" ? "*" : name));
  for (const std::string& candidate : files_.List(folder)) {
    if (pattern.Matches(candidate)) paths.push_back(PathIn(folder, candidate));
  }
  return paths;
}

std::string CSHFileOp::FreeName(const std::string& path) const {
  const std::string name = NameOf(path);
  const std::size_t dot = name.rfind('.');
  const std::string stem = path.substr(0, NameStart(path)) + name.substr(0, dot);
  const std::string ending = dot == std::string::npos ? std::string() : name.substr(dot);
  std::string candidate = path;
  for (int number = 2; files_.Exists(candidate); ++number) candidate = stem + " (" + std::to_string(number) + ")" + ending;
  return candidate;
}

Status CSHFileOp::Transfer(Task task, const Step& step) {
  std::string to = step.to;
  if (Inside(to, step.from)) return {ErrorKind::BadText, "a folder can't go into itself: " + step.from};
  const bool replace = files_.Exists(to);
  if (replace) {
    if (renameOnCollision_) {
      to = FreeName(to);
    } else if (!Confirmed(confirmOperation_, to + " zaten var. Üzerine yazılsın mı?")) {
      return {};
    }
  } else if (const std::string folder = FolderOf(to); !folder.empty() && !folder.ends_with(':') && !files_.Exists(folder)) {
    if (!Confirmed(confirmMakeDir_, folder + " klasörü yok. Oluşturulsun mu?")) return {};
    if (Status status = files_.MakeFolder(folder); !status) return status;
  }
  if (task == Task::Move) return files_.Move(step.from, to);
  if (files_.IsFolder(step.from)) return CopyFolder(step.from, to);
  // Nothing stood there a moment ago: what stands there now is another terminal's, and nobody agreed to lose it.
  return replace ? files_.Copy(step.from, to) : files_.CopyNew(step.from, to);
}

Status CSHFileOp::CopyFolder(const std::string& from, const std::string& to) {
  if (Status status = files_.MakeFolder(to); !status) return status;
  for (const std::string& name : files_.List(from)) {
    const std::string inner = PathIn(from, name);
    Status status = files_.IsFolder(inner) ? CopyFolder(inner, PathIn(to, name)) : files_.Copy(inner, PathIn(to, name));
    if (!status) return status;
  }
  return {};
}

Status CSHFileOp::Remove(const std::string& path) {
  if (!Confirmed(confirmOperation_, path + " silinsin mi?")) return {};
  return files_.IsFolder(path) ? DeleteFolder(path) : files_.Delete(path);
}

Status CSHFileOp::DeleteFolder(const std::string& path) {
  for (const std::string& name : files_.List(path)) {
    const std::string inner = PathIn(path, name);
    if (Status status = files_.IsFolder(inner) ? DeleteFolder(inner) : files_.Delete(inner); !status) return status;
  }
  return files_.Delete(path);
}

bool CSHFileOp::Confirmed(bool wanted, const std::string& question) {
  if (!wanted || silentMode_ || messages_ == nullptr) return true;
  return messages_->MessageBox(question, customText_, MessageIcon::Question, MessageButtons::YesNo) == MessageAnswer::Yes;
}

}  // namespace karvel
