#include "documents/documents.h"

#include "desk/desk.h"
#include "documents/balance_view.h"
#include "documents/collection_slip.h"
#include "documents/invoice_drag.h"
#include "documents/invoice_options.h"
#include "documents/invoice_panel.h"
#include "documents/logos.h"
#include "documents/print_choice.h"
#include "documents/printer_selection.h"
#include "documents/reports.h"
#include "documents/statement_printing.h"
#include "documents/turnover_panel.h"
#include "documents/z_report.h"
#include "exchange/exchange.h"

namespace karvel {

// One member a feature, in the order in which they connect.
struct Documents::Features {
  Features(Desk& owner, Exchange& beside) : desk(owner), exchange(beside), parts(owner.Parts()) {
    connections += desk.Opening().Connect([this] {
      printers.Begin();
      logos.Begin();
    });
    connections += statements.dayPrinted.Connect([this](const PrintedDay& day) { exchange.SendDayFile(day); });
  }

  Desk& desk;
  Exchange& exchange;
  const DeskParts& parts;
  PrinterSelection printers{parts};
  InvoiceOptions invoiceOptions{parts};
  Logos logos{parts};
  PrintChoice choice{parts};
  CustomerInFront& customer = desk.Customer();
  BalanceView balances{parts};
  StatementPrinting statements{parts, customer, balances};
  CollectionSlipPrinting collections{parts, customer};
  TurnoverPanel turnover{parts, desk.Button(), customer, desk.Overdue(), desk.Groups()};
  Reports reports{parts, printers};
  ZReport zReport{parts, printers};
  InvoicePanel invoices{parts, customer, printers};
  InvoiceDrag invoiceDrag{parts};
  Connections connections;
};

Documents::Documents(Desk& desk, Exchange& exchange) : features_(std::make_unique<Features>(desk, exchange)) {}

Documents::~Documents() = default;

}  // namespace karvel
