#include "app/ini_settings.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QString>
#include <QStringList>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <system_error>

#include "platform/log.h"

namespace karvel {
namespace {

constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;

// Other users must be shut out before the first password is written.
std::string Prepared(const std::string& homeFolder) {
  std::error_code error;
  std::filesystem::create_directories(homeFolder, error);
  const std::string path = homeFolder + "/settings.ini";
  const int handle = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kOwnerOnly);
  if (handle >= 0) {
    if (fchmod(handle, kOwnerOnly) != 0) Log("settings: can't close the file to others");
    close(handle);
  }
  return path;
}

QString Address(const std::string& application, const std::string& section, const std::string& key) {
  return QString::fromStdString(application + "/" + section + "/" + key);
}

std::int64_t Milliseconds(const timespec& time) {
  return std::int64_t{time.tv_sec} * 1000 + time.tv_nsec / 1000000;
}

std::int64_t SavedAt(const std::string& path) {
  struct stat info{};
  return stat(path.c_str(), &info) == 0 ? Milliseconds(info.st_mtim) : 0;
}

// QSettings reads a file again when its size or its time in milliseconds has changed. The second of two saves of the same size would be
// missed if the file system's clock gave both the same time, and a slip number would be given twice. So each save is marked as later than
// the one before.
void MarkLater(const std::string& path, std::int64_t before) {
  if (SavedAt(path) > before) return;
  const std::int64_t later = before + 1;
  const timespec times[2] = {{.tv_sec = 0, .tv_nsec = UTIME_OMIT}, {.tv_sec = later / 1000, .tv_nsec = later % 1000 * 1000000}};
  if (utimensat(AT_FDCWD, path.c_str(), times, 0) != 0) Log("settings: can't mark the save");
}

}  // namespace

IniSettings::IniSettings(const std::string& homeFolder) : path_(Prepared(homeFolder)), lock_(homeFolder + "/lock/settings.lock") {
  InLine([this] { file_.emplace(QString::fromStdString(path_), QSettings::IniFormat); });
}

QString IniSettings::Read(const QString& address, const QString& preset) const {
  QVariant value;
  InLine([&] {
    file_->sync();
    value = file_->value(address, preset);
  });
  // A text with a comma that someone wrote by hand without quotes reads as a list.
  return value.typeId() == QMetaType::QStringList ? value.toStringList().join(QStringLiteral(", ")) : value.toString();
}

void IniSettings::Write(const QString& address, const QString& value) {
  if (file_->contains(address) && file_->value(address).toString() == value) return;
  const std::int64_t before = SavedAt(path_);
  file_->setValue(address, value);
  file_->sync();
  if (file_->status() != QSettings::NoError) Log("settings: can't save " + address.toStdString());
  MarkLater(path_, before);
}

void IniSettings::InLine(const std::function<void()>& work) const {
  // Without a lock (a folder that can't be written) the work still runs: a desk must start there too.
  if (depth_++ == 0) lock_.Wait();
  work();
  if (--depth_ == 0) lock_.Release();
}

std::string IniSettings::Get(const std::string& application, const std::string& section, const std::string& key,
                             const std::string& preset) const {
  return Read(Address(application, section, key), QString::fromStdString(preset)).toStdString();
}

void IniSettings::Save(const std::string& application, const std::string& section, const std::string& key, const std::string& value) {
  InLine([&] {
    file_->sync();
    Write(Address(application, section, key), QString::fromStdString(value));
  });
}

std::string IniSettings::Change(const std::string& application, const std::string& section, const std::string& key,
                                const std::string& preset, const std::function<std::string(const std::string&)>& change) {
  const QString address = Address(application, section, key);
  std::string value;
  InLine([&] {
    value = change(Read(address, QString::fromStdString(preset)).toStdString());
    Write(address, QString::fromStdString(value));
  });
  return value;
}

}  // namespace karvel
