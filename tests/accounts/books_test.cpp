// Random days at the desk: sales, returns, purchases, receipts, collections, payments, corrections, cancellations, invoices and wiped
// customers, through the elements, and after each day every figure of the stores against the plain model of the rules. KARVEL_BOOK_SEEDS
// days (3), of KARVEL_BOOK_ACTIONS actions (2000); with KARVEL_BOOK_EACH compared after every action.

#include <cstdlib>
#include <fstream>
#include <random>

#include "tests/support/accounts_fixture.h"
#include "tests/support/book_model.h"
#include "tests/support/invoice_paper.h"
#include "text/format.h"

namespace karvel {
namespace {

using books::Digits;
using Lines = std::vector<std::string>;

int FromEnvironment(const char* name, int otherwise) {
  const char* const text = std::getenv(name);
  return text ? std::atoi(text) : otherwise;
}

class BooksTest : public AccountsFixture, public ::testing::WithParamInterface<int> {
 protected:
  static constexpr const char* kWalkIn = "Muhtelif Müşteri";
  inline static const Lines kInstruments{"Nakit", "Kredi Kartı", "Çek", "Senet"};

  void SetUp() override {
    AccountsFixture::SetUp();
    for (int i = 1; i <= 5; ++i) AddPerson(fmt::format("K{:02}", i), fmt::format("Komşu {:02}", i), "Müşteri");
    AddPerson("T02", "Tedarik 02", "Toptan");
    for (int i = 1; i <= 8; ++i) AddItem(i);
    ASSERT_TRUE(Start());
    At("Command9").SetCaption("Yazıcı Yok");
    desk->Parts().settings.Save(Setting::InvoicePrinter, printer.Current().deviceName);
    desk->Parts().settings.Save(Setting::InvoiceLines, "5");
    std::ofstream(DataFolder() + "/FatSatir.Dat", std::ios::binary) << TestLayout().Bytes();
    for (const char* const code : {"=100", "=150", "=500", "=600", "=110", "T001", "C001", "C002"}) book.accounts[code];
    book.accounts[kWalkIn];
    titles[kWalkIn] = kWalkIn;
    titles["T001"] = "Toptan Gıda";
    buyers = {"K01", "K02", "K03", "K04", "K05", kWalkIn};
    random.seed(static_cast<unsigned>(GetParam()));
  }

  void AddPerson(const std::string& code, const std::string& title, const std::string& group) {
    AddCustomer(code, title, "Gurup='" + group + "'");
    book.accounts[code];
    titles[code] = title;
  }
  void AddItem(int i) {
    const std::string code = fmt::format("U{:02}", i);
    books::Item item{fmt::format("Ürün {:02}", i), 1000 + 137 * i, i % 3 == 0 ? 9000 + 111 * i : 0, 600 + 83 * i,
                     i % 3 == 0 ? 12.0 : 0.0,      i % 2 == 0,     i % 4 == 0 ? 0 : 5 * i};
    AddStock(
        code, item.name,
        fmt::format("Fiyat={}, Fiyat2={}, Adet2={}, gFiyat={}, Maliyet={}, Kdv={}", books::Decimal(item.price, 2),
                    books::Decimal(item.secondPrice, 2), item.pieces, books::Decimal(item.cost, 2), item.countsProfit ? 1 : 0, item.tax));
    book.items[code] = item;
    itemCodes.push_back(code);
  }

  int Pick(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random); }
  const std::string& Pick(const Lines& from) { return from[static_cast<std::size_t>(Pick(static_cast<int>(from.size())))]; }
  std::int64_t Price() { return 100 + Pick(9900); }
  std::int64_t Quantity() { return Pick(3) == 0 ? 1 + Pick(9999) : 1000 * (1 + Pick(9)); }
  std::string Today() { return Format(clock.now, "yyyy-mm-dd") + " 00:00:00"; }

