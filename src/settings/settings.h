// One terminal's options by name, kept in the settings store under its title. A save is in the store when it returns, unless the log tells
// why not. Booleans are saved as "True" and "False"; True, Doğru and every number but 0 read as true, anything else as false.
#pragma once

#include <expected>
#include <functional>
#include <string>

#include "platform/settings_store.h"
#include "platform/signal.h"
#include "settings/settings_table.h"

namespace karvel {

class Settings {
 public:
  // The store is borrowed and outlives this.
  Settings(SettingsStore& store, std::string title);

  [[nodiscard]] const std::string& Title() const { return title_; }

  [[nodiscard]] std::string Get(Setting setting) const;
  // With another preset than the table's, where the desk itself knows a better one (a caption, a printer in use).
  [[nodiscard]] std::string Get(Setting setting, const std::string& preset) const;
  void Save(Setting setting, const std::string& value);
  // An option could not be saved: at the next start it is what it was before.
  Signal<const Status&> notSaved;

  [[nodiscard]] bool GetBoolean(Setting setting) const;
  void SaveBoolean(Setting setting, bool value);
  // What isn't a number is 0.
  [[nodiscard]] double GetNumber(Setting setting) const;
  // As a plain number.
  void SaveNumber(Setting setting, double value);

  // Options kept once for each entry of a menu (Setting::LogoMark): the key ends with its index.
  [[nodiscard]] bool GetBooleanAt(Setting setting, int index) const;
  void SaveBooleanAt(Setting setting, int index, bool value);

  // Reads, changes and saves an option with no other terminal in between: its new value, or why it stays as it is.
  std::expected<std::string, Status> Change(Setting setting, const std::function<std::string(const std::string&)>& change);

 private:
  void SaveAt(const SettingEntry& entry, const std::string& key, const std::string& value);
  [[nodiscard]] std::string Application(const SettingEntry& entry) const;

  SettingsStore& store_;
  std::string title_;
};

}  // namespace karvel
