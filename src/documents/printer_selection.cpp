#include "documents/printer_selection.h"

#include <algorithm>

#include "platform/printer.h"
#include "text/turkish.h"

namespace karvel {

void UseChosenPaper(Printer& printer, const Settings& settings, Setting size, Setting orientation) {
  printer.SetPaperSize(static_cast<int>(settings.GetNumber(size)));
  if (const int wanted = static_cast<int>(settings.GetNumber(orientation)); wanted == 1 || wanted == 2)
    printer.SetOrientation(static_cast<Orientation>(wanted));
}

PrinterSelection::PrinterSelection(const DeskParts& parts)
    : screen_(parts.screen), form_(parts.form), settings_(parts.settings), world_(parts.world) {
  Screen& screen = screen_;
  connections_ += screen.MnPop(10).click.Connect([this] { Choose(); });
  connections_ += screen.YazıcıCmd.click.Connect([&screen] { screen.MnPop(10).Press(); });
  connections_ += screen.Frame3.altered.Connect([this] {
    if (screen_.Frame3.Visible()) ShowInUse();
  });
  connections_ += screen.FatFrame.altered.Connect([this, open = false]() mutable {
    if (std::exchange(open, screen_.FatFrame.Visible()) && !open) SelectForStatements();
  });
}

void PrinterSelection::Begin() {
  form_.DökYazıcı = settings_.Get(Setting::StatementPrinter);
  if (form_.DökYazıcı.empty()) form_.DökYazıcı = world_.printer.Current().deviceName;
  SelectForStatements();
}

bool PrinterSelection::Select(const std::string& deviceName) {
  const bool found = world_.printer.MakeCurrent(deviceName);
  ShowInUse();
  return found;
}

bool PrinterSelection::SelectForReports() {
  return SelectOnItsPaper(settings_.Get(Setting::StatementPrinter, form_.DökYazıcı));
}

bool PrinterSelection::SelectForInvoices() {
  return Select(settings_.Get(Setting::InvoicePrinter));
}

void PrinterSelection::SelectForStatements() {
  SelectOnItsPaper(form_.DökYazıcı);
}

bool PrinterSelection::SelectOnItsPaper(const std::string& deviceName) {
  if (!Select(deviceName)) return false;
  UseChosenPaper(world_.printer, settings_, Setting::StatementPaperSize, Setting::StatementOrientation);
  return true;
}

PrinterSelection::Pool PrinterSelection::PoolInFront() const {
  if (screen_.FatFrame.Visible()) return {Setting::InvoicePrinter, Setting::InvoicePaperSize, Setting::InvoiceOrientation};
  return {Setting::StatementPrinter, Setting::StatementPaperSize, Setting::StatementOrientation};
}

// For statements the size stands where the name is meant, so the printer in use is offered.
void PrinterSelection::Preselect() {
  if (screen_.FatFrame.Visible()) {
    Select(settings_.Get(Setting::InvoicePrinter, screen_.MnPop(10).Caption()));
  } else {
    Select(settings_.Get(Setting::StatementPaperSize, form_.DökYazıcı));
  }
}

void PrinterSelection::Choose() {
  Preselect();
  const Printer& printer = world_.printer;
  const PrinterDevice device = printer.Current();
  const auto choice = world_.messages.PrinterDialog({.deviceName = device.deviceName,
                                                     .driverName = device.driverName,
                                                     .port = device.port,
                                                     .copies = printer.Copies(),
                                                     .orientation = static_cast<int>(printer.Orientation()),
                                                     .paperSize = printer.PaperSize()});
  if (!choice) return;
  Use(*choice);
  Keep(*choice);
}

void PrinterSelection::Use(const PrinterChoice& choice) {
  Printer& printer = world_.printer;
  if (!EqualText(choice.deviceName, printer.Current().deviceName)) {
    const std::vector<PrinterDevice> devices = printer.Printers();
    const auto found =
        std::ranges::find_if(devices, [&](const PrinterDevice& device) { return EqualText(device.deviceName, choice.deviceName); });
    if (found != devices.end()) Select(found->deviceName);
  }
  if (choice.paperSize > 0) printer.SetPaperSize(choice.paperSize);
  printer.SetOrientation(choice.orientation == static_cast<int>(Orientation::Landscape) ? Orientation::Landscape : Orientation::Portrait);
  printer.SetCopies(std::max(1, choice.copies));
}

void PrinterSelection::Keep(const PrinterChoice& choice) {
  const Pool pool = PoolInFront();
  settings_.Save(pool.name, choice.deviceName);
  settings_.SaveNumber(pool.size, choice.paperSize);
  settings_.SaveNumber(pool.orientation, choice.orientation);
  if (screen_.FatFrame.Visible()) {
    screen_.MnPop(10).SetCaption(choice.deviceName);
  } else {
    form_.DökYazıcı = choice.deviceName;
  }
  ShowInUse();
}

void PrinterSelection::ShowInUse() {
  screen_.YazıcıCmd.SetCaption("Yazıcı: " + world_.printer.Current().deviceName);
}

}  // namespace karvel
