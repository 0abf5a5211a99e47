#pragma once

#include <expected>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/status.h"
#include "platform/wait_listener.h"

namespace karvel {

// The per-user store of options: texts by application, section and key. Saved at once; several terminals may share it.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  // Once at the start: where what was saved can't be read, it is kept under another name and new settings begin with what could be read of
  // it. That name; "" where all was well. A failure where it could not be put aside: the settings are not to be used then.
  virtual std::expected<std::string, Status> MakeReady() = 0;
  // Who hears of the waits for other terminals; null for nobody.
  virtual void SetWaitListener(WaitListener* listener) = 0;
  [[nodiscard]] virtual std::string Get(const std::string& application, const std::string& section, const std::string& key,
                                        const std::string& preset) const = 0;
  // A failure is noted in the log, and the option stays as it was saved before.
  virtual Status Save(const std::string& application, const std::string& section, const std::string& key, const std::string& value) = 0;
  // Reads, changes and saves one value with no other terminal in between; the new value, which is kept then. Busy when another terminal has
  // the settings too long; after a failure nothing has changed, or what was read is not known.
  virtual std::expected<std::string, Status> Change(const std::string& application, const std::string& section, const std::string& key,
                                                    const std::string& preset,
                                                    const std::function<std::string(const std::string&)>& change) = 0;
  // All that is saved, as the text of a settings file: each value as `shown` gives it for its key, whatever its application, and none where
  // that gives nothing.
  using Shown = std::function<std::optional<std::string>(std::string_view key, const std::string& value)>;
  [[nodiscard]] virtual std::string Text(const Shown& shown) const = 0;
};

}  // namespace karvel
