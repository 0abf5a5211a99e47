#include <string>

#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class OverdueNoticeTest : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    AddCustomer("C001", "Ayşe Yılmaz", "Bakiye=100, Borc=100, Hesap='Borç'");
    AddCustomer("C002", "Bora Çetin", "Bakiye=100, Alacak=100, Hesap='Alacak'");
    AddCustomer("C003", "Cem Ak", "Bakiye=0, Hesap='Borç'");
    AddCustomer("C004", "Deniz Er", "Bakiye=100, Borc=100, Hesap='Borç'");
    ASSERT_TRUE(Start());
  }
  void Due(const std::string& code, const std::string& date) {
    Sql("Cari.mdb", "INSERT INTO \"VadeGün\" VALUES('" + code + "','" + date + "',100)");
  }
  void Show(const std::string& name) { ASSERT_TRUE(desk->cursors.CariData.FindFirst("Unvan='" + name + "'").Ok()); }
  bool Noticed() { return At("Vadefrm").Visible(); }
};

TEST_F(OverdueNoticeTest, a_debtor_is_noticed_with_the_days_of_his_oldest_due_date) {
  Due("C001", "2026-02-20 00:00:00");
  Due("C001", "2026-01-30 00:00:00");
  Show("Ayşe Yılmaz");
  EXPECT_TRUE(Noticed());
  EXPECT_EQ(At("Label15").Caption(), "30 Gün");
}

TEST_F(OverdueNoticeTest, a_date_to_come_is_noticed_with_a_minus) {
  Due("C001", "2026-03-04 00:00:00");
  Show("Ayşe Yılmaz");
  EXPECT_TRUE(Noticed());
  EXPECT_EQ(At("Label15").Caption(), "-3 Gün");
}

TEST_F(OverdueNoticeTest, what_is_due_today_is_no_notice) {
  Due("C001", "2026-03-01 00:00:00");
  Show("Ayşe Yılmaz");
  EXPECT_FALSE(Noticed());
}

TEST_F(OverdueNoticeTest, nobody_else_is_noticed) {
  Due("C002", "2026-01-01 00:00:00");
  Due("C003", "2026-01-01 00:00:00");
  Show("Bora Çetin");
  EXPECT_FALSE(Noticed()) << "the shop owes him";
  Show("Cem Ak");
  EXPECT_FALSE(Noticed()) << "he owes nothing";
  Show("Deniz Er");
  EXPECT_FALSE(Noticed()) << "he has no due date";
}

TEST_F(OverdueNoticeTest, a_tap_or_the_next_customer_takes_the_notice_away) {
  Due("C001", "2026-02-20 00:00:00");
  Show("Ayşe Yılmaz");
  ASSERT_TRUE(Noticed());
  Click("Vadefrm");
  EXPECT_FALSE(Noticed());
  Show("Ayşe Yılmaz");
  ASSERT_TRUE(Noticed());
  Show("Cem Ak");
  EXPECT_FALSE(Noticed());
}

TEST_F(OverdueNoticeTest, in_purchase_mode_the_list_does_not_follow) {
  Due("C001", "2026-02-20 00:00:00");
  At("Label4").SetCaption("Alış");
  Show("Ayşe Yılmaz");
  EXPECT_FALSE(Noticed());
}

TEST_F(OverdueNoticeTest, it_stands_over_a_sale_too) {
  Due("C001", "2026-02-20 00:00:00");
  Show("Deniz Er");
  EnterSale("Ayşe Yılmaz");
  EXPECT_TRUE(Noticed());
  EXPECT_EQ(At("Label15").Caption(), "9 Gün");
  Click("Vadefrm");
  Show("Ayşe Yılmaz");
  EXPECT_TRUE(Noticed()) << "the customer in front is looked at again";
}

TEST_F(OverdueNoticeTest, days_are_counted_by_the_calendar_whatever_the_time) {
  Due("C001", "2026-02-28 23:59:59");
  Show("Ayşe Yılmaz");
  EXPECT_EQ(At("Label15").Caption(), "1 Gün");
  Due("C004", "2026-03-02 00:00:01");
  Show("Deniz Er");
  EXPECT_EQ(At("Label15").Caption(), "-1 Gün");
}

TEST_F(OverdueNoticeTest, what_is_due_later_today_is_no_notice_either) {
  Due("C001", "2026-03-01 23:59:59");
  Show("Ayşe Yılmaz");
  EXPECT_FALSE(Noticed());
  EXPECT_EQ(At("Label15").Caption(), "0");
}

TEST_F(OverdueNoticeTest, a_debtor_with_a_quote_in_his_code_is_noticed) {
  AddCustomer("O''1", "O''Neil", "Bakiye=100, Borc=100, Hesap='Borç'");
  ASSERT_TRUE(Start());
  Due("O''1", "2026-02-20 00:00:00");
  Show("O''Neil");
  EXPECT_TRUE(Noticed());
  EXPECT_EQ(At("Label15").Caption(), "9 Gün");
}

TEST_F(OverdueNoticeTest, an_overdue_customer_is_noticed_and_the_notice_goes_with_a_tap) {
  Due("C001", "2026-02-20 00:00:00");
  Show("Ayşe Yılmaz");
  EXPECT_TRUE(Noticed());
  EXPECT_EQ(At("Label15").Caption(), "9 Gün");
  Click("Vadefrm");
  EXPECT_FALSE(Noticed());
}

}  // namespace
}  // namespace karvel
