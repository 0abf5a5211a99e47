// The outcome of an operation on the outside world: well, or a kind of failure with a message for the log.
#pragma once

#include <string>
#include <utility>

namespace karvel {

enum class ErrorKind {
  None,
  BadText,      // a source, criterion or value that can't be understood
  NoRecord,     // no current record, or it is gone
  NotOpen,      // an operation that needs an open copy, source or store
  Busy,         // another terminal holds the store too long
  DiskFull,     // no room left
  NoRights,     // read-only folder or file
  Damaged,      // not a database, or a malformed one
  DiskFailed,   // the disk did not read or write, and may do so at the next try
  Missing,      // no such file or folder
  Unknown,      // a commit failed, and whether its rows are in the stores can't be read now
  Unreachable,  // the main machine doesn't answer
  Other,
};

// What an operation was about: the clerk is told of settings, and of a server, in other words than of the shop's
// own files.
enum class Subject { Books, Settings, Server };

class [[nodiscard]] Status {
 public:
  Status() = default;
  Status(ErrorKind kind, std::string message) : kind_(kind), message_(std::move(message)) {}
  // The same outcome, about a file or folder of this machine. An outcome that names one already keeps it.
  [[nodiscard]] Status At(const std::string& place) const {
    Status placed = *this;
    if (placed.place_.empty()) placed.place_ = place;
    return placed;
  }
  [[nodiscard]] Status About(Subject subject) const {
    Status told = *this;
    told.subject_ = subject;
    return told;
  }
  [[nodiscard]] bool Ok() const { return kind_ == ErrorKind::None; }
  explicit operator bool() const { return Ok(); }
  [[nodiscard]] ErrorKind Kind() const { return kind_; }
  [[nodiscard]] const std::string& Message() const { return message_; }
  // The file or folder where it failed, for those who mend it; "" where none is known.
  [[nodiscard]] const std::string& Place() const { return place_; }
  [[nodiscard]] Subject What() const { return subject_; }
  // For the few places where going on is the rule, whatever happened.
  void Ignore() const {}

 private:
  ErrorKind kind_ = ErrorKind::None;
  std::string message_;
  std::string place_;
  Subject subject_ = Subject::Books;
};

}  // namespace karvel
