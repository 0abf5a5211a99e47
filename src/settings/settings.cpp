#include "settings/settings.h"

#include <utility>

#include "text/format.h"

namespace karvel {
namespace {

std::string BooleanText(bool value) {
  return value ? "True" : "False";
}

}  // namespace

Settings::Settings(SettingsStore& store, std::string title) : store_(store), title_(std::move(title)) {}

std::string Settings::Application(const SettingEntry& entry) const {
  return entry.application == SettingApplication::Title ? title_ : std::string(FixedApplication(entry.application));
}

std::string Settings::Get(Setting setting) const {
  return Get(setting, std::string(EntryOf(setting).preset));
}

std::string Settings::Get(Setting setting, const std::string& preset) const {
  const SettingEntry& entry = EntryOf(setting);
  return store_.Get(Application(entry), std::string(entry.section), std::string(entry.key), preset);
}

void Settings::Save(Setting setting, const std::string& value) {
  const SettingEntry& entry = EntryOf(setting);
  SaveAt(entry, std::string(entry.key), value);
}

void Settings::SaveAt(const SettingEntry& entry, const std::string& key, const std::string& value) {
  const Status saved = store_.Save(Application(entry), std::string(entry.section), key, value);
  if (!saved.Ok()) notSaved(saved);
}

bool Settings::GetBoolean(Setting setting) const {
  return ReadBoolean(Get(setting));
}
void Settings::SaveBoolean(Setting setting, bool value) {
  Save(setting, BooleanText(value));
}
double Settings::GetNumber(Setting setting) const {
  return NumberOrZero(Get(setting));
}
void Settings::SaveNumber(Setting setting, double value) {
  Save(setting, PlainNumber(value));
}

bool Settings::GetBooleanAt(Setting setting, int index) const {
  const SettingEntry& entry = EntryOf(setting);
  const std::string key = std::string(entry.key) + std::to_string(index);
  return ReadBoolean(store_.Get(Application(entry), std::string(entry.section), key, std::string(entry.preset)));
}

void Settings::SaveBooleanAt(Setting setting, int index, bool value) {
  const SettingEntry& entry = EntryOf(setting);
  const std::string key = std::string(entry.key) + std::to_string(index);
  SaveAt(entry, key, BooleanText(value));
}

std::expected<std::string, Status> Settings::Change(Setting setting, const std::function<std::string(const std::string&)>& change) {
  const SettingEntry& entry = EntryOf(setting);
  return store_.Change(Application(entry), std::string(entry.section), std::string(entry.key), std::string(entry.preset), change);
}

}  // namespace karvel