  // The clerk's hands.
  void Put(const std::string& element, const std::string& text) {
    At(element).SetFocus();
    At(element).SetText(text);
  }
  void Serve(const std::string& customer) {
    LeaveSale();
    // From the wholesalers no sale begins, and the list of a start has none of them though it is called by the same name as the whole one.
    if (customer[0] == 'T') At("GurupCombo").ChooseText("Toptan");
    At("GurupCombo").ChooseText("Tüm Guruplar");
    Put("Text1(0)", titles[customer]);
    DoubleTap("Label1(0)");
    ASSERT_FALSE(desk->screen.CariGrid.Visible()) << customer;
  }
  // With the list in front, on a customer or a supplier.
  void StandOn(const std::string& who) {
    LeaveSale();
    // In purchase mode the day book doesn't follow the list, and a button that deletes takes no payment: a sale sets both right.
    if (At("Label4").Caption() != "Satış" || At("Command2").Caption() != "Tamam") {
      Serve("K01");
      LeaveSale();
    }
    At("GurupCombo").ChooseText(who[0] == 'T' ? "Toptan" : "Tüm Guruplar");
    ASSERT_TRUE(desk->cursors.CariData.FindFirst("CariKod='" + who + "'").Ok());
    desk->screen.CariGrid.TapCell(0);
    ASSERT_EQ(At("Text1(0)").Text(), titles[who]);
  }

  void PostLine() {
    const std::string customer = Pick(buyers), code = Pick(itemCodes);
    const std::string mode = Pick(6) == 0 ? "İade" : Pick(6) == 0 ? "Alış" : "Satış";
    const std::int64_t price = Pick(3) == 0 ? book.items[code].price : Price();
    const std::int64_t quantity = Quantity();
    Serve(customer);
    if (HasFatalFailure()) return;
    PickItem(code);
    const bool secondUnit = book.items[code].secondPrice != 0 && Pick(2) == 0;
    if (secondUnit) {
      DoubleTap("Label1(2)");
      ASSERT_EQ(At("Label1(2)").Caption(), "2.Fiyat");
    }
    while (At("Label4").Caption() != mode) DoubleTap("Label4");
    Put("Text2(0)", books::Typed(price, 2));
    Put("Text2(1)", books::Typed(quantity, 3));
    Click("Command2");
    book.PostLine(customer, code, mode, secondUnit, price, quantity, Today());
  }

  void PostMoney() {
    const bool paysOut = Pick(4) == 0;
    const std::string who = paysOut ? (Pick(2) == 0 ? "T001" : "T02") : Pick(buyers);
    const std::string instrument = Pick(kInstruments);
    StandOn(who);
    if (HasFatalFailure()) return;
    if (!paysOut) At("Label1(5)").SetCaption(" Tahsilat");
    while (At("Label3").Caption() != instrument) Click("Label3");
    // Now and then the whole debt, which also ends the due dates.
    const books::Account& account = book.accounts[who];
    double amount = books::Decimal(Price(), 2);
    if (Pick(4) == 0 && account.balance != 0 && account.side == (paysOut ? "Alacak" : "Borç")) amount = account.balance;
    Put("Text2(2)", PlainNumber(amount));
    Click("Command2");
    book.PostMoney(who, titles[who], instrument, paysOut, amount);
  }

  void CollectAtOnce() {
    // What the shop owes would be collected as well, and double each time: no day has such sums.
    if (book.accounts[kWalkIn].side == "Alacak" && book.accounts[kWalkIn].balance != 0) return;
    Serve(kWalkIn);
    if (HasFatalFailure()) return;
    ASSERT_EQ(At("Command1").Caption(), "Tahsilat");
    Click("Command1");
    const double amount = book.accounts[kWalkIn].balance;
    ASSERT_EQ(At("TahsilatFrame").Visible(), amount != 0);
    if (amount == 0) return;
    const std::string instrument = Pick(kInstruments);
    if (instrument == "Nakit" || instrument == "Kredi Kartı") {
      Click(instrument == "Nakit" ? "Command8(0)" : "Command8(1)");
    } else {
      while (At("Label3").Caption() != instrument) Click("Label3");
    }
    Click("Command7(1)");
    book.PostMoney(kWalkIn, kWalkIn, instrument, false, amount);
  }

