#include "desk/sale_confirmation.h"

#include "books/slip_numbers.h"
#include "books/sources.h"
#include "books/steps.h"
#include "books/stored_cards.h"
#include "desk/captions.h"
#include "desk/completion.h"
#include "desk/quiet_line.h"
#include "desk/unknown_outcome.h"
#include "platform/event_loop.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {
const Steps step("PostLine");
constexpr const char* kItemGone = "Satılmadı: ürünün kartı başka bir terminalde silinmiş";
}  // namespace

SaleConfirmation::SaleConfirmation(const DeskParts& parts, MainButton& button, CustomerInFront& customer, BalanceDisplay& balance)
    : shop_(parts.shop),
      screen_(parts.screen),
      form_(parts.form),
      cursors_(parts.cursors),
      settings_(parts.settings),
      world_(parts.world),
      button_(button),
      customer_(customer),
      balance_(balance) {
  button.Serve(MainTask::PostSale, [this] { Confirm(); });
}

void SaleConfirmation::Confirm() {
  if (!LineIsWhole()) {
    button_.FollowAmounts();
    return;
  }
  const bool posted = button_.Post([this]() -> Status {
    // One number serves all lines of a slip; printing the slip clears it.
    if (form_.SlipNo.empty()) {
      const auto number = TakeSlipNumber(shop_, settings_);
      if (!number) return number.error();
      form_.SlipNo = *number;
    }
    return PostLine();
  });
  if (posted && SearchesByBarcode(screen_)) screen_.Text1(1).SetFocus();
}

// Whether the screen names what is sold; if not, the focus goes to the field that lacks it.
bool SaleConfirmation::LineIsWhole() {
  const auto missing = [this](Element& field, const char* why) {
    field.SetFocus();
    Tell(screen_, why);
    return false;
  };
  const Cursor& item = cursors_.StokData;
  const std::string name = Trim(screen_.Text1(1).Text());
  if (name.empty() || !item.HasCurrent() || !NamesCard(name, item.Text("StokAdi"))) return missing(screen_.Text1(1), kNoItem);
  // A payment that was typed in a sale opens the button too, but there is nothing to sell.
  if (NumberOrZero(screen_.Text2(1).Text()) == 0) {
    missing(screen_.Text2(1), "Satılmadı: miktarı yazın");
    if (PaymentWaits()) TellPaymentNotTaken(screen_);
    return false;
  }
  Cursor stored(world_.stores, "sold");
  // Its card was deleted at another terminal.
  if (OpenStoredItem(stored, item) == Stored::Gone) return missing(screen_.Text1(1), kItemGone);
  // An item looked up in the price field leaves its name there, which is no price.
  if (!IsNumeric(screen_.Text2(0).Text())) return missing(screen_.Text2(0), "Satılmadı: fiyatı yazın");
  return true;
}

SaleLine SaleConfirmation::ReadLine() const {
  SaleLine line;
  line.mode = ModeOnScreen(screen_);
  line.itemInFront = cursors_.StokData.CurrentKey();
  line.customerCode = form_.CurrentCustomerCode;
  line.customerName = screen_.Text1(0).Text();
  line.priceName = PriceNameOnScreen(screen_);
  line.price = NumberOrZero(screen_.Text2(0).Text());
  line.priceFormat = form_.PriceFormat;
  line.quantity = NumberOrZero(screen_.Text2(1).Text());
  // The amount is the one on the screen: it was worked out in the unit that the clerk saw.
  line.amount = NumberOrZero(screen_.Label2.Caption());
  line.slipNo = form_.SlipNo;
  line.itemSerial = form_.ScannedSerial;
  line.serials = screen_.List1.Items();
  // With a group chosen the sale belongs to that salesman's group; the first entry stands for no group.
  if (ListsCustomerGroups(screen_) && screen_.GurupCombo.ListIndex() > 0) line.salesmanGroup = screen_.GurupCombo.Text();
  return line;
}

Status SaleConfirmation::PostLine() {
  const SaleLine line = ReadLine();
  const std::string item = cursors_.StokData.Text("StokAdi");
  return ShowBooked<BookedLine>(form_, BookSaleLine(shop_, line), [this, line, item](const BookedLine& booked) {
    const bool newCustomer = booked.customerCode != form_.CurrentCustomerCode;
    ShowLine(booked);
    TellSold(line, item);
    if (newCustomer) Tell(screen_, screen_.Durum.Caption() + "; müşteriye yeni kart açıldı");
  });
}

void SaleConfirmation::ShowLine(const BookedLine& booked) {
  form_.CurrentLineId = booked.id;
  // The sale goes on under the code of the card that the line made; otherwise the next line would make another.
  const bool newCustomer = booked.customerCode != form_.CurrentCustomerCode;
  form_.CurrentCustomerCode = booked.customerCode;
  if (newCustomer) customer_.RefreshList();  // his card may be in it now
  customer_.StandQuietlyOn(booked.customerCode);
  balance_.ShowSided(booked.balance);
  {
    const Muted muted(form_.RepositionGuard, Mute::DayBook);
    step("day book", newCustomer ? cursors_.HareketData.Open(sources::DayBookOf(booked.customerCode)) : cursors_.HareketData.Refresh());
  }
  step("refresh due dates", cursors_.VadeData.Refresh());
  world_.loop.RunPendingButInput();
  screen_.List1.ClearItems();
  ResetFields();
}

bool SaleConfirmation::PaymentWaits() const {
  return NumberOrZero(screen_.Text2(2).Text()) != 0;
}

void SaleConfirmation::TellSold(const SaleLine& line, const std::string& item) {
  std::string said = PlainNumber(line.quantity) + " × " + item + " " + Format(line.amount, "Standard") + " kaydedildi";
  if (line.mode != LineMode::Sale) said += " (" + std::string(NameOf(line.mode)) + ")";
  if (PaymentWaits()) said += "; " + screen_.Text2(2).Text() + " ödeme alınmadı";
  Tell(screen_, said);
}

void SaleConfirmation::ResetFields() {
  screen_.Text2(1).SetText("0");
  screen_.Label1(2).SetCaption(std::string(NameOf(PriceName::First)));
  screen_.Text2(0).SetText(PlainNumber(form_.PriceSlots[0]));
  screen_.Frame4.SetVisible(false);  // a serial read from here on would belong to no line
  screen_.StokGrid.SetFocus();
}

}  // namespace karvel
