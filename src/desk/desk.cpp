#include "desk/desk.h"

#include "desk/customer_list.h"
#include "desk/day_total.h"
#include "desk/list_filter.h"
#include "desk/main_button.h"
#include "desk/options.h"
#include "desk/parts.h"
#include "desk/price_selection.h"
#include "desk/product_field.h"
#include "desk/running_numbers.h"
#include "desk/sale_fields.h"
#include "desk/sale_mode.h"
#include "desk/sale_posting.h"
#include "desk/shut_down.h"
#include "desk/start_up.h"
#include "desk/tapped_search.h"
#include "desk/way_out.h"
#include "desk/window_rule.h"

namespace karvel {

// Built in the order in which they connect: a price is worked out before the fields that show it follow.
struct Desk::Features {
  Features(Desk& desk, const World& world)
      : settings(world.settings, desk.title_), parts{desk.screen, desk.form, desk.cursors, settings, world} {}

  Settings settings;
  DeskParts parts;
  RunningNumbers numbers{parts};
  DayTotal dayTotal{parts};
  PriceSelection prices{parts};
  SaleFields fields{parts, prices};
  SaleMode saleMode{parts, prices, fields, dayTotal};
  CustomerList customers{parts, prices, dayTotal};
  ListFilter filter{parts, customers};
  WayOut wayOut{parts};
  ProductField product{parts};
  TappedSearch taps{parts, customers, prices};
  SalePosting posting{parts, numbers};
  MainButton mainButton{parts, posting};
  Options options{parts, prices};
  WindowRule windowRule{parts};
  StartUp startUp{parts, customers, options, prices, windowRule};
  ShutDown shutDown{parts, windowRule};
};

Desk::Desk(const World& world, std::string title)
    : cursors(world.stores), world_(world), title_(std::move(title)), features_(std::make_unique<Features>(*this, world_)) {}

Desk::~Desk() = default;

const DeskParts& Desk::Parts() const {
  return features_->parts;
}
RunningNumbers& Desk::Numbers() const {
  return features_->numbers;
}
DayTotal& Desk::Totals() const {
  return features_->dayTotal;
}
PriceSelection& Desk::Prices() const {
  return features_->prices;
}
SaleFields& Desk::Fields() const {
  return features_->fields;
}
CustomerList& Desk::Customers() const {
  return features_->customers;
}
SalePosting& Desk::Posting() const {
  return features_->posting;
}
MainButton& Desk::Button() const {
  return features_->mainButton;
}
Signal<>& Desk::Opening() const {
  return features_->startUp.opening;
}

bool Desk::Load() {
  return features_->startUp.Load();
}
void Desk::Activate() {
  features_->startUp.Activate();
}
bool Desk::CloseRequested(bool byProgram) {
  return features_->shutDown.CloseRequested(byProgram);
}

}  // namespace karvel
