#include "app/app.h"

#include <unistd.h>

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QStandardPaths>
#include <QTranslator>

#include "accounts/accounts.h"
#include "app/curl_ftp.h"
#include "app/desk_window.h"
#include "app/disk_files.h"
#include "app/ini_settings.h"
#include "app/log_file.h"
#include "app/qt_event_loop.h"
#include "app/qt_keyboard.h"
#include "app/qt_messages.h"
#include "app/qt_printer.h"
#include "app/qt_shell.h"
#include "app/qt_window.h"
#include "app/scanner_keys.h"
#include "app/serial_scanner.h"
#include "app/start_notice.h"
#include "app/system_clock.h"
#include "app/system_connection.h"
#include "app/system_printers.h"
#include "app/theme.h"
#include "app/zint_barcodes.h"
#include "desk/desk.h"
#include "documents/documents.h"
#include "exchange/access/access_databases.h"
#include "exchange/backup_archive.h"
#include "exchange/exchange.h"
#include "exchange/old_files.h"
#include "exchange/zip/zip_archives.h"
#include "platform/messages.h"
#include "platform/unfinished_files.h"
#include "settings/settings.h"
#include "settings/terminal.h"
#include "store/engine_of_place.h"
#include "store/postgres/postgres_engine.h"
#include "store/sqlite/new_store_file.h"
#include "store/sqlite/sqlite_engine.h"
#include "store/stores.h"

namespace karvel {
namespace {

std::string DesktopFolder(const DiskFiles& files, bool unattended) {
  if (unattended) return files.HomeFolder() + "/Desktop";
  return QStandardPaths::writableLocation(QStandardPaths::DesktopLocation).toStdString();
}

// The scratch file is a terminal's own, and lies where programs are written: beside the program, in an installation in the home.
std::string ScratchFile(const DiskFiles& files, const std::string& title) {
  const std::string number = TerminalNumber(TerminalNo(title));
  const bool writable = ::access(files.ProgramFolder().c_str(), W_OK) == 0;
  if (number == "1" && writable) return {};
  return (writable ? files.ProgramFolder() : files.HomeFolder() + "/program") + "/DataTemp" + (number == "1" ? "" : number) + ".Mdb";
}

SqliteOptions EngineOptions(const DiskFiles& files, const std::string& title, OldFiles& oldFiles) {
  SqliteOptions options;
  options.preparation = &oldFiles;
  options.programFolder = files.ProgramFolder();
  options.scratchFile = ScratchFile(files, title);
  return options;
}

// The terminal's own files, the main machine's stores, and the scratch file beside these.
std::unique_ptr<Engine> EngineOfTerminal(const DiskFiles& files, const std::string& title, OldFiles& oldFiles) {
  const SqliteOptions options = EngineOptions(files, title, oldFiles);
  SqliteOptions scratch = options;
  scratch.scratchAlone = true;
  PostgresOptions server;
  server.makeFile = MakeSqliteStoreFile;
  return MakeEngineOfPlace(MakeSqliteEngine(options), MakePostgresEngine(server), MakeSqliteEngine(scratch));
}

int DotsPerInch(const Settings& options) {
  const double told = options.GetNumber(Setting::PrintResolution);
  return told >= 72 && told <= 1200 ? static_cast<int>(told) : QtPrinter::kDotsPerInch;
}

std::unique_ptr<SystemPrinters> PrintersOfThisMachine(bool used) {
  if (used) return std::make_unique<SystemPrinters>();
  return std::make_unique<NoPrinters>();
}

template <typename T>
T& Either(T* brought, T& own) {
  return brought ? *brought : own;
}

}  // namespace

// In the order in which they are built, each on those before it.
struct App::Composition {
  Composition(const std::string& title, const AppParts& parts)
      : log(files.HomeFolder(), title),
        settings(files.HomeFolder()),
        options(settings, title),
        systemPrinters(PrintersOfThisMachine(parts.systemPrinters)),
        printer(files, Either<Clock>(parts.clock, clock), *systemPrinters, DotsPerInch(options)),
        messages(files, printer, options),
        shell(files, DesktopFolder(files, parts.unattended), parts.unattended),
        window(files.HomeFolder()),
        scanner(options, parts.unattended ? SerialScanner::Device::IfNamed : SerialScanner::Device::Expected),
        stores(EngineOfTerminal(files, title, oldFiles)),
        desk({.clock = Either<Clock>(parts.clock, clock),
              .loop = Either<EventLoop>(parts.loop, loop),
              .files = files,
              .messages = Either<Messages>(parts.messages, messages),
              .settings = settings,
              .shell = shell,
              .keyboard = keyboard,
              .window = window,
              .scanner = scanner,
              .connection = Either<Connection>(parts.connection, connection),
              .ftp = ftp,
              .printer = printer,
              .barcodes = barcodes,
              .archives = archives,
              .stores = stores},
             title),
        deskWindow(desk) {
    window.Attach(&deskWindow);
    // What a desk that was killed has left of a file half written.
    for (const std::string& folder : {files.HomeFolder(), files.RealPath("C:\\KarvelData"), files.RealPath(QtPrinter::kPdfFolder)})
      SweepUnfinished(folder);
    const std::string backups = BackupsOn("C:");
    for (const std::string& day : files.List(backups)) SweepUnfinished(files.RealPath(PathIn(backups, day)));
  }

