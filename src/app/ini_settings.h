#pragma once

#include <QSettings>
#include <optional>

#include "app/file_lock.h"
#include "platform/settings_store.h"

namespace karvel {

// The settings of all terminals of this home in one file, settings.ini, readable by its owner alone (it holds passwords).
// A save is on the disk when it returns; a read sees what another terminal saved before.
class IniSettings : public SettingsStore {
 public:
  // `homeFolder` is this machine's path; it is made if it isn't there.
  explicit IniSettings(const std::string& homeFolder);

  [[nodiscard]] std::string Get(const std::string& application, const std::string& section, const std::string& key,
                                const std::string& preset) const override;
  void Save(const std::string& application, const std::string& section, const std::string& key, const std::string& value) override;
  std::string Change(const std::string& application, const std::string& section, const std::string& key, const std::string& preset,
                     const std::function<std::string(const std::string&)>& change) override;

 private:
  [[nodiscard]] QString Read(const QString& address, const QString& preset) const;
  void Write(const QString& address, const QString& value);
  // Runs the work while no other terminal writes; calls may nest. Reading needs it too: the file's text is read first and its time after
  // it, so a save between the two would be missed, and a number given twice.
  void InLine(const std::function<void()>& work) const;

  const std::string path_;
  mutable FileLock lock_;
  mutable int depth_ = 0;
  mutable std::optional<QSettings> file_;
};

}  // namespace karvel
