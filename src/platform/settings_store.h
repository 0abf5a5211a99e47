#pragma once

#include <functional>
#include <string>

namespace karvel {

// The per-user store of options: texts by application, section and key. Saved at once; several terminals may share it.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  [[nodiscard]] virtual std::string Get(const std::string& application, const std::string& section, const std::string& key,
                                        const std::string& preset) const = 0;
  virtual void Save(const std::string& application, const std::string& section, const std::string& key, const std::string& value) = 0;
  // Reads, changes and saves one value with no other terminal in between; returns the new value.
  virtual std::string Change(const std::string& application, const std::string& section, const std::string& key, const std::string& preset,
                             const std::function<std::string(const std::string&)>& change) = 0;
};

}  // namespace karvel
