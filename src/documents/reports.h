// The reports behind Command1, by what the list at rest shows: the order list or the turnover over the day book, the stock status over the
// stock cards.
#pragma once

#include <expected>
#include <vector>

#include "desk/captions.h"
#include "desk/list_in_front.h"
#include "desk/parts.h"
#include "documents/print_job.h"
#include "documents/printer_selection.h"
#include "documents/stock_status.h"
#include "documents/turnover_report.h"
#include "platform/signal.h"

namespace karvel {

// Whether Command1 prints a report; otherwise it opens the print choice.
inline bool PrintsReport(const Screen& screen) {
  return AtRest(screen) && !ListsCustomers(screen);
}

class Reports {
 public:
  Reports(const DeskParts& parts, PrinterSelection& printers);

 private:
  void Print();
  void PrintOrders();
  void PrintTurnover();
  void PrintStockStatus();
  void PrintDrawing(PrintJob& job, const std::function<Drawing(const Measures&, const PrintFont&)>& draw);
  // What was sold of each card in the stock list, in its order; the cards without a sale left out.
  std::expected<std::vector<SoldItem>, Status> SoldItems(PrintJob& job, const DateTime& from, const DateTime& until) const;
  std::expected<std::vector<StockLine>, Status> StockLines(PrintJob& job) const;

  const DeskParts& parts_;
  PrinterSelection& printers_;
  Screen& screen_;
  const World& world_;
  Connections connections_;
};

}  // namespace karvel
