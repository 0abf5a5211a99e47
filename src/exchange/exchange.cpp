#include "exchange/exchange.h"

#include "desk/desk.h"
#include "exchange/grid_layout.h"
#include "exchange/purge_at_start.h"

namespace karvel {

// One member a feature.
struct Exchange::Features {
  explicit Features(Desk& desk) : purge(desk.Parts(), desk.Upkeep()), layouts(desk.Parts(), desk.Opening()) {}

  PurgeAtStart purge;
  GridLayout layouts;
};

Exchange::Exchange(Desk& desk) : features_(std::make_unique<Features>(desk)) {}

Exchange::~Exchange() = default;

}  // namespace karvel
