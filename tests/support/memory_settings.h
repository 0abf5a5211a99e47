// The settings store in memory.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <tuple>

#include "platform/settings_store.h"

namespace karvel {

class MemorySettings final : public SettingsStore {
 public:
  std::expected<std::string, Status> MakeReady() override {
    if (!readyFault.Ok()) return std::unexpected(readyFault);
    return putAside;
  }
  void SetWaitListener(WaitListener* listener) override { waitListener = listener; }
  [[nodiscard]] std::string Get(const std::string& application, const std::string& section, const std::string& key,
                                const std::string& preset) const override {
    const auto found = values_.find({application, section, key});
    return found == values_.end() ? preset : found->second;
  }
  Status Save(const std::string& application, const std::string& section, const std::string& key, const std::string& value) override {
    if (saveFault.Ok()) values_[{application, section, key}] = value;
    return saveFault;
  }
  std::expected<std::string, Status> Change(const std::string& application, const std::string& section, const std::string& key,
                                            const std::string& preset,
                                            const std::function<std::string(const std::string&)>& change) override {
    if (!changeFault.Ok()) return std::unexpected(changeFault);
    ++changes_;
    const std::string value = change(Get(application, section, key, preset));
    values_[{application, section, key}] = value;
    return value;
  }

  [[nodiscard]] std::string Text(const Shown& shown) const override {
    std::string text;
    for (const auto& [address, value] : values_) {
      const auto& [application, section, key] = address;
      if (const auto given = shown(key, value)) text += application + "/" + section + "/" + key + "=" + *given + "\n";
    }
    return text;
  }

  [[nodiscard]] std::size_t Count() const { return values_.size(); }
  // How many values were changed in one piece.
  [[nodiscard]] int Changes() const { return changes_; }

  std::string putAside;  // what MakeReady answers, unless there is a fault
  Status readyFault;
  Status saveFault;    // answered to every save while it is set
  Status changeFault;  // answered to every change while it is set
  WaitListener* waitListener = nullptr;

 private:
  std::map<std::tuple<std::string, std::string, std::string>, std::string> values_;
  int changes_ = 0;
};

}  // namespace karvel
