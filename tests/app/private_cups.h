// A printing system of the test's own, in a folder of its own, with one queue whose printer listens on a port of this machine.
#pragma once

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QTcpServer>
#include <QTcpSocket>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "tests/app/paper_tools.h"
#include "tests/support/temp_folder.h"

namespace karvel::testing {

class PrivateCups {
 public:
  // The queue "Kasa" is there when this returns; programs of this process find it.
  PrivateCups() {
    setenv("CUPS_SERVER", Socket().c_str(), 1);
    std::filesystem::permissions(folder_.Path(), std::filesystem::perms::all);
    WriteConfiguration();
    Start();
    printer_.listen(QHostAddress::LocalHost);
    WritePrinterDescription();
    MakeQueue();
  }
  ~PrivateCups() { Stop(); }
  PrivateCups(const PrivateCups&) = delete;
  PrivateCups& operator=(const PrivateCups&) = delete;

  // "Kasa" as it was at first, with no job in it.
  void MakeQueue() {
    Run("lpadmin -x Kasa");
    Run("lpadmin -p Kasa -E -v socket://127.0.0.1:" + std::to_string(printer_.serverPort()) + " -P " + In("kasa.ppd"));
    Run("lpadmin -d Kasa");
  }

  static void Run(const std::string& command) { OutputOf(command); }

  void Start() {
    process_ = fork();
    if (process_ == 0) {
      prctl(PR_SET_PDEATHSIG, SIGTERM);  // a test that crashes leaves nothing behind
      const int nowhere = open("/dev/null", O_RDWR);
      for (const int handle : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nowhere, handle);
      execlp("cupsd", "cupsd", "-f", "-c", In("cupsd.conf").c_str(), "-s", In("cups-files.conf").c_str(), nullptr);
      _exit(127);
    }
    for (int i = 0; i < 200 && OutputOf("lpstat -r").find("not running") != std::string::npos; ++i)
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  void Stop() {
    if (process_ <= 0) return;
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
    process_ = 0;
  }

  // It takes connections and answers nobody, until it goes on.
  void Hang() const { kill(process_, SIGSTOP); }
  void GoOn() const { kill(process_, SIGCONT); }

  // The PDF that the printer received; "" when nothing came in the time.
  std::string Received(int milliseconds = 20000) {
    if (!printer_.waitForNewConnection(milliseconds)) return "";
    const std::unique_ptr<QTcpSocket> from(printer_.nextPendingConnection());
    QByteArray all;
    // Whoever sends keeps the line open for what the printer might answer.
    while (from->waitForReadyRead(all.trimmed().endsWith("%%EOF") ? 500 : 5000) || from->bytesAvailable()) all += from->readAll();
    const std::string path = In("received.pdf");
    std::ofstream(path, std::ios::binary) << all.mid(std::max<qsizetype>(0, all.indexOf("%PDF"))).toStdString();
    return path;
  }

 private:
  [[nodiscard]] std::string In(const std::string& name) const { return folder_.Path() + "/" + name; }
  [[nodiscard]] std::string Socket() const { return In("sock"); }

  void WriteConfiguration() const {
    for (const char* const name : {"root/ppd", "spool/tmp", "cache", "state", "log"}) std::filesystem::create_directories(In(name));
    std::ofstream(In("cupsd.conf")) << "Listen " << Socket() << "\nDefaultAuthType None\nWebInterface No\nBrowsing Off\n"
                                    << "<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
                                    << "<Policy default>\n<Limit All>\nOrder allow,deny\nAllow all\n</Limit>\n</Policy>\n";
    std::ofstream(In("cups-files.conf")) << "ServerRoot " << In("root") << "\nRequestRoot " << In("spool") << "\nTempDir "
                                         << In("spool/tmp") << "\nCacheDir " << In("cache") << "\nStateDir " << In("state") << "\nErrorLog "
                                         << In("log/error") << "\nAccessLog " << In("log/access") << "\nPageLog " << In("log/page")
                                         << "\nSystemGroup root\n";
  }

  // A printer of PDFs that takes rolls too.
  void WritePrinterDescription() const {
    const std::pair<const char*, int> rolls[] = {{"Roll58/Rulo 58 mm", 164}, {"Roll80/Rulo 80 mm", 227}};  // widths in points
    std::ifstream generic("/usr/share/ppd/cupsfilters/Generic-PDF_Printer-PDF.ppd");
    std::ofstream own(In("kasa.ppd"));
    for (std::string line; std::getline(generic, line);) {
      own << line << "\n";
      for (const auto& [name, width] : rolls) {
        const std::string size = std::to_string(width) + " 842";
        if (line.starts_with("*DefaultPageSize")) own << "*PageSize " << name << ": \"<</PageSize[" << size << "]>>setpagedevice\"\n";
        if (line.starts_with("*DefaultPageRegion")) own << "*PageRegion " << name << ": \"<</PageSize[" << size << "]>>setpagedevice\"\n";
        if (line.starts_with("*DefaultImageableArea")) own << "*ImageableArea " << name << ": \"11 0 " << width - 11 << " 842\"\n";
        if (line.starts_with("*DefaultPaperDimension")) own << "*PaperDimension " << name << ": \"" << size << "\"\n";
      }
    }
  }

  TempFolder folder_;
  QTcpServer printer_;
  pid_t process_ = 0;
};

// The toolkit finds the printing system once: all tests of a process share it.
inline PrivateCups& SharedCups() {
  static PrivateCups shared;
  return shared;
}

}  // namespace karvel::testing
