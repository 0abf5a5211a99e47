#include "app/qt_shell.h"

#include <sys/stat.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <algorithm>
#include <utility>

#include "app/atomic_file.h"
#include "app/only_copy.h"
#include "platform/files.h"
#include "platform/log.h"

namespace karvel {
namespace {

// A program's path as a desktop entry wants it: in quotes, with what a shell would read escaped, and the entry's own escapes on top.
std::string ExecValue(const std::string& program) {
  std::string value = "\"";
  for (const char letter : program) {
    if (letter == '\\') {
      value += "\\\\\\\\";
      continue;
    }
    if (letter == '"' || letter == '`' || letter == '$') value += "\\\\";
    value += letter;
    if (letter == '%') value += '%';
  }
  return value + "\"";
}

std::string FileName(std::string title) {
  std::replace(title.begin(), title.end(), '/', '_');
  return title;
}

}  // namespace

QtShell::QtShell(const Files& files, std::string desktopFolder, bool silent)
    : files_(files), desktopFolder_(std::move(desktopFolder)), silent_(silent) {}

QtShell::~QtShell() = default;

std::expected<Claim, Status> QtShell::ClaimOnlyCopy(const std::string& title) {
  auto& copy = claimed_[title];
  if (!copy) copy = std::make_unique<OnlyCopy>(files_.HomeFolder() + "/lock/" + FileName(title), [this] { startedAgain(); });
  return copy->Claim();
}

void QtShell::MakeShortcut(const std::string& title) {
  if (desktopFolder_.empty() || !QFileInfo(QString::fromStdString(desktopFolder_)).isDir()) return;
  // The link of this terminal, where the installation made one beside the program: the title comes from the name it is started by.
  const std::string folder = QCoreApplication::applicationDirPath().toStdString();
  const std::string link = folder + "/" + title;
  const bool linked = QFileInfo::exists(QString::fromStdString(link));
  const std::string program = linked ? link : QCoreApplication::applicationFilePath().toStdString();
  const std::string picture = files_.ProgramFolder() + "/Logo.jpg";

  std::string entry =
      "[Desktop Entry]\nType=Application\nName=" + title + "\nExec=" + ExecValue(program) + "\nPath=" + folder + "\nTerminal=false\n";
  if (files_.Exists(picture)) entry += "Icon=" + picture + "\n";
  const std::string path = desktopFolder_ + "/" + FileName(title) + ".desktop";
  AtomicFile file(path);
  file.Append(entry);
  const Status status = file.Finish();
  if (!status.Ok()) {
    Log("shortcut: " + status.Message());
  } else if (chmod(path.c_str(), 0755) != 0) {
    Log("shortcut: can't make it startable");
  }
}

void QtShell::PlaySound(const std::string& path) {
  const std::string real = files_.RealPath(path);
  if (silent_ || real.empty() || !files_.Exists(path)) return;
  for (const char* player : {"paplay", "aplay"}) {
    const QString program = QStandardPaths::findExecutable(QString::fromLatin1(player));
    if (program.isEmpty()) continue;
    QProcess::startDetached(program, {QString::fromStdString(real)});
    return;
  }
}

}  // namespace karvel
