#include "books/customer_cards.h"

#include <string>
#include <vector>

#include "tests/support/failing_books.h"

namespace karvel {
namespace {

class CustomerCardsBook : public FailingBooks {
 protected:
  static NewCustomer Zeynep() {
    NewCustomer customer;
    customer.code = "Z01";
    customer.name = "zeynep ak";
    customer.street = "cadde 1";
    customer.city = "izmir";
    customer.email = "ZEYNEP@KARVEL.TR";
    customer.taxOffice = "konak";
    customer.taxNumber = "123";
    customer.phone = "0232";
    customer.mobile = "0532";
    customer.cardNumber = "K77";
    customer.group = "Bayi";
    return customer;
  }
  // Fails when the files don't tell.
  bool IsTaken(const std::string& code) {
    const Outcome<bool> taken = IsCustomerCodeTaken(shop, code);
    EXPECT_TRUE(taken.has_value());
    return taken.value_or(false);
  }
  // Fails when the stores refuse it; false when the code is taken.
  bool Add(const NewCustomer& customer) {
    const Outcome<bool> added = AddCustomerCard(shop, customer);
    EXPECT_TRUE(added.has_value());
    return added.value_or(false);
  }
  std::string Count() { return One("Cari.mdb", "SELECT count(*) FROM CariKartlar"); }
};

TEST_F(CustomerCardsBook, a_new_card_has_every_field) {
  ASSERT_TRUE(Add(Zeynep()));
  const Fields wanted{
      {"CariKod", "Z01"},   {"Unvan", "zeynep ak"}, {"Adres1", "cadde 1"}, {"Adres2", "izmir"}, {"Email", "zeynep@karvel.tr"},
      {"VergiDa", "konak"}, {"VergiNo", "123"},     {"Telefon", "0232"},   {"Gsm", "0532"},     {"KartNo", "K77"},
      {"Gurup", "Bayi"},    {"Borc", "0.0"},        {"Alacak", "0.0"},     {"Bakiye", "0.0"},   {"Hesap", "Borç"},
      {"Hes", "C"},         {"HesKullan", "0"},     {"dBorc", "0.0"},      {"eBorc", "0.0"},    {"dBakiye", "0.0"},
      {"eBakiye", "0.0"},   {"Yedek1", ""},         {"Yedek2", ""},        {"Yedek3", ""},      {"Yedek4", ""},
      {"Yedek5", ""},       {"Yedek6", ""},         {"yeni", "1.0"}};
  EXPECT_EQ(Customer("Z01"), wanted);
}

TEST_F(CustomerCardsBook, a_mail_address_is_lower_cased_with_a_dot_on_every_i) {
  NewCustomer customer = Zeynep();
  customer.email = "İLETİŞİM@ALI.COM";
  ASSERT_TRUE(Add(customer));
  EXPECT_EQ(Customer("Z01")["Email"], "iletişim@ali.com");
}

TEST_F(CustomerCardsBook, the_other_cards_stay_as_they_are) {
  const auto before = Rows("Cari.mdb", "SELECT * FROM CariKartlar");
  ASSERT_TRUE(Add(Zeynep()));
  EXPECT_EQ(Rows("Cari.mdb", "SELECT * FROM CariKartlar WHERE CariKod<>'Z01'"), before);
}

TEST_F(CustomerCardsBook, quotes_are_kept_as_typed) {
  NewCustomer customer = Zeynep();
  customer.code = "O'1";
  customer.name = "Oya'nın \"yeri\"";
  ASSERT_TRUE(Add(customer));
  EXPECT_EQ(Customer("O''1")["Unvan"], "Oya'nın \"yeri\"");
  EXPECT_TRUE(IsTaken("O'1"));
  EXPECT_TRUE(IsTaken("o'1"));
  EXPECT_FALSE(IsTaken("O''1"));
}

TEST_F(CustomerCardsBook, the_first_card_of_an_empty_file_is_added_too) {
  Sql("Cari.mdb", "DELETE FROM CariKartlar");
  ASSERT_TRUE(Add(Zeynep()));
  EXPECT_EQ(Count(), "1");
}

TEST_F(CustomerCardsBook, a_fault_of_the_stores_adds_nothing_and_says_what_it_was) {
  FailsWholeOrWorks([this] {
    const Outcome<bool> added = AddCustomerCard(shop, Zeynep());
    return added ? Status() : Status(added.error());
  });
  EXPECT_EQ(Customer("Z01")["Unvan"], "zeynep ak");
}

TEST_F(CustomerCardsBook, a_code_that_another_terminal_took_meanwhile_is_added_no_second_time) {
  AddCustomer("z01", "Zeki Son");
  const std::string before = Count();
  EXPECT_FALSE(Add(Zeynep()));
  EXPECT_EQ(Count(), before);
}

TEST_F(CustomerCardsBook, codes_that_differ_in_case_or_in_the_kind_of_an_i_are_one) {
  AddCustomer("ılık", "Bir");
  AddCustomer("dilim", "İki");
  for (const char* const code : {"ILIK", "İLİK", "ilik", "ılık", "DILIM", "DİLİM", "dılım"}) EXPECT_TRUE(IsTaken(code)) << code;
  EXPECT_TRUE(IsTaken("c001"));
}

TEST_F(CustomerCardsBook, one_letter_more_or_less_is_another_code) {
  AddCustomer("ılık", "Bir");
  for (const char* const code : {"C0011", "C00", "lık", "ılıkı", ""}) EXPECT_FALSE(IsTaken(code)) << code;
}

TEST_F(CustomerCardsBook, the_cards_that_no_list_shows_count_too) {
  AddCustomer("H001", "Gizli", "HesKullan=1");
  for (const char* const code : {"t001", "=100", "h001"}) EXPECT_TRUE(IsTaken(code)) << code;
}

TEST_F(CustomerCardsBook, a_code_with_a_sign_of_the_patterns_in_it_is_found_again) {
  for (const char* const code : {"K#1", "K[2", "K[a-c]3"}) {
    EXPECT_FALSE(IsTaken(code)) << code;
    AddCustomer(code, "Bir");
    EXPECT_TRUE(IsTaken(code)) << code;
  }
}

TEST_F(CustomerCardsBook, where_the_cards_cant_be_read_a_code_is_neither_free_nor_taken) {
  engine.readFault = {ErrorKind::Other, "the disk is silent"};
  for (const int working : {0, 1}) {
    engine.readsBeforeFault = working;
    const Outcome<bool> taken = IsCustomerCodeTaken(shop, "Z01");
    ASSERT_FALSE(taken.has_value()) << working;
    EXPECT_EQ(taken.error().Kind(), ErrorKind::Other);
  }
}

TEST_F(CustomerCardsBook, an_address_is_changed_and_nothing_else_of_the_card) {
  Sql("Cari.mdb", "UPDATE CariKartlar SET Telefon='0222', Borc=5 WHERE CariKod='C001'");
  Fields card = Customer("C001");
  EXPECT_TRUE(ChangeAddress(shop, "C001", {"Gül Sokak 7", "İzmir", "Konak", "42", "Ayse@Ornek.TR"}).Ok());
  card["Adres1"] = "Gül Sokak 7";
  card["Adres2"] = "İzmir";
  card["VergiDa"] = "Konak";
  card["VergiNo"] = "42";
  card["Email"] = "Ayse@Ornek.TR";
  EXPECT_EQ(Customer("C001"), card);
  EXPECT_EQ(Customer("C002")["Adres1"], "");
}

TEST_F(CustomerCardsBook, the_address_of_a_card_that_is_gone_is_not_kept) {
  EXPECT_EQ(ChangeAddress(shop, "C999", {"a", "b", "c", "d", "e"}).Kind(), ErrorKind::NoRecord);
  EXPECT_FALSE(stores.InAction());
}

TEST_F(CustomerCardsBook, an_address_is_kept_whole_or_not_at_all) {
  FailsWholeOrWorks([&] { return ChangeAddress(shop, "C001", {"Gül Sokak 7", "İzmir", "Konak", "42", "a@b.tr"}); });
}

}  // namespace
}  // namespace karvel