  void Receive() {
    const std::string supplier = Pick(2) == 0 ? "T001" : "T02";
    const bool known = Pick(5) != 0;
    std::string code = known ? Pick(itemCodes) : fmt::format("Yeni {:03}", ++newItems);
    const std::string name = known ? book.items[code].name : code;
    const std::int64_t rowPrice = Price(), totalPrice = Price(), quantity = Quantity();
    StandOn(supplier);
    if (HasFatalFailure()) return;
    At("StokChk").SetChecked(true);
    ASSERT_TRUE(At("StokAl").Visible());
    Put("Text6(0)", name);
    Key("Text6(0)", key::kEnter);
    Put("Text6(1)", books::Typed(rowPrice, 2));
    Put("Text6(2)", books::Typed(totalPrice, 2));
    Put("Text6(3)", books::Typed(quantity, 3));
    if (books::Amount(totalPrice, quantity) == 0) return Click("StokAlCmd(0)");
    Click("StokAlCmd(1)");
    Click("StokAlCmd(0)");
    book.Receive(supplier, code, name, rowPrice, totalPrice, quantity);
    if (!known) itemCodes.push_back(code);
  }

  void CorrectLine() {
    // A known item that was received is named by the first letters of its name, by which no card is found: such a line is left alone.
    const std::string id = AnyLine([this](const books::Line& line) {
      if (line.state == "Satış" || line.state == "İade") return true;
      return line.state == "Alış" && (line.customer[0] != 'T' || book.items[line.item].name == line.item);
    });
    if (id.empty()) return;
    const std::int64_t price = Price(), quantity = Quantity();
    Serve(book.day[id].customer);
    if (HasFatalFailure()) return;
    Correct(id, books::Typed(price, 2), books::Typed(quantity, 3));
    book.Correct(id, price, quantity);
  }

  void CancelLine() {
    const std::string id = AnyLine([](const books::Line&) { return true; });
    if (id.empty()) return;
    const std::string customer = book.day[id].customer;
    if (customer[0] == 'T') {
      StandOn(customer);
    } else {
      Serve(customer);
    }
    if (HasFatalFailure()) return;
    Cancel(id);
    book.Cancel(id);
  }

  // Of the first lines of the day that fit; now and then one is taken off.
  void InvoiceCustomer() {
    const std::string who = Pick(buyers);
    StandOn(who);
    if (HasFatalFailure()) return;
    const bool included = Pick(2) == 0;
    At("MnPop(13)").SetCaption(included ? "Kdv Dahil" : "Kdv Hariç");
    Click("Command4");
    Lines lines = book.Uninvoiced(who, Today());
    ASSERT_EQ(At("FatCmd(1)").Visible(), !lines.empty());
    lines.resize(std::min<std::size_t>(lines.size(), 5));
    if (lines.size() > 1 && Pick(3) == 0) {
      const auto off = lines.begin() + Pick(static_cast<int>(lines.size()));
      ASSERT_TRUE(desk->cursors.HareketData.FindFirst("DigerId='" + *off + "'").Ok());
      desk->screen.FatGrid.TapCell(4);
      lines.erase(off);
    }
    if (lines.empty() || Pick(5) == 0) return Click("FatCmd(0)");
    Click("FatCmd(1)");
    ASSERT_FALSE(At("FatFrame").Visible()) << At("Durum").Caption();
    ASSERT_EQ(printer.jobs.back().end, "EndDoc");
    printer.jobs.clear();
    book.PostInvoice(fmt::format("S{:06}", book.invoices.size() + 1), lines, included);
  }

