// A scanner that types, at the whole desk: its window, its features and a real store.
#include <QApplication>
#include <QTest>

#include "app/code_scanner.h"
#include "app/desk_window.h"
#include "app/scanner_keys.h"
#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class ScanAtDeskTest : public DeskFixture {
 protected:
  ScanAtDeskTest() {
    EXPECT_TRUE(Start());
    AddCustomer("C1", "Ayşe Yılmaz");
    AddStock("S1", "Pirinç");
    AddStock("S2", "Şeker");
    EXPECT_TRUE(Start());
    connections += typed.codeRead.Connect([this](const std::string& code) { scanner.codeRead(code); });
    window_ = std::make_unique<DeskWindow>(desk->screen, DeskLife{});
    window_->show();
    (void)QTest::qWaitForWindowActive(window_.get());
    EnterSale("Ayşe Yılmaz");
  }
  ~ScanAtDeskTest() override { window_.reset(); }

  void ScanAt(const std::string& name, const QString& code) {
    QWidget* const widget = window_->WidgetOf(At(name));
    widget->setFocus();
    ASSERT_TRUE(widget->hasFocus()) << name;
    for (const QChar letter : code + '\r') {
      const int key = letter == '\r' ? int{Qt::Key_Return} : int{letter.toUpper().unicode()};
      for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, QString(letter));
        event.setTimestamp(now_++);
        QSpontaneKeyEvent::setSpontaneous(&event);
        QCoreApplication::instance()->notify(QApplication::focusWidget(), &event);
      }
    }
    QTest::qWait(100);
  }

  CodeScanner typed;
  ScannerKeys keys{typed};
  std::unique_ptr<DeskWindow> window_;
  quint64 now_ = 1000;
};

TEST_F(ScanAtDeskTest, a_code_struck_at_the_stock_list_finds_its_item) {
  ScanAt("StokGrid", "869S2");
  EXPECT_EQ(At("Text1(1)").Text(), "Şeker");
  EXPECT_EQ(desk->cursors.StokData.Text("StokKod"), "S2");
  EXPECT_EQ(At("Text2(0)").Text(), "10,00");
  EXPECT_TRUE(At("Text2(1)").HasFocus());
}

TEST_F(ScanAtDeskTest, a_code_struck_at_a_button_posts_its_line_and_does_not_press_the_button) {
  At("SecimTamam").SetChecked(true);
  ScanAt("Command3", "869S2");
  ScanAt("StokGrid", "869S1");
  EXPECT_FALSE(desk->screen.CariGrid.Visible());
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT StokKod, Miktar FROM Datam"), (std::vector<std::string>{"S2|1.0", "S1|1.0"}));
}

TEST_F(ScanAtDeskTest, a_code_struck_while_a_new_item_is_asked_for_is_its_barcode_and_sells_nothing) {
  At("SecimTamam").SetChecked(true);
  At("StokGiris").SetVisible(true);
  for (const char* const field : {"StokNew(0)", "StokNew(1)", "StokNew(3)", "StokNewCmd(0)", "Text1(1)", "StokGrid"}) {
    At("StokNew(2)").SetText("");
    At("StokNew(1)").SetText("Zeytin");
    const std::string before = At("Text1(1)").Text();
    ScanAt(field, "8690000001");
    EXPECT_EQ(At("StokNew(2)").Text(), "8690000001") << field;
    EXPECT_EQ(At("StokNew(0)").Text() + At("StokNew(1)").Text() + At("StokNew(3)").Text(), "Zeytin") << field;
    EXPECT_EQ(At("Text1(1)").Text(), before) << field;
  }
  EXPECT_TRUE(Rows("Karvel.mdb", "SELECT StokKod FROM Datam").empty());
}

}  // namespace
}  // namespace karvel
