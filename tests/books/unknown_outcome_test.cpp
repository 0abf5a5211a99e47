// What a book answers when the disk fails at its commit: what its rows say, read anew.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "books/cancellation.h"
#include "books/correction.h"
#include "books/customer_cards.h"
#include "books/money_movement.h"
#include "books/receipt.h"
#include "books/sale_line.h"
#include "books/wiping.h"
#include "tests/support/books_fixture.h"
#include "tests/support/faulty_files.h"

namespace karvel {
namespace {

class UnknownOutcomeTest : public BooksFixture {
 protected:
  UnknownOutcomeTest() {
    testing::Faults().Reset();
    EXPECT_TRUE(failing.Open(folder.Path()).Ok());
  }
  ~UnknownOutcomeTest() override { testing::Faults().Reset(); }

  Outcome<BookedLine> Sell(Stores& by) {
    SaleLine line;
    line.itemInFront = Item("1001");
    line.customerCode = "C001";
    line.customerName = "Ayşe Yılmaz";
    line.price = 50;
    line.quantity = 2;
    line.amount = 100;
    line.slipNo = "000001";
    return BookSaleLine({by, clock, terminalNo}, line);
  }
  Outcome<BookedMoney> Pay(Stores& by) {
    MoneyMovement movement;
    movement.customerCode = "C001";
    movement.customerName = "Ayşe Yılmaz";
    movement.amount = 30;
    movement.instrument = "Nakit";
    return BookMoneyMovement({by, clock, terminalNo}, movement);
  }

  // Runs the book with a disk that fails at the very end, then with one that fails earlier, and then with one that can't be read: each
  // time it must answer what the files hold. `book` must be able to run again and again.
  // `prepare` comes before each.
  void ExpectToldAsItIs(const std::function<Status()>& book, const std::function<void()>& prepare = [] {}) {
    for (const bool silent : {false, true}) {
      SCOPED_TRACE(silent);
      prepare();
      const std::vector<std::string> before = AllRows();
      testing::Faults().Reset();
      testing::Faults().failFolderSync = 1;
      testing::Faults().silentAfterFolderSync = silent;
      EXPECT_EQ(book().Kind(), silent ? ErrorKind::Unknown : ErrorKind::None);
      testing::Faults().Reset();
      EXPECT_NE(AllRows(), before);
      if (silent) {
        EXPECT_TRUE(failing.AskOutcome().Ok());
      }
    }
    int told = 0, undone = 0, unknown = 0;
    for (int step = 1; told == 0; step += 3) {
      SCOPED_TRACE(step);
      prepare();
      const std::vector<std::string> before = AllRows();
      testing::Faults().Reset();
      testing::Faults().failFrom = step;
      testing::Faults().failWith = SQLITE_IOERR_WRITE;
      Status answer = book();
      testing::Faults().Reset();
      if (answer.Kind() == ErrorKind::Unknown) {
        ++unknown;
        answer = failing.AskOutcome();
      }
      EXPECT_NE(answer.Kind(), ErrorKind::Unknown);
      EXPECT_EQ(AllRows() == before, !answer.Ok()) << answer.Message();
      answer.Ok() ? ++told : ++undone;
    }
    EXPECT_GT(undone, 5);
    EXPECT_GT(unknown, 0);
  }

