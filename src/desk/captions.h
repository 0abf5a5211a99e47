// The captions that carry state, each text once, and the questions to ask of them: what a button or label reads is what it does.
#pragma once

#include "books/customer_prices.h"
#include "books/line_mode.h"
#include "books/money_movement.h"
#include "desk/screen.h"

namespace karvel {

namespace caption {
// Label1(0): where a double tap on it leads.
inline constexpr const char *kToSale = " Satış", *kToCustomers = " Müşteri", *kWholesale = " Toptan";
// Label1(1): whether names are typed or codes are scanned.
inline constexpr const char *kByName = " Ürün", *kByBarcode = " Barkod";
// Label1(5): which way money goes.
inline constexpr const char *kCollection = kCollectionName, *kPayment = kPaymentName;
// Label1(7): what the figure below it is.
inline constexpr const char *kBalance = "Bakiye", *kSlipTotal = "Fiş Top.";
// Command1.
inline constexpr const char *kPrint = "Yazdır", *kCollectAtOnce = "Tahsilat";
// Command2.
inline constexpr const char *kConfirm = "Tamam", *kWait = "Bekleyin", *kDeleteLine = "Satır Sil";
// Command3.
inline constexpr const char *kExit = "Çıkış", *kCorrect = "Düzeltme";
// ComboCmd: whose groups GurupCombo lists.
inline constexpr const char *kCustomerGroups = "Cari", *kStockGroups = "Stok";
// Command9 and NakitCmd, of the collection panel.
inline constexpr const char *kWithSlip = "Yazıcı Var", *kWithoutSlip = "Yazıcı Yok";
inline constexpr const char *kOnAccount = "Cari Hesap", *kInCash = "Nakit";
// Command5(2): at first, and once it waits for the date from which all is printed.
inline constexpr const char *kPrintAll = "Tümünü Yazdır", *kPrintFromDate = "Yazdır";
}  // namespace caption

// The customer list is shown. False in a sale, and while the deleted lines stand in its place.
inline bool AtRest(const Screen& screen) {
  return screen.CariGrid.Visible();
}
inline LineMode ModeOnScreen(const Screen& screen) {
  return LineModeNamed(screen.Label4.Caption());
}
inline PriceName PriceNameOnScreen(const Screen& screen) {
  return PriceNamed(screen.Label1(2).Caption());
}
inline bool SearchesByBarcode(const Screen& screen) {
  return screen.Label1(1).Caption() == caption::kByBarcode;
}
inline bool IsWholesale(const Screen& screen) {
  return screen.Label1(0).Caption() == caption::kWholesale;
}
inline MoneyDirection DirectionOnScreen(const Screen& screen) {
  return screen.Label1(5).Caption() == caption::kPayment ? MoneyDirection::Payment : MoneyDirection::Collection;
}
inline bool ListsCustomerGroups(const Screen& screen) {
  return screen.ComboCmd.Caption() == caption::kCustomerGroups;
}
inline bool CorrectionOffered(const Screen& screen) {
  return screen.Command3.Caption() == caption::kCorrect;
}

}  // namespace karvel
