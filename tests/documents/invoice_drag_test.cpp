#include "tests/support/invoice_desk.h"

namespace karvel {
namespace {

// A finger on the list: five rows of 40 pixels are seen, so a page is three.
class InvoiceDragged : public InvoiceDesk {
 protected:
  void SetUp() override {
    InvoiceDesk::SetUp();
    PutMany(8);
    Open();
  }
  void Drag(int from, int to) {
    GridElement& grid = desk->screen.FatGrid;
    MouseEvent event;
    event.y = from;
    grid.mouseDown(event);
    event.y = to;
    grid.mouseMove(event);
    grid.released();
  }
  std::string InFront() { return Lines().Text("DigerId"); }
};

TEST_F(InvoiceDragged, up_it_goes_on_and_down_it_goes_back_and_stops_at_the_ends) {
  Drag(200, 100);
  EXPECT_EQ(InFront(), "L04");
  Drag(200, 100);
  EXPECT_EQ(InFront(), "L07");
  Drag(200, 100);
  EXPECT_EQ(InFront(), "L08");
  Drag(100, 200);
  EXPECT_EQ(InFront(), "L05");
  Drag(100, 200);
  EXPECT_EQ(InFront(), "L02");
  Drag(100, 200);
  EXPECT_EQ(InFront(), "L01");
}

TEST_F(InvoiceDragged, no_line_is_ticked_by_it_and_within_a_row_nothing_moves) {
  const Texts before = Ticked();
  Drag(90, 110);
  EXPECT_EQ(InFront(), "L01");
  Drag(200, 100);
  EXPECT_EQ(Ticked(), before);
}

TEST_F(InvoiceDragged, a_finger_that_comes_up_without_having_gone_down_moves_nothing) {
  desk->screen.FatGrid.released();
  EXPECT_EQ(InFront(), "L01");
}

}  // namespace
}  // namespace karvel
