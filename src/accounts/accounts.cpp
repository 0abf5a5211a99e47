#include "accounts/accounts.h"

#include "accounts/collection_panel.h"
#include "accounts/customer_card.h"
#include "accounts/customer_removal.h"
#include "accounts/day_book_list.h"
#include "accounts/deleted_lines.h"
#include "accounts/grid_sorting.h"
#include "accounts/ledger_view.h"
#include "accounts/line_cancellation.h"
#include "accounts/line_correction.h"
#include "accounts/money_posting.h"
#include "accounts/serial_capture.h"
#include "accounts/stock_card_panel.h"
#include "accounts/stock_list.h"
#include "accounts/stock_receipt.h"
#include "accounts/use_passwords.h"
#include "desk/desk.h"
#include "desk/main_button.h"

namespace karvel {

// One member a feature, in the order in which they connect.
struct Accounts::Features {
  explicit Features(Desk& owner) : desk(owner), parts(owner.Parts()) {}

  Desk& desk;
  const DeskParts& parts;
  MoneyPosting money{parts, desk.Numbers(), desk.Button()};
  CollectionPanel collection{parts, money};
  LineCorrection correction{parts, desk.Button(), desk.Prices()};
  LineCancellation cancellation{parts, desk.Button()};
  DayBookList dayBook{parts, desk.Totals(), desk.Customers()};
  StockReceipt receipt{parts, desk.Numbers()};
  CustomerCard customerCard{parts, desk.Customers()};
  CustomerRemoval customerRemoval{parts, desk.Customers()};
  LedgerView ledgerView{parts};
  GridSorting sorting{parts};
  StockList stockList{parts};
  StockCardPanel stockCard{parts};
  SerialCapture serials{parts};
  UsePasswords passwords{parts};
  DeletedLines deletedLines{parts, passwords};
};

Accounts::Accounts(Desk& desk) : features_(std::make_unique<Features>(desk)) {}

Accounts::~Accounts() = default;

}  // namespace karvel
