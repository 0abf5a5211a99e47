#pragma once

#include <string>

namespace karvel {

// The log of one terminal, log/<title>.log in the home folder, kept small by turning it over. Takes the desk's log lines while it lives.
class LogFile {
 public:
  LogFile(const std::string& homeFolder, const std::string& title);
  ~LogFile();
  LogFile(const LogFile&) = delete;
  LogFile& operator=(const LogFile&) = delete;
};

}  // namespace karvel
