#include "window_fixture.h"

namespace karvel {
namespace {

class TabOrderTest : public WindowTest {};

TEST_F(TabOrderTest, tab_goes_in_the_order_of_the_elements_past_what_is_hidden_or_off) {
  Focus(screen.Text1(0));
  screen.Command1.SetEnabled(false);
  std::vector<std::string> way;
  for (int i = 0; i < 6; ++i) {
    Strike(QApplication::focusWidget(), Qt::Key_Tab, "\t");
    way.push_back(screen.elements.Focused()->Name());
  }
  EXPECT_EQ(way, (std::vector<std::string>{"Text2(2)", "Command2", "Command4", "CariGrid", "Text5", "ComboCmd"}));
  Strike(QApplication::focusWidget(), Qt::Key_Backtab, {}, Qt::ShiftModifier);
  EXPECT_EQ(screen.elements.Focused(), &screen.Text5);
}

TEST_F(TabOrderTest, tab_is_heard_also_while_nobody_has_the_keyboard) {
  window.setFocus();
  ASSERT_TRUE(window.hasFocus());
  Strike(&window, Qt::Key_Tab, "\t");
  EXPECT_FALSE(window.hasFocus());
  EXPECT_NE(QApplication::focusWidget(), nullptr);
}

// Whoever walks through the fields with Enter must not come to a tile between them, and change the mode of the line.
TEST_F(TabOrderTest, tiles_that_answer_taps_come_before_the_fields_and_those_that_answer_none_not_at_all) {
  connections += screen.Label1(0).dblClick.Connect([] {});
  connections += screen.Label3.click.Connect([] {});
  connections += screen.Label1(7).mouseDown.Connect([](const MouseEvent&) {});
  Focus(screen.Text1(0));
  std::string way;
  for (int i = 0; i < 4; ++i) {
    Strike(QApplication::focusWidget(), Qt::Key_Backtab, "\t", Qt::ShiftModifier);
    way += screen.elements.Focused()->Name() + " ";
  }
  EXPECT_EQ(way, "Label3 Label1(7) Label1(0) SilinenChk ");
  Focus(screen.Text2(2));
  Strike(QApplication::focusWidget(), Qt::Key_Tab, "\t");
  EXPECT_EQ(screen.elements.Focused(), &screen.Command2);
}

TEST_F(TabOrderTest, a_finger_on_a_tile_leaves_the_keyboard_where_it_is) {
  connections += screen.Label3.click.Connect([] {});
  Focus(screen.Text1(0));
  QTest::mouseClick(Of(screen.Label3), Qt::LeftButton);
  EXPECT_TRUE(Of(screen.Text1(0))->hasFocus());
}

TEST_F(TabOrderTest, tab_walks_a_panel_round_and_comes_to_its_way_out_last) {
  screen.CariFrm.SetVisible(true);
  Focus(screen.CariNew(9));
  std::string way;
  for (int i = 0; i < 4; ++i) {
    Strike(QApplication::focusWidget(), Qt::Key_Tab, "\t");
    way += screen.elements.Focused()->Name() + " ";
  }
  EXPECT_EQ(way, "CariChk CariNewCmd(1) CariNewCmd(0) CariNew(0) ");
  Strike(QApplication::focusWidget(), Qt::Key_Backtab, "\t", Qt::ShiftModifier);
  EXPECT_EQ(screen.elements.Focused(), &screen.CariNewCmd(0));
}

}  // namespace
}  // namespace karvel