  DiskFiles files{FilePlaces::OfThisMachine(QCoreApplication::applicationDirPath().toStdString())};
  LogFile log;
  IniSettings settings;
  Settings options;
  SystemClock clock;
  QtEventLoop loop;
  const std::unique_ptr<SystemPrinters> systemPrinters;
  QtPrinter printer;
  ZintBarcodes barcodes;
  ZipArchives archives;
  QtMessages messages;
  QtShell shell;
  QtKeyboard keyboard;
  QtWindow window;
  SerialScanner scanner;
  SystemConnection connection;
  CurlFtp ftp{files};
  AccessDatabases oldDatabases;
  OldFiles oldFiles{oldDatabases, MakeSqliteStoreFile};
  Stores stores;
  Desk desk;
  Accounts accounts{desk};
  Exchange exchange{desk};
  Documents documents{desk, exchange};
  DeskWindow deskWindow;
  ScannerKeys keys{scanner};  // hears a key before the window does
};

App::App(QApplication& application, const std::string& title, const AppParts& parts) {
  QLocale::setDefault(QLocale(QLocale::Turkish, QLocale::Turkey));
  // The words of the font and file boxes.
  auto* const words = new QTranslator(&application);
  if (words->load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(words);
  ApplyTheme(application);
  all_ = std::make_unique<Composition>(title, parts);
  // The program ends when the desk's window has closed, whatever box or menu was open over it.
  QApplication::setQuitOnLastWindowClosed(false);
  QObject::connect(&all_->deskWindow, &DeskWindow::closed, &application, [] { QCoreApplication::exit(0); });
}

App::~App() = default;

bool App::Load() {
  bool loaded = false;
  {
    const StartNotice waiting(all_->desk.screen);
    loaded = all_->desk.Load();
  }
  // Also where the start then failed: the files have other names since.
  if (const std::string report = all_->oldFiles.Report(); !report.empty())
    all_->desk.Parts().world.messages.MessageBox(report, "Eski Veri Dosyaları", MessageIcon::Information, MessageButtons::Ok);
  return loaded;
}

void App::ShowWindow() {
  all_->window.Show();
}

int App::Run() {
  if (!Load()) return 0;
  ShowWindow();
  return QCoreApplication::exec();
}

Desk& App::TheDesk() {
  return all_->desk;
}
DeskWindow& App::TheWindow() {
  return all_->deskWindow;
}
const DiskFiles& App::TheFiles() const {
  return all_->files;
}
CodeScanner& App::TheScanner() {
  return all_->scanner;
}
QtPrinter& App::ThePrinter() {
  return all_->printer;
}
ScannerKeys& App::TheScannerKeys() {
  return all_->keys;
}

}  // namespace karvel
