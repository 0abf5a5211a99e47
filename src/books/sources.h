// The record sources that several features set: each text once.
#pragma once

#include <string>

#include "text/turkish.h"

namespace karvel::sources {

// A stored text as a literal of the dialect: a code with a quote in it still finds its rows. What the clerk types goes in as typed.
inline std::string Quoted(const std::string& text) {
  return "'" + ReplaceAll(text, "'", "''") + "'";
}

// The walk-in customer's name and code.
inline constexpr const char* kWalkIn = "Muhtelif Müşteri";
// The first entry of GurupCombo.
inline constexpr const char* kAllGroups = "Tüm Guruplar";

// The standard customer list without its order: no hidden cards, wholesalers, salesmen, money accounts, nor the central site.
inline const std::string kCustomersUnordered =
    "Select * From CariKartlar Where HesKullan=False And Gurup<>'Toptan' And LCase(Gurup)<>'plasiyer' And Left(CariKod,1)<>'=' And "
    "CariKod<>'Merkez'";
inline const std::string kCustomers = kCustomersUnordered + " Order By Unvan Asc";
// With the wholesalers too: whoever names somebody means its bearer.
inline const std::string kNamedCustomers =
    "Select * From CariKartlar Where HesKullan=False And lcase(Gurup)<>'plasiyer' And Left(CariKod,1)<>'=' And CariKod<>'Merkez' Order By "
    "Unvan Asc";
// Everybody but the shop's own money accounts.
inline const std::string kPayers = "Select * From CariKartlar Where HesKullan=False And Left(CariKod,1)<>'=' Order By Unvan Asc";
inline const std::string kAllCustomers = "Select * From CariKartlar Where HesKullan=False Order By Unvan Asc";
inline std::string CustomersOfGroup(const std::string& group) {
  return "Select * From CariKartlar Where HesKullan=False And Gurup=" + Quoted(group) + " Order By Unvan Asc";
}

// The standard list narrowed by a name as typed and by a group ("" or "Tüm Guruplar": every group). The wholesalers, whom the standard
// list leaves out, are listed when their own group is asked for.
inline std::string CustomersOfGroupNamed(const std::string& group, const std::string& text) {
  const std::string named = text.empty() ? std::string() : " And Unvan Like '" + text + "*'";
  if (group.empty() || group == kAllGroups) return kCustomersUnordered + named + " Order By Unvan Asc";
  if (EqualText(group, "Toptan"))
    return "Select * From CariKartlar Where HesKullan=False And Gurup='Toptan'" + named + " Order By Unvan Asc";
  return kCustomersUnordered + named + " And Gurup=" + Quoted(group) + " Order By Unvan Asc";
}

inline const std::string kStock = "Select * From StokKartlar Where StokGizle=False Order By StokAdi ASC";
inline std::string StockOfGroup(const std::string& group) {
  return "Select * From StokKartlar Where StokGizle=False And Gurup=" + Quoted(group) + " Order By StokAdi Asc";
}
inline std::string StockNamed(const std::string& text) {
  return "Select * From StokKartlar Where StokGizle=False And StokAdi Like '" + text + "*' Order By StokAdi ASC";
}

inline std::string DayBookOf(const std::string& customer, const std::string& direction = "Desc") {
  return "Select * From Datam Where CariKod=" + Quoted(customer) + " Order By Tarih " + direction;
}
inline std::string LedgerOf(const std::string& customer) {
  return "Select * From CariHareket Where CariHarKod=" + Quoted(customer) + " Order By Tarih Desc";
}
inline std::string DueDatesOf(const std::string& customer) {
  return "Select * From VadeGün Where CariKod=" + Quoted(customer) + " Order By VadeTarih Asc";
}

inline const std::string kGroups = "Select * From Gurup Where Grp=True Order By Gurup Asc";

}  // namespace karvel::sources