  void WipeCustomer() {
    const std::string who = Pick(4) == 0 ? "T02" : Pick(buyers);
    StandOn(who);
    if (HasFatalFailure()) return;
    // Without rows the card itself would be meant.
    if (!desk->cursors.CariHarData.HasRows()) return;
    Click("CarSil");
    book.Wipe(who);
  }

  template <typename Condition>
  std::string AnyLine(Condition fits) {
    Lines ids;
    for (const auto& [id, line] : book.day)
      if (fits(line)) ids.push_back(id);
    return ids.empty() ? std::string() : Pick(ids);
  }

  void Act() {
    clock.now = clock.now.PlusSeconds(60 + Pick(600) + (Pick(40) == 0 ? 86400 : 0));
    const int what = Pick(100);
    if (what < 45) return PostLine();
    if (what < 60) return PostMoney();
    if (what < 65) return CollectAtOnce();
    if (what < 75) return Receive();
    if (what < 85) return CorrectLine();
    if (what < 95) return CancelLine();
    if (what < 98) return InvoiceCustomer();
    if (what < 99) return WipeCustomer();
    ASSERT_TRUE(Start());
    At("Command9").SetCaption("Yazıcı Yok");
  }

  // The stores, one row a line, against the model.
  Lines Stored(const std::string& file, const std::string& sql) {
    Lines rows;
    for (const std::string& row : Rows(file, sql)) {
      std::string text, part;
      for (const char letter : row + "|") {
        if (letter != '|') {
          part += letter;
          continue;
        }
        char* end = nullptr;
        const double number = std::strtod(part.c_str(), &end);
        const bool isNumber = part.find('.') != std::string::npos && *end == 0;
        text += (text.empty() ? "" : "|") + (isNumber ? Digits(number) : part);
        part.clear();
      }
      rows.push_back(text);
    }
    std::sort(rows.begin(), rows.end());
    return rows;
  }
  static void ExpectSame(const char* what, Lines stored, Lines wanted) {
    std::sort(wanted.begin(), wanted.end());
    Lines missing, surplus;
    std::set_difference(wanted.begin(), wanted.end(), stored.begin(), stored.end(), std::back_inserter(missing));
    std::set_difference(stored.begin(), stored.end(), wanted.begin(), wanted.end(), std::back_inserter(surplus));
    EXPECT_EQ(stored.size(), wanted.size()) << what;
    for (std::size_t i = 0; i < std::min<std::size_t>(missing.size(), 3); ++i) ADD_FAILURE() << what << " lacks " << missing[i];
    for (std::size_t i = 0; i < std::min<std::size_t>(surplus.size(), 3); ++i) ADD_FAILURE() << what << " has " << surplus[i];
  }
  void Compare() {
    Lines cards, items, ledger, day, movements, due, special, invoices;
    for (const auto& [code, a] : book.accounts)
      cards.push_back(fmt::format("{}|{}|{}|{}|{}", code, Digits(a.debit), Digits(a.credit), Digits(a.balance), a.side));
    for (const auto& [code, i] : book.items)
      items.push_back(fmt::format("{}|{}|{}|{}|{}|{}|{}|{}|{}|{}", code, Digits(books::Decimal(i.price, 2)),
                                  Digits(books::Decimal(i.cost, 2)), Digits(i.in), Digits(i.inTotal), Digits(i.out), Digits(i.outTotal),
                                  Digits(i.over), Digits(i.left), Digits(i.profit)));
    for (const auto& [id, rows] : book.ledger)
      for (const auto& row : rows)
        ledger.push_back(fmt::format("{}|{}|{}|{}|{}", id, row.account, row.text, Digits(row.debit), Digits(row.credit)));
    for (const auto& [id, l] : book.day)
      day.push_back(fmt::format("{}|{}|{}|{}|{}|{}|{}|{}|{}|{}", id, l.customer, l.item, l.state, Digits(l.price), Digits(l.quantity),
                                Digits(l.total), Digits(l.collected), Digits(l.profit), l.invoice));
    for (const auto& [number, i] : book.invoices)
      invoices.push_back(fmt::format("{}|{}|{}|{}|{}|{}|{}", number, i.customer, Digits(i.amount), Digits(i.tax), Digits(i.total),
                                     Digits(i.profit), i.lines));
    for (const auto& [id, m] : book.movements)
      movements.push_back(fmt::format("{}|{}|{}|{}", id, Digits(m.quantity), Digits(m.total), Digits(m.profit)));
    for (const auto& [customer, rows] : book.due)
      for (const auto& [date, amount] : rows) due.push_back(fmt::format("{}|{}|{}", customer, date, Digits(amount)));
    for (const auto& [key, prices] : book.specialPrices)
      special.push_back(fmt::format("{}|{}|{}", key, Digits(prices[0]), Digits(prices[1])));

    ExpectSame("CariKartlar", Stored("Cari.mdb", "SELECT CariKod, Borc, Alacak, Bakiye, Hesap FROM CariKartlar"), cards);
    ExpectSame("StokKartlar",
               Stored("Stok.mdb",
                      "SELECT StokKod, Fiyat, gFiyat, GirenMik, GirenTutar, CikanMik, CikanTutar, KalanA, KalanB, Kar "
                      "FROM StokKartlar WHERE StokKod NOT IN ('1001','1002')"),
               items);
    ExpectSame("CariHareket", Stored("Cari.mdb", "SELECT DigerId, cariharkod, Aciklama, Borc, Alacak FROM CariHareket"), ledger);
    ExpectSame("Datam",
               Stored("Karvel.mdb", "SELECT DigerId, CariKod, StokKod, Durum, Fiyat, Miktar, Tutar, Tahsilat, Kar, Aciklama FROM Datam"),
               day);
    ExpectSame(
        "Faturalar",
        Stored("Fatura.mdb",
               "SELECT FaturaNo, FatCari, FatTop, FatKdvTut, Toplam, FatKar, (SELECT count(*) FROM FatHareket WHERE DigerId=F.DigerId "
               "AND FatHarNo=F.FaturaNo) FROM Faturalar F"),
        invoices);
    ExpectSame("StokHareket", Stored("Stok.mdb", "SELECT DigerId, Miktar, Tutar, Kar FROM StokHareket"), movements);
    ExpectSame("VadeGün", Stored("Cari.mdb", "SELECT CariKod, VadeTarih, Tutar FROM \"VadeGün\""), due);
    ExpectSame("Cari", Stored("Cari.mdb", "SELECT StokKod, CariKod, \"0Fiyat\", \"1Fiyat\" FROM Cari"), special);
  }

  books::Books book;
  std::map<std::string, std::string> titles;
  Lines buyers, itemCodes;
  int newItems = 0;
  std::mt19937 random;
};

TEST_P(BooksTest, a_random_day_leaves_every_figure_as_the_rules_have_it) {
  const int actions = FromEnvironment("KARVEL_BOOK_ACTIONS", 2000);
  for (int i = 0; i < actions && !HasFatalFailure(); ++i) {
    Act();
    // A box that nobody expected, other than the question of a cancellation, is a refusal.
    for (const auto& box : messages.shown) EXPECT_EQ(box.text, "Satır Silinecek Emimisiniz..?") << "action " << i;
    messages.shown.clear();
    if (std::getenv("KARVEL_BOOK_EACH") != nullptr) {
      Compare();
      ASSERT_FALSE(HasFailure()) << "action " << i;
    }
  }
  Compare();
}

INSTANTIATE_TEST_SUITE_P(Days, BooksTest, ::testing::Range(1, 1 + FromEnvironment("KARVEL_BOOK_SEEDS", 3)));

}  // namespace
}  // namespace karvel
