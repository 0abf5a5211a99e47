// A desk with two customers, one of whom owes, and two items, one with three prices.
#pragma once

#include "tests/support/desk_fixture.h"

namespace karvel {

class SaleFixture : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    AddCustomer("C001", "Ayşe Yılmaz", "Bakiye=75.5, Borc=75.5, Hesap='Borç'");
    AddCustomer("C002", "Bora Çetin");
    AddStock("1001", "Pirinç", "Fiyat=50, Fiyat2=540, Fiyat3=1000, Birim2='Koli', Adet2=12, Adet3=24");
    AddStock("1002", "Şeker", "Fiyat=20");
    ASSERT_TRUE(Start());
  }
};

}  // namespace karvel
