// "Tamam" in a sale: the line on the screen is read, booked, and the fields made ready for the next.
//
// What it reads: Text2(0) price, Text2(1) quantity, Label2 amount, Label1(2) price name, Label4 mode; the item in front;
// CurrentCustomerCode, SlipNo, ScannedSerial, and the serials in List1.
#pragma once

#include "books/sale_line.h"
#include "desk/balance_display.h"
#include "desk/customer_in_front.h"
#include "desk/main_button.h"
#include "desk/parts.h"

namespace karvel {

// What the clerk reads where nothing was sold for want of an item.
inline constexpr const char* kNoItem = "Satılmadı: ürünü seçin";

class SaleConfirmation {
 public:
  // Serves the main button in a sale.
  SaleConfirmation(const DeskParts& parts, MainButton& button, CustomerInFront& customer, BalanceDisplay& balance);

  // Posts the line on the screen and resets the fields for the next. When the stores refuse it, nothing of the line is in them,
  // the fields stay for another try, and the outcome says why.
  Status PostLine();

 private:
  void Confirm();
  bool LineIsWhole();
  [[nodiscard]] SaleLine ReadLine() const;
  void ShowLine(const BookedLine& booked);
  void ResetFields();
  [[nodiscard]] bool PaymentWaits() const;
  void TellSold(const SaleLine& line, const std::string& item);

  Shop shop_;
  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  Settings& settings_;
  const World& world_;
  MainButton& button_;
  CustomerInFront& customer_;
  BalanceDisplay& balance_;
};

}  // namespace karvel
