// The choice of a printer and its paper: the printers of the machine as a list, and what the chosen one can take.
#pragma once

#include <QDialog>
#include <vector>

#include "platform/messages.h"
#include "platform/printer.h"

class QComboBox;
class QListWidget;
class QSpinBox;

namespace karvel {

class QtPrinter;

class PrinterDialog : public QDialog {
 public:
  PrinterDialog(const QtPrinter& printer, const PrinterChoice& preset, QWidget* parent);
  [[nodiscard]] PrinterChoice Choice() const;

 private:
  void ListPrinters();
  // The papers of the printer in the list that is chosen, with the one in `number` if it has it.
  void ListPapers(int number);

  const QtPrinter& printer_;
  const std::vector<PrinterDevice> devices_;
  const PrinterChoice preset_;
  QListWidget* const printers_;
  QComboBox* const papers_;
  QComboBox* const orientation_;
  QSpinBox* const copies_;
};

}  // namespace karvel
