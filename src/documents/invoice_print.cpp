#include "documents/invoice_print.h"

#include <cmath>

#include "books/invoice_numbers.h"
#include "books/steps.h"
#include "desk/quiet_line.h"
#include "documents/print_job.h"
#include "platform/clerk_message.h"
#include "platform/files.h"
#include "platform/messages.h"

namespace karvel {
namespace {

const Steps step("PrintInvoice");
constexpr const char* kQuantity = "Miktar";
constexpr const char* kTaxIncluded = "Kdv Dahil";

// As the list of the day book shows quantities.
std::string QuantityFormat(const DeskParts& parts) {
  for (const GridColumn& column : parts.screen.HareketGrid.Columns())
    if (column.field == kQuantity) return column.format;
  return parts.form.QuantityFormat;
}

InvoicePaper PaperOf(const DeskParts& parts, const Invoice& invoice, const InvoiceAddress& customer) {
  InvoicePaper paper;
  paper.invoice = invoice;
  paper.customer = customer;
  for (std::size_t i = 0; i < paper.marks.size(); ++i) paper.marks[i] = parts.screen.MnPop(static_cast<int>(i)).Checked();
  paper.quantityFormat = QuantityFormat(parts);
  paper.mostLines = InvoiceLinesThatFit(parts);
  paper.now = parts.world.clock.Now();
  return paper;
}

std::optional<InvoiceLayout> ReadLayout(const DeskParts& parts) {
  std::string bytes;
  const Status read = parts.world.files.Read(PathIn(parts.form.DataDir, "FatSatir.Dat"), bytes);
  step("layout", read);
  return read.Ok() ? ReadInvoiceLayout(bytes) : std::nullopt;
}

// What was booked stands, and no other slip will tell of it.
void TellUnprinted(const DeskParts& parts, const Invoice& invoice, const std::string& why) {
  const std::string booked = invoice.id.empty() ? "" : "; kaydı yapıldı, Düz Fatura ile yeniden yazdırılabilir";
  Tell(parts.screen, why + booked);
}

}  // namespace

InvoicePrinter::InvoicePrinter(PrinterSelection& printers, Screen& screen) : printers_(printers), there_(printers.SelectForInvoices()) {
  if (!there_) Tell(screen, "Fatura yazıcısı bulunamadı: fatura menüsünden bir yazıcı seçin");
}

InvoicePrinter::~InvoicePrinter() {
  if (there_) printers_.SelectForStatements();
}

double InvoiceLinesThatFit(const DeskParts& parts) {
  return std::floor(parts.settings.GetNumber(Setting::InvoiceLines));
}

TaxMode TaxModeOnScreen(const Screen& screen) {
  return screen.MnPop(13).Caption() == kTaxIncluded ? TaxMode::Included : TaxMode::Added;
}

bool PrintInvoice(const DeskParts& parts, const Invoice& invoice, const InvoiceAddress& customer) {
  const auto layout = ReadLayout(parts);
  if (!layout) {
    TellUnprinted(parts, invoice, "Fatura " + invoice.number + " yazdırılmadı: FatSatir.Dat yok ya da okunamıyor");
    parts.world.messages.MessageBox("Fatura Satır Bilgileri Yok", "", MessageIcon::None, MessageButtons::Ok);
    return false;
  }
  PrintJob job(parts, "Fatura " + invoice.number);
  const PrintFont font = job.PrepareInvoice();
  const PrinterMeasures measures(parts.world.printer, ScaleMode::Twips);
  auto drawing = DrawInvoice(PaperOf(parts, invoice, customer), *layout, measures, font);
  if (!drawing) {
    TellUnprinted(parts, invoice, "Fatura " + invoice.number + " yazdırılmadı: tutar yazıyla yazılamayacak kadar büyük");
    return false;
  }
  if (!job.Print(*drawing).Ok()) {
    TellUnprinted(parts, invoice, parts.screen.Durum.Caption());
    return false;
  }
  // The invoice stands whatever becomes of its number: the next one passes over those that the book bears.
  const std::string printed = parts.screen.Durum.Caption();
  parts.settings.Save(Setting::InvoiceNo, BareInvoiceNumber(invoice.number));
  if (parts.screen.Durum.Caption() != printed) Tell(parts.screen, printed + "; numarası ayarlara yazılamadı");
  return true;
}

}  // namespace karvel
