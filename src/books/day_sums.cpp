#include "books/day_sums.h"

#include "books/card_balance.h"
#include "books/sources.h"
#include "store/value.h"
#include "text/format.h"

namespace karvel {
namespace {

Status Sum(Stores& stores, const std::string& criteria, double& sum) {
  Value value;
  const Status read = stores.QueryValue("Karvel.Mdb", "Select Sum(Tutar) FROM Datam Where " + criteria, value);
  sum = WithoutDust(AsNumber(value));
  return read;
}

}  // namespace

std::string FromDay(const DateTime& day) {
  return "Tarih>=#" + Format(day, "mm/dd/yyyy") + " 00:00:00#";
}

std::string UntilDay(const DateTime& day) {
  return "Tarih<=#" + Format(day, "mm/dd/yyyy") + " 23:59:59#";
}

std::string DayCriteria(const DateTime& day) {
  return FromDay(day) + " And " + UntilDay(day);
}

Status SumUnpaidSales(Stores& stores, const std::string& customerName, const DateTime& day, double& sum) {
  return Sum(stores, DayCriteria(day) + " And CariAd=" + sources::Quoted(customerName) + " And Durum='Satış' And Tahsilat=0", sum);
}

Status SumSales(Stores& stores, const std::string& customerCode, const DateTime& day, double& sum) {
  return Sum(stores, "CariKod=" + sources::Quoted(customerCode) + " And Durum='Satış' And " + DayCriteria(day), sum);
}

Status SumDayBook(Stores& stores, const std::string& customerCode, const DateTime& day, double& sum) {
  return Sum(stores, "CariKod=" + sources::Quoted(customerCode) + " And " + DayCriteria(day), sum);
}

}  // namespace karvel
