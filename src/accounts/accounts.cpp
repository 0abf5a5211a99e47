#include "accounts/accounts.h"

#include "accounts/collection_panel.h"
#include "accounts/customer_card.h"
#include "accounts/customer_removal.h"
#include "accounts/day_book_list.h"
#include "accounts/deleted_lines.h"
#include "accounts/grid_sorting.h"
#include "accounts/line_cancellation.h"
#include "accounts/line_correction.h"
#include "accounts/money_confirmation.h"
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
  MainButton& button = desk.Button();
  CustomerInFront& customer = desk.Customer();
  BalanceDisplay& figure = desk.Balance();
  MoneyConfirmation money{parts, button, customer};
  CollectionPanel collection{parts, money, customer, figure};
  LineCorrection correction{parts, button, desk.Prices()};
  LineCancellation cancellation{parts, button, customer, figure};
  DayBookList dayBook{parts, button, customer, figure, desk.Totals()};
  StockReceipt receipt{parts, customer};
  CustomerCard customerCard{parts, customer};
  CustomerRemoval customerRemoval{parts, customer};
  GridSorting sorting{parts};
  StockList stockList{parts, button, figure, desk.Overdue()};
  StockCardPanel stockCard{parts};
  SerialCapture serials{parts, button};
  UsePasswords passwords{parts, customer};
  DeletedLines deletedLines{parts, passwords, button, customer, figure, desk.Groups()};
};

Accounts::Accounts(Desk& desk) : features_(std::make_unique<Features>(desk)) {}

Accounts::~Accounts() = default;

}  // namespace karvel