  Stores failing{MakeSqliteEngine({.programFolder = folder.Path(), .vfs = testing::FaultyFiles()})};
  Shop onFailingDisk{failing, clock, terminalNo};
};

template <typename Booked>
Status StatusOf(const Outcome<Booked>& outcome) {
  return outcome ? Status() : Status(outcome.error());
}

TEST_F(UnknownOutcomeTest, of_a_sale) {
  ExpectToldAsItIs([&] { return StatusOf(Sell(failing)); });
}

TEST_F(UnknownOutcomeTest, of_money) {
  ExpectToldAsItIs([&] { return StatusOf(Pay(failing)); });
}

TEST_F(UnknownOutcomeTest, of_a_receipt) {
  Receipt receipt;
  receipt.supplierCode = "T001";
  receipt.name = "Bulgur";
  receipt.cardPrice = 5;
  receipt.quantity = 10;
  receipt.amount = 50;
  ExpectToldAsItIs([&] { return StatusOf(BookReceipt(onFailingDisk, receipt)); });
}

TEST_F(UnknownOutcomeTest, of_a_card) {
  int number = 0;
  ExpectToldAsItIs([&] {
    NewCustomer customer;
    customer.code = "Y" + std::to_string(++number);
    customer.name = "Yeni " + customer.code;
    return StatusOf(AddCustomerCard(onFailingDisk, customer));
  });
}

TEST_F(UnknownOutcomeTest, of_a_correction) {
  const auto sold = Sell(stores);
  ASSERT_TRUE(sold);
  double quantity = 2;
  ExpectToldAsItIs([&] {
    Correction correction;
    correction.dayBookRow = DayKey(sold->id);
    correction.id = sold->id;
    correction.price = 50;
    correction.quantity = ++quantity;
    correction.amount = 50 * quantity;
    return CorrectLine(onFailingDisk, correction);
  });
}

TEST_F(UnknownOutcomeTest, of_a_cancellation_of_goods_and_of_money) {
  const auto cancel = [&](const std::string& id) {
    Cancellation cancellation;
    cancellation.dayBookRow = DayKey(id);
    cancellation.itemInFront = Item("1001");
    return CancelLine(onFailingDisk, cancellation);
  };
  // An attempt that was undone is made again with the line that it left.
  std::string line, payment;
  const auto alive = [&](const std::string& id) {
    return !id.empty() && !Rows("Karvel.mdb", "SELECT 1 FROM Datam WHERE DigerId='" + id + "' AND Durum<>'Iptal'").empty();
  };
  for (int i = 0; i < 30; ++i) ASSERT_TRUE(Sell(stores) && Pay(stores));
  const auto next = [&](const char* durum) {
    return One("Karvel.mdb", std::string("SELECT min(DigerId) FROM Datam WHERE Durum='") + durum + "'");
  };
  ExpectToldAsItIs([&] {
    if (!alive(line)) line = next("Satış");
    return cancel(line);
  });
  ExpectToldAsItIs([&] {
    if (!alive(payment)) payment = next("Nakit");
    return cancel(payment);
  });
}

TEST_F(UnknownOutcomeTest, of_the_wiping_of_a_customer_and_of_his_card) {
  ExpectToldAsItIs([&] { return WipeCustomer(onFailingDisk, "C001"); },
                   [&] {
                     if (Rows("Cari.mdb", "SELECT 1 FROM CariHareket WHERE cariharkod='C001'").empty()) {
                       EXPECT_TRUE(Sell(stores));
                     }
                   });
  ExpectToldAsItIs([&] { return DeleteCustomerCard(onFailingDisk, CustomerKey("S1")); },
                   [&] {
                     if (Rows("Cari.mdb", "SELECT 1 FROM CariKartlar WHERE CariKod='S1'").empty()) AddCustomer("S1", "Silinen");
                   });
}

// Another terminal writes before the desk can look again: what it wrote must not be taken for ours.
TEST_F(UnknownOutcomeTest, is_not_mistaken_for_what_another_terminal_wrote_since) {
  testing::Faults().failFrom = 1;
  testing::Faults().failWith = SQLITE_IOERR_WRITE;
  int step = 1;
  Status answer = StatusOf(Sell(failing));
  while (answer.Kind() != ErrorKind::Unknown && step < 200) {
    testing::Faults().Reset();
    testing::Faults().failFrom = ++step;
    testing::Faults().failWith = SQLITE_IOERR_WRITE;
    answer = StatusOf(Sell(failing));
  }
  ASSERT_EQ(answer.Kind(), ErrorKind::Unknown);
  testing::Faults().Reset();
  const std::string other = "02";
  SaleLine line;
  line.itemInFront = Item("1001");
  line.customerCode = "C001";
  line.customerName = "Ayşe Yılmaz";
  line.price = 50;
  line.quantity = 2;
  line.amount = 100;
  ASSERT_TRUE(BookSaleLine({stores, clock, other}, line));
  EXPECT_EQ(failing.AskOutcome().Kind(), ErrorKind::DiskFailed);
}

}  // namespace
}  // namespace karvel
