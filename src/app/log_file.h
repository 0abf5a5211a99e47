#pragma once

#include <string>

namespace karvel {

// The log of one terminal, log/<title>.log in the home folder: a file of 1 MB at most, and up to three older ones beside it. Takes the
// desk's log lines while it lives. A disk that refuses ends the log, not the desk.
class LogFile {
 public:
  LogFile(const std::string& homeFolder, const std::string& title);
  ~LogFile();
  LogFile(const LogFile&) = delete;
  LogFile& operator=(const LogFile&) = delete;
};

}  // namespace karvel
