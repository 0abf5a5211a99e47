#include "tools/restored_settings.h"

#include <string_view>
#include <utility>

#include "app/ini_text.h"
#include "settings/program_file.h"
#include "settings/settings_table.h"
#include "text/format.h"

namespace karvel {
namespace {

constexpr std::string_view kSettingsName = "settings.ini";

bool HoldsNothing(const std::string& settings) {
  const IniText text = ReadIni(settings);
  return text.whole && text.values.empty();
}

class PuttingBack {
 public:
  PuttingBack(Files& files, const SettingsPlace& place) : files_(files), place_(place) {}

  // One file to where the desk reads it.
  void Put(const std::string& brought, const std::string& target, bool replace) {
    std::string bytes, old;
    if (const Status read = files_.Read(brought, bytes); !read.Ok()) return Leave(brought, target, read);
    const Status there = files_.Read(target, old);
    if (!there.Ok() && there.Kind() != ErrorKind::Missing) return Leave(brought, target, there);
    const bool settings = target.ends_with(kSettingsName);
    if (settings && !ReadIni(bytes).whole) return Leave(brought, target, Status(ErrorKind::Damaged, brought + ": not a settings file"));
    const bool differs = there.Ok() && old != bytes && !(settings && HoldsNothing(old));
    if (differs && !replace) return Leave(brought, target, {});
    if (differs) {
      if (const Status kept = KeepAside(target); !kept.Ok()) return Leave(brought, target, kept);
    }
    if (const Status written = files_.Write(target, settings ? WithPasswords(bytes, old) : bytes); !written.Ok())
      return Leave(brought, target, written);
    outcome_.put.push_back(target);
    files_.Delete(brought).Ignore();
  }

  SettingsPutBack Outcome() { return std::move(outcome_); }

 private:
  void Leave(const std::string& brought, const std::string& target, const Status& why) {
    outcome_.left.push_back(brought);
    outcome_.wanted.push_back(target);
    if (outcome_.status.Ok()) outcome_.status = why;
  }

  // The file stays under its own name as well, until the new one takes its place.
  Status KeepAside(const std::string& target) {
    const std::string first = target + ".eski-" + Format(place_.now, "yyyymmdd") + "-" + Format(place_.now, "hhnnss");
    std::string aside = first;
    for (int number = 2; files_.Exists(aside); ++number) aside = first + "-" + std::to_string(number);
    Status copied = files_.CopyNew(target, aside);
    if (copied.Ok()) outcome_.keptAs.push_back(aside);
    return copied;
  }

  static std::string WithPasswords(const std::string& brought, const std::string& old) {
    IniValues values = ReadIni(brought).values;
    for (const auto& [address, value] : ReadIni(old).values)
      if (IsSecret(address.substr(address.rfind('/') + 1))) values.emplace(address, value);
    return WriteIni(values);
  }

  Files& files_;
  const SettingsPlace& place_;
  SettingsPutBack outcome_;
};

}  // namespace

SettingsPutBack PutSettingsBack(Files& files, const std::string& brought, const SettingsPlace& place) {
  PuttingBack putting(files, place);
  for (const std::string& name : files.List(brought)) {
    const std::string from = brought + "/" + name;
    if (name == kSettingsName) {
      putting.Put(from, place.home + "/" + name, place.replace);
    } else {
      putting.Put(from, ProgramFilePath(files, name), place.replaceBesideProgram);
    }
  }
  files.Delete(brought).Ignore();  // which only an empty folder allows
  return putting.Outcome();
}

}  // namespace karvel
