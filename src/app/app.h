// The program put together: the adapters to this machine, the stores, the desk and its window.
#pragma once

#include <memory>
#include <string>

class QApplication;

namespace karvel {

class Clock;
class CodeScanner;
class Connection;
class Desk;
class DeskWindow;
class DiskFiles;
class EventLoop;
class Messages;
class QtPrinter;
class ScannerKeys;

// What another program around the same desk brings of its own; null: the machine's is used. All of it outlives the App.
struct AppParts {
  Clock* clock = nullptr;
  EventLoop* loop = nullptr;
  Messages* messages = nullptr;
  Connection* connection = nullptr;
  // A robot makes no sound and leaves the user's desktop alone: its shortcuts go to a folder of the home. It brings the codes itself, and
  // uses a scanner besides only where the settings name its port.
  bool unattended = false;
  // Whether the printers of the system are used beside "Velmora PDF".
  bool systemPrinters = true;
};

class App {
 public:
  App(QApplication& application, const std::string& title, const AppParts& parts = {});
  ~App();
  App(const App&) = delete;
  App& operator=(const App&) = delete;

  // False: the program ends at once, without a window.
  bool Load();
  // Shows the window where it was kept; the first time it fills the screen.
  void ShowWindow();
  // Load, then the window until it closes. The program's exit code.
  int Run();

  [[nodiscard]] Desk& TheDesk();
  [[nodiscard]] DeskWindow& TheWindow();
  [[nodiscard]] const DiskFiles& TheFiles() const;
  [[nodiscard]] CodeScanner& TheScanner();
  [[nodiscard]] QtPrinter& ThePrinter();
  [[nodiscard]] ScannerKeys& TheScannerKeys();

 private:
  struct Composition;
  std::unique_ptr<Composition> all_;
};

}  // namespace karvel
