#pragma once

#include <map>
#include <memory>

#include "platform/shell.h"

namespace karvel {

class Files;
class OnlyCopy;

// The user's desktop, seen from one program. `desktopFolder` is where its shortcuts lie: none is made where there is no such folder.
class QtShell : public Shell {
 public:
  QtShell(const Files& files, std::string desktopFolder, bool silent);
  ~QtShell() override;
  std::expected<Claim, Status> ClaimOnlyCopy(const std::string& title) override;
  void MakeShortcut(const std::string& title) override;
  void PlaySound(const std::string& path) override;

 private:
  const Files& files_;
  const std::string desktopFolder_;
  const bool silent_;
  std::map<std::string, std::unique_ptr<OnlyCopy>> claimed_;
};

}  // namespace karvel
