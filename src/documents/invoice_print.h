// The invoice's way onto paper: the invoice printer, the layout file, and the number that counts as used once the job was handed over.
#pragma once

#include "books/invoice.h"
#include "desk/parts.h"
#include "documents/invoice_drawing.h"
#include "documents/printer_selection.h"

namespace karvel {

// The invoice printer is the current one as long as this lives; afterwards that of slips and statements is so again.
class InvoicePrinter {
 public:
  InvoicePrinter(PrinterSelection& printers, Screen& screen);
  ~InvoicePrinter();
  InvoicePrinter(const InvoicePrinter&) = delete;
  InvoicePrinter& operator=(const InvoicePrinter&) = delete;
  // Whether the machine has it. Otherwise nothing may be printed, and the quiet line says what to do.
  [[nodiscard]] bool IsThere() const { return there_; }

 private:
  PrinterSelection& printers_;
  bool there_;
};

// How many whole lines the body of the paper holds.
double InvoiceLinesThatFit(const DeskParts& parts);
// How the prices of the desk hold the tax, as the menu of the invoice says.
TaxMode TaxModeOnScreen(const Screen& screen);

// Prints the invoice on the current printer and keeps its number as the last one. False where it did not come out, which is told; an
// invoice that was booked stays booked.
bool PrintInvoice(const DeskParts& parts, const Invoice& invoice, const InvoiceAddress& customer);

}  // namespace karvel
