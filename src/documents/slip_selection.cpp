#include "documents/slip_selection.h"

#include "books/day_sums.h"
#include "books/sources.h"

namespace karvel {

std::string SlipCriteria(const SlipChoice& choice, const DateTime& day) {
  const auto numbered = [](const std::string& slipNo) { return "SeriNo=" + sources::Quoted(slipNo); };
  if (!choice.openSlipMeant && !choice.newestSlipNo.empty()) return numbered(choice.newestSlipNo) + " And " + DayCriteria(day);
  if (choice.collecting && !choice.openSlipNo.empty()) return numbered(choice.openSlipNo);
  if (choice.collecting) return "SeriNo<>'' And " + DayCriteria(day);
  if (choice.openSlipMeant) return "SeriNo='' And " + DayCriteria(day);
  return DayCriteria(day);
}

std::string LinesOf(const std::string& customerCode, const std::string& criteria) {
  return "Select * From Datam Where CariKod=" + sources::Quoted(customerCode) + " And " + criteria + " Order By Tarih Asc";
}

}  // namespace karvel
