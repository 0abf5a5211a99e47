#include "desk/desk.h"

#include "desk/balance_display.h"
#include "desk/booking_panels.h"
#include "desk/customer_field.h"
#include "desk/customer_in_front.h"
#include "desk/date_index.h"
#include "desk/day_total.h"
#include "desk/desk_font.h"
#include "desk/double_tap_hints.h"
#include "desk/fixed_window.h"
#include "desk/group_list.h"
#include "desk/list_filter.h"
#include "desk/long_press.h"
#include "desk/loyalty_card.h"
#include "desk/main_button.h"
#include "desk/main_machine.h"
#include "desk/on_screen_keyboard.h"
#include "desk/options.h"
#include "desk/overdue_notice.h"
#include "desk/pad_answer.h"
#include "desk/pad_number.h"
#include "desk/pad_opening.h"
#include "desk/parts.h"
#include "desk/price_floor.h"
#include "desk/price_selection.h"
#include "desk/product_field.h"
#include "desk/quiet_line.h"
#include "desk/sale_confirmation.h"
#include "desk/sale_fields.h"
#include "desk/sale_mode.h"
#include "desk/shut_down.h"
#include "desk/start_up.h"
#include "desk/stock_frame.h"
#include "desk/tapped_search.h"
#include "desk/unknown_outcome.h"
#include "desk/unreadable_notice.h"
#include "desk/waiting_notice.h"
#include "desk/way_out.h"
#include "platform/clerk_message.h"

namespace karvel {

// Built in the order in which they connect: a price is worked out before the fields that show it follow.
struct Desk::Features {
  Features(Desk& desk, const World& world)
      : settings(world.settings, desk.title_),
        cursors(desk.cursors),
        parts{desk.screen, desk.form, desk.cursors, settings, world, Shop{world.stores, world.clock, desk.form.TerminalNo}} {
    connections += settings.notSaved.Connect([&screen = desk.screen](const Status& why) { Tell(screen, ClerkMessage(why)); });
  }

  Settings settings;
  Cursors& cursors;
  DeskParts parts;
  WaitingNotice waiting{parts};
  UnreadableNotice unreadable{parts};
  DateIndex dateIndex{cursors};
  BalanceDisplay balance{parts.screen};
  DayTotal dayTotal{parts, balance};
  OverdueNotice overdue{parts};
  CustomerInFront customer{parts, balance, dayTotal, overdue};
  CustomerPanels panels{parts, customer};
  MainButton button{parts};
  UnknownOutcome unknownOutcome{parts, button};
  PriceFloor floor{parts};
  PriceSelection prices{parts, customer, floor};
  SaleFields fields{parts, floor, button};
  GroupList groups{parts, prices, customer};
  DoubleTapHints hints{parts};
  SaleMode saleMode{parts, prices, button, customer, balance, dayTotal, groups};
  CustomerField customerField{parts, customer};
  ListFilter filter{parts, customer, prices};
  PadNumber padNumber{parts};
  PadAnswer padAnswer{parts, button};
  PadOpening padOpening{parts, padNumber};
  WayOut wayOut{parts};
  ProductField product{parts, prices, button};
  LoyaltyCard loyaltyCard{parts, customer};
  OnScreenKeyboard keyboard{parts};
  TappedSearch taps{parts, customer, prices};
  SaleConfirmation posting{parts, button, customer, balance};
  Options options{parts, prices};
  StockFrame stockFrame{parts};
  FixedWindow window{parts};
  LongPress longPress{parts};
  DeskFont font{parts};
  StartUp startUp{parts, {customer, balance, button, groups, prices, options, window, font, stockFrame}};
  MainMachine mainMachine{parts, startUp, customer};
  ShutDown shutDown{parts, longPress};
  Connections connections;
};

Desk::Desk(const World& world, std::string title)
    : cursors(world.stores), world_(world), title_(std::move(title)), features_(std::make_unique<Features>(*this, world_)) {}

Desk::~Desk() = default;

const DeskParts& Desk::Parts() const {
  return features_->parts;
}
BalanceDisplay& Desk::Balance() const {
  return features_->balance;
}
CustomerInFront& Desk::Customer() const {
  return features_->customer;
}
DayTotal& Desk::Totals() const {
  return features_->dayTotal;
}
MainButton& Desk::Button() const {
  return features_->button;
}
GroupList& Desk::Groups() const {
  return features_->groups;
}
OverdueNotice& Desk::Overdue() const {
  return features_->overdue;
}
PriceSelection& Desk::Prices() const {
  return features_->prices;
}
SaleConfirmation& Desk::Posting() const {
  return features_->posting;
}
Signal<>& Desk::Upkeep() const {
  return features_->startUp.upkeep;
}
Signal<>& Desk::Opening() const {
  return features_->startUp.opening;
}

Signal<>& Desk::Closing() const {
  return features_->shutDown.closing;
}

bool Desk::Load() {
  return features_->startUp.Load();
}
void Desk::Activate() {
  features_->startUp.Activate();
}
bool Desk::OpenStoresAnew() {
  return features_->startUp.OpenAnew();
}
bool Desk::CloseRequested(bool byProgram) {
  return features_->shutDown.CloseRequested(byProgram);
}

}  // namespace karvel
