#include "desk/form_state.h"

#include <fmt/format.h>

#include "store/cursor.h"

namespace karvel {

std::vector<std::pair<std::string, Value>> FormState::ByName() const {
  std::vector<std::pair<std::string, Value>> values{
      {"RepositionGuard", RepositionGuard.Number()},
      {"CurrentCustomerCode", CurrentCustomerCode},
      {"LastStokSearch", LastStokSearch},
      {"CriteriaText", CriteriaText},
      {"PriceFormat", PriceFormat},
      {"QuantityFormat", QuantityFormat},
      {"MinSalePercent", static_cast<double>(MinSalePercent)},
      {"TerminalNo", TerminalNo},
      {"CurrentLineId", CurrentLineId},
      {"EditLineId", EditLineId},
      {"ScannedSerial", ScannedSerial},
      {"SlipNo", SlipNo},
      {"DökYazıcı", DökYazıcı},
      {"SerialEntryOn", SerialEntryOn},
      {"CustomerGroup", CustomerGroup},
      {"StockGroup", StockGroup},
      {"ActiveCursor", ActiveCursor ? ActiveCursor->Name() : std::string()},
      {"KeyboardOpen", KeyboardOpen},
      {"PadOpen", PadOpen},
      {"ActiveFieldCode", static_cast<double>(ActiveFieldCode)},
      {"DataDir", DataDir},
      {"FtpKlasör", FtpKlasör},
      {"InetDurum", static_cast<double>(InetDurum)},
      {"Sabit", Sabit},
  };
  for (std::size_t i = 0; i < PriceSlots.size(); ++i) values.emplace_back(fmt::format("PriceSlots({})", i), PriceSlots[i]);
  for (std::size_t i = 0; i < CompanyLines.size(); ++i) values.emplace_back(fmt::format("CompanyLines({})", i), CompanyLines[i]);
  return values;
}

}  // namespace karvel
