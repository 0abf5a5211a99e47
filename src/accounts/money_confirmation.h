// "Tamam" with the customer list in front, and the collection panel: the money on the screen is read, booked for the customer in front, and
// the screen follows.
#pragma once

#include "books/money_movement.h"
#include "desk/customer_in_front.h"
#include "desk/main_button.h"
#include "desk/parts.h"

namespace karvel {

class MoneyConfirmation {
 public:
  // Serves the main button while the customer list is in front.
  MoneyConfirmation(const DeskParts& parts, MainButton& button, CustomerInFront& customer);

  // Posts the amount in Text2(2) for the customer in front, by the instrument in Label3 and the direction in Label1(5). Any amount is
  // taken, also 0 and below. When the stores refuse it, nothing of it is in them, the amount stays for another try, and the outcome says
  // why.
  Status PostMoneyMovement();
  // The outcome of a posting, but where the customer's card was deleted at another terminal meanwhile: then the list and the quiet line
  // show it, and there is nothing to refuse.
  Status WhereThere(const Status& posted);

 private:
  void Confirm();
  bool PayerInFront();
  void ShowLeft();
  void ShowMovement(const MoneyMovement& movement, const std::string& id);
  [[nodiscard]] MoneyMovement ReadMovement() const;

  Shop shop_;
  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  MainButton& button_;
  CustomerInFront& customer_;
};

}  // namespace karvel
