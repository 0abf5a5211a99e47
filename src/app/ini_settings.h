#pragma once

#include <sys/stat.h>

#include "app/file_lock.h"
#include "app/ini_text.h"
#include "platform/settings_store.h"

namespace karvel {

// The settings of all terminals of this home in one file, settings.ini, readable by its owner alone (it holds passwords).
//
// What stays true:
// - The file is replaced whole or not at all, and a save is on the disk when it returns. So a read needs no lock; it sees what another
//   terminal saved before.
// - Who writes has the lock, and reads the file afresh under it. Without the lock nothing is written.
// - A file that can't be read is never written over. A desk that runs then goes on with what it read before, and saves nothing.
class IniSettings : public SettingsStore {
 public:
  // `homeFolder` is this machine's path; it is made if it isn't there.
  explicit IniSettings(const std::string& homeFolder);

  std::expected<std::string, Status> MakeReady() override;
  void SetWaitListener(WaitListener* listener) override { patience_.SetListener(listener); }
  [[nodiscard]] std::string Get(const std::string& application, const std::string& section, const std::string& key,
                                const std::string& preset) const override;
  Status Save(const std::string& application, const std::string& section, const std::string& key, const std::string& value) override;
  std::expected<std::string, Status> Change(const std::string& application, const std::string& section, const std::string& key,
                                            const std::string& preset,
                                            const std::function<std::string(const std::string&)>& change) override;
  [[nodiscard]] std::string Text(const Shown& shown) const override;

 private:
  // Runs the work while no other terminal writes; calls may nest.
  Status InLine(const std::function<Status()>& work);
  Status Read() const;
  Status ReadIfChanged() const;
  Status Write(const std::string& address, const std::string& value);
  std::expected<std::string, Status> PutAside();

  const std::string path_;
  Patience patience_;
  FileLock lock_;
  int depth_ = 0;
  // The file as it was read last.
  mutable IniValues values_;
  mutable Status readable_;
  mutable struct stat seen_{};
};

}  // namespace karvel
