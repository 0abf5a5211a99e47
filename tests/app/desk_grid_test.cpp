#include "app/desk_grid.h"

#include <fmt/format.h>

#include <QScrollBar>
#include <filesystem>

#include "app/qt_text.h"
#include "store/catalogue.h"
#include "store/cursor.h"
#include "store/sqlite/sqlite_engine.h"
#include "store/sqlite/templates.h"
#include "store/stores.h"
#include "tests/support/foreign_program.h"
#include "tests/support/other_process.h"
#include "tests/support/share_engine.h"
#include "tests/support/temp_folder.h"
#include "window_fixture.h"

namespace karvel {
namespace {

constexpr const char* kAll = "Select * From StokKartlar Where StokGizle=False Order By StokAdi ASC";

class DeskGridTest : public WindowTest {
 protected:
  DeskGridTest() {
    for (const DatabaseFile& file : Catalogue::Files()) WriteTemplate(file, folder.Path() + "/" + std::string(file.name)).Ignore();
    EXPECT_TRUE(stores.Driver().Open(folder.Path()).Ok());
    cursor.SetDatabaseName(folder.Path() + "/Stok.mdb");
    screen.StokGrid.SetColumns({{"Stok Kodu", "StokKod", true, Align::Left, "", 0},
                                {"Stok Adı", "StokAdi", true, Align::Left, "", 0},
                                {"Maliyet", "gFiyat", false, Align::Right, "#,##0.00", 0},
                                {"1.Fiyat", "Fiyat", true, Align::Right, "#,##0.00", 0},
                                {"Gizli", "StokGizle", true, Align::Center, "", 0}});
    screen.CariGrid.SetVisible(false);
    screen.Frame2.SetVisible(true);
  }

  // Cards "Mal 0000", "Mal 0001", … in the order of their names.
  void Fill(int count) {
    ASSERT_TRUE(cursor.Open(kAll).Ok());
    Action action(stores, "fill");
    for (int i = 0; i < count; ++i) {
      ASSERT_TRUE(cursor.AddNew().Ok());
      cursor.Set("StokKod", fmt::format("K{:04}", i).c_str());
      cursor.Set("StokAdi", fmt::format("Mal {:04}", i).c_str());
      cursor.Set("Fiyat", Value(1000.5 + i));
      {
        const Status done = cursor.Update();
        ASSERT_TRUE(done.Ok()) << done.Message();
      }
    }
    ASSERT_TRUE(action.Finish().Ok());
    ASSERT_TRUE(cursor.Refresh().Ok());
    screen.StokGrid.SetSource(&cursor);
    Settle();
  }

  void Settle() { QTest::qWait(30); }
  DeskGrid* Grid() { return qobject_cast<DeskGrid*>(Of(screen.StokGrid)); }
  void TapCell(int row, int column) { QTest::mouseClick(Grid()->viewport(), Qt::LeftButton, {}, Grid()->CellRect(row, column).center()); }
  void TapTop() { QTest::mouseClick(Grid()->viewport(), Qt::LeftButton, {}, QPoint(60, Grid()->HeadHeight() + 20)); }
  bool InView(int row) {
    const QRect cell = Grid()->CellRect(row, 0);
    return cell.top() >= Grid()->HeadHeight() && cell.bottom() < Grid()->viewport()->height();
  }

  TempFolder folder;
  Stores stores{MakeSqliteEngine({.programFolder = folder.Path(), .vfs = {}})};
  Cursor cursor{stores, "StokData"};
};

TEST_F(DeskGridTest, shows_the_visible_columns_with_their_formats) {
  Fill(3);
  EXPECT_EQ(Grid()->VisibleHeadings(), (QStringList{"Stok Kodu", "Stok Adı", "1.Fiyat", "Gizli"}));
  EXPECT_EQ(Grid()->ShownRows(2), (QList<QStringList>{{"K0000", "Mal 0000", "1.000,50", ""}, {"K0001", "Mal 0001", "1.001,50", ""}}));
}

TEST_F(DeskGridTest, rows_that_another_program_keeps_stay_on_the_screen_and_are_read_when_it_leaves) {
  Fill(3);
  const QImage before = Grid()->viewport()->grab().toImage();
  testing::ForeignProgram other(folder.Path() + "/Stok.mdb");
  other.Keep();
  const Stopwatch watch;
  cursor.shown();
  EXPECT_EQ(Grid()->viewport()->grab().toImage(), before);
  EXPECT_LT(watch.Seconds(), 0.5);
  other.Run("INSERT INTO StokKartlar(StokKod, StokAdi) VALUES('K9','Mal 9'); COMMIT");
  QTest::qWait(300);
  EXPECT_NE(Grid()->viewport()->grab().toImage(), before);
}

TEST_F(DeskGridTest, a_tap_moves_the_cursor_before_the_element_hears_of_it) {
  Fill(30);
  std::string seen;
  connections += screen.StokGrid.click.Connect([&] { seen = cursor.Text("StokKod") + "/" + std::to_string(screen.StokGrid.Column()); });
  TapCell(4, 2);
  EXPECT_EQ(seen, "K0004/3");
  EXPECT_EQ(Grid()->CurrentRowNumber(), 4);
  EXPECT_EQ(screen.elements.Focused(), &screen.StokGrid);
}

TEST_F(DeskGridTest, a_release_is_heard_with_the_tapped_row_in_front_and_before_the_tap) {
  Fill(30);
  std::string heard;
  connections += screen.StokGrid.mouseUp.Connect([&](const MouseEvent&) { heard += "up " + cursor.Text("StokKod") + " "; });
  connections += screen.StokGrid.click.Connect([&] { heard += "tap " + cursor.Text("StokKod"); });
  TapCell(4, 1);
  EXPECT_EQ(heard, "up K0004 tap K0004");
}

TEST_F(DeskGridTest, a_double_tap_is_one_tap_and_one_double_tap) {
  Fill(5);
  int taps = 0, doubles = 0;
  connections += screen.StokGrid.click.Connect([&] { ++taps; });
  connections += screen.StokGrid.dblClick.Connect([&] { ++doubles; });
  DoubleTap(Grid()->viewport(), Grid()->CellRect(2, 1).center());
  EXPECT_EQ(taps, 1);
  EXPECT_EQ(doubles, 1);
  EXPECT_EQ(cursor.Text("StokKod"), "K0002");
}

TEST_F(DeskGridTest, a_heading_tells_its_column_number_hidden_ones_counted) {
  Fill(5);
  int column = -1;
  connections += screen.StokGrid.headClick.Connect([&](int number) { column = number; });
  QTest::mouseClick(Grid()->viewport(), Qt::LeftButton, {}, Grid()->HeadRect(2).center());
  EXPECT_EQ(column, 3);
}

TEST_F(DeskGridTest, a_key_taps_a_heading_by_its_place) {
  Fill(5);
  int column = -1;
  connections += screen.StokGrid.headClick.Connect([&](int number) { column = number; });
  Strike(Grid(), Qt::Key_3, "3");
  EXPECT_EQ(column, -1);
  Strike(Grid(), Qt::Key_3, "3", Qt::ControlModifier);
  EXPECT_EQ(column, 3);
  column = -1;
  Strike(Grid(), Qt::Key_9, "9", Qt::ControlModifier);
  EXPECT_EQ(column, -1);
}

TEST_F(DeskGridTest, the_current_record_comes_into_view_where_the_keyboard_leaves_the_list_free) {
  Fill(900);
  screen.Form2.frame.Serve(&screen.Text1(1));
  screen.Form2.Form2.SetVisible(true);
  Settle();
  const auto seen = [this] {
    const auto at = Grid()->RowInFront();
    return at && window.childAt(Grid()->mapTo(&window, *at)) == Grid()->viewport();
  };
  for (const int top : {window.height() - Of(screen.Form2.Form2)->height(), 0}) {
    const WindowBox box = screen.Form2.frame.Box();
    screen.Form2.frame.Put({box.left, top, box.width, box.height});
    for (const int row : {700, 899, 890, 40, 46, 52}) {
      ASSERT_TRUE(cursor.FindFirst(fmt::format("StokKod='K{:04}'", row)).Ok());
      Settle();
      EXPECT_TRUE(seen()) << top << " " << row;
    }
  }
}

TEST_F(DeskGridTest, the_row_in_front_comes_out_from_under_a_keyboard_that_opens_and_the_list_ends_at_its_end_when_that_goes) {
  Fill(900);
  ASSERT_TRUE(cursor.MoveLast().Ok());
  Settle();
  const QPoint before = Grid()->RowInFront().value_or(QPoint());
  screen.Form2.frame.Serve(&screen.Text1(1));
  screen.Form2.Form2.SetVisible(true);
  Settle();
  ASSERT_TRUE(Grid()->RowInFront());
  EXPECT_LT(Grid()->RowInFront()->y(), before.y());
  screen.Form2.Form2.SetVisible(false);
  QTest::qWait(150);
  EXPECT_EQ(Grid()->RowInFront(), before);
}

TEST_F(DeskGridTest, a_tap_that_sends_the_keyboard_away_takes_the_row_under_the_finger_and_so_does_the_next) {
  Fill(900);
  ASSERT_TRUE(cursor.MoveLast().Ok());
  Settle();
  screen.Form2.frame.Serve(&screen.Text1(1));
  screen.Form2.Form2.SetVisible(true);
  Settle();
  Focus(screen.Text1(1));
  connections += screen.StokGrid.gotFocus.Connect([this] { screen.Form2.Form2.SetVisible(false); });
  const auto at = Grid()->RowInFront();
  ASSERT_TRUE(at);
  for (int tap = 0; tap < 2; ++tap) {
    QTest::mouseClick(Grid()->viewport(), Qt::LeftButton, {}, Grid()->viewport()->mapFrom(Grid(), *at));
    Settle();
    EXPECT_FALSE(screen.Form2.Form2.Visible());
    EXPECT_EQ(cursor.Text("StokKod"), "K0899");
  }
}

TEST_F(DeskGridTest, the_current_record_comes_into_view_wherever_it_is) {
  Fill(900);
  ASSERT_TRUE(cursor.FindFirst("StokKod='K0700'").Ok());
  Settle();
  EXPECT_EQ(Grid()->CurrentRowNumber(), 700);
  EXPECT_TRUE(InView(700));
  ASSERT_TRUE(cursor.MoveLast().Ok());
  Settle();
  EXPECT_TRUE(InView(899));
  ASSERT_TRUE(cursor.MoveFirst().Ok());
  Settle();
  EXPECT_TRUE(InView(0));
}

TEST_F(DeskGridTest, figures_stay_in_their_column_at_any_scale) {
  auto columns = screen.StokGrid.Columns();
  for (const char* const price : {"Fiyat2", "Fiyat3", "gFiyat", "GirenTutar"})
    columns.push_back({price, price, true, Align::Right, "Standard", 0});
  screen.StokGrid.SetColumns(columns);
  Fill(8);
  ASSERT_TRUE(cursor.MoveFirst().Ok());
  for (int row = 0; row < 8; ++row) {
    ASSERT_TRUE(cursor.Edit().Ok());
    for (const char* const price : {"Fiyat", "Fiyat2", "Fiyat3", "gFiyat", "GirenTutar"}) cursor.Set(price, Value(123456.78 + row));
    ASSERT_TRUE(cursor.Update().Ok());
    cursor.MoveNext().Ignore();
  }
  screen.StokGrid.SetMarker(false);
  for (const QSize& size : {QSize(512, 384), QSize(683, 512), QSize(1024, 768)}) {
    window.resize(size);
    Settle();
    const QImage shown = Grid()->viewport()->grab().toImage();
    const int top = Grid()->HeadHeight() + Grid()->RowHeight() / 4, bottom = top + Grid()->RowHeight() / 2;
    for (int column = 2; column < 8; ++column) {
      // The gap before a number belongs to nobody.
      const int x = Grid()->HeadRect(column).left();
      for (int y = top; y < bottom; ++y) EXPECT_EQ(shown.pixelColor(x, y), palette::kField) << size.width() << " " << column;
    }
  }
}

TEST_F(DeskGridTest, arrows_and_pages_move_the_current_record) {
  Fill(200);
  Focus(screen.StokGrid);
  Strike(Grid(), Qt::Key_Down);
  Strike(Grid(), Qt::Key_Down);
  Strike(Grid(), Qt::Key_Up);
  EXPECT_EQ(cursor.Text("StokKod"), "K0001");
  Strike(Grid(), Qt::Key_End);
  EXPECT_EQ(cursor.Text("StokKod"), "K0199");
  Strike(Grid(), Qt::Key_Down);
  EXPECT_EQ(cursor.Text("StokKod"), "K0199");
  Strike(Grid(), Qt::Key_PageUp);
  EXPECT_LT(Grid()->CurrentRowNumber(), 198);
  Strike(Grid(), Qt::Key_Home);
  Strike(Grid(), Qt::Key_Up);
  EXPECT_EQ(cursor.Text("StokKod"), "K0000");
}

TEST_F(DeskGridTest, a_key_that_a_handler_drops_moves_nothing) {
  Fill(10);
  connections += screen.StokGrid.keyDown.Connect([](KeyEvent& event) { event.dropped = event.code == key::kDown; });
  Focus(screen.StokGrid);
  Strike(Grid(), Qt::Key_Down);
  EXPECT_EQ(cursor.Text("StokKod"), "K0000");
}

TEST_F(DeskGridTest, a_finger_drags_the_rows_and_taps_nothing) {
  Fill(200);
  int taps = 0;
  connections += screen.StokGrid.click.Connect([&] { ++taps; });
  QWidget* const body = Grid()->viewport();
  const QPoint from(80, body->height() - 20);
  QTest::mousePress(body, Qt::LeftButton, {}, from);
  for (int step = 20; step <= 140; step += 20) {
    const QPointF at(from - QPoint(0, step));
    QMouseEvent move(QEvent::MouseMove, at, body->mapToGlobal(at), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(body, &move);
  }
  QTest::mouseRelease(body, Qt::LeftButton, {}, from - QPoint(0, 140));
  EXPECT_EQ(taps, 0);
  EXPECT_EQ(cursor.Text("StokKod"), "K0000");
  EXPECT_GT(Grid()->verticalScrollBar()->value(), 100);
}

TEST_F(DeskGridTest, a_dragged_border_tells_the_new_widths) {
  Fill(5);
  int resized = 0;
  connections += screen.StokGrid.columnsResized.Connect([&] { ++resized; });
  const QRect head = Grid()->HeadRect(0);
  QWidget* const body = Grid()->viewport();
  const QPoint from(head.right(), head.center().y());
  QTest::mousePress(body, Qt::LeftButton, {}, from);
  const QPointF at(from + QPoint(60, 0));
  QMouseEvent move(QEvent::MouseMove, at, body->mapToGlobal(at), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(body, &move);
  QTest::mouseRelease(body, Qt::LeftButton, {}, at.toPoint());
  EXPECT_EQ(resized, 1);
  EXPECT_NEAR(screen.StokGrid.Columns()[0].width, (head.width() + 60) * kTwipsPerPixel, 2 * kTwipsPerPixel);
  EXPECT_EQ(Grid()->HeadRect(0).width(), head.width() + 60);
}

TEST_F(DeskGridTest, a_row_added_shows_and_a_row_deleted_goes) {
  Fill(3);
  ASSERT_TRUE(cursor.AddNew().Ok());
  cursor.Set("StokKod", "YENI");
  cursor.Set("StokAdi", "Ayran");
  {
    const Status done = cursor.Update();
    ASSERT_TRUE(done.Ok()) << done.Message();
  }
  Settle();
  EXPECT_EQ(Grid()->ShownRows(10).size(), 4);
  EXPECT_EQ(Grid()->ShownRows(1).front().at(0), "YENI");
  ASSERT_TRUE(cursor.FindFirst("StokKod='YENI'").Ok());
  ASSERT_TRUE(cursor.Delete().Ok());
  Settle();
  EXPECT_EQ(Grid()->ShownRows(10).size(), 3);
}

TEST_F(DeskGridTest, in_an_emptied_source_a_tap_is_one_on_the_list_and_on_no_row) {
  Fill(3);
  int taps = 0, releases = 0;
  connections += screen.StokGrid.click.Connect([&] { ++taps; });
  connections += screen.StokGrid.mouseUp.Connect([&](const MouseEvent&) { ++releases; });
  const QPoint place = Grid()->CellRect(1, 1).center();
  ASSERT_TRUE(cursor.Open("Select * From StokKartlar Where StokKod='yok' Order By StokAdi ASC").Ok());
  Settle();
  QTest::mouseClick(Grid()->viewport(), Qt::LeftButton, {}, place);
  EXPECT_EQ(taps, 1);
  EXPECT_EQ(releases, 0);
  EXPECT_EQ(Grid()->CurrentRowNumber(), -1);
}

TEST_F(DeskGridTest, a_finger_held_on_a_row_is_the_right_press_on_it) {
  Fill(10);
  int rights = 0, taps = 0;
  connections += screen.StokGrid.mouseDown.Connect([&](const MouseEvent& event) { rights += event.button == 2; });
  connections += screen.StokGrid.click.Connect([&] { ++taps; });
  const QPoint place = Grid()->CellRect(3, 1).center();
  QTest::mousePress(Grid()->viewport(), Qt::LeftButton, {}, place);
  QTest::qWait(900);
  QTest::mouseRelease(Grid()->viewport(), Qt::LeftButton, {}, place);
  EXPECT_EQ(rights, 1);
  EXPECT_EQ(taps, 0);
  EXPECT_EQ(cursor.Text("StokKod"), "K0003");
}

TEST_F(DeskGridTest, the_bar_of_a_long_list_goes_by_the_names) {
  Fill(5000);
  QTest::qWait(150);
  QScrollBar* const bar = Grid()->verticalScrollBar();
  EXPECT_EQ(bar->value(), 0);
  bar->setValue(bar->maximum() / 2);
  Settle();
  TapTop();
  EXPECT_NEAR(Grid()->CurrentRowNumber(), 2500, 1500);
  bar->setValue(bar->maximum());
  Settle();
  EXPECT_TRUE(InView(4999));
}

TEST_F(DeskGridTest, many_changes_are_painted_once) {
  Fill(60);
  int reads = 0;
  connections += cursor.shown.Connect([&] { ++reads; });
  struct Paints : QObject {
    int count = 0;
    bool eventFilter(QObject*, QEvent* event) override {
      count += event->type() == QEvent::Paint;
      return false;
    }
  } paints;
  Grid()->viewport()->installEventFilter(&paints);
  for (int i = 0; i < 20; ++i) ASSERT_TRUE(cursor.MoveNext().Ok());
  Settle();
  EXPECT_GE(reads, 20);
  EXPECT_LE(paints.count, 2);
}

TEST_F(DeskGridTest, a_double_tap_means_one_row_also_when_the_first_tap_brings_new_ones) {
  Fill(5);
  bool arrived = false;
  connections += screen.StokGrid.click.Connect([&] {
    if (std::exchange(arrived, true)) return;
    Cursor other(stores, "other");
    other.SetDatabaseName(cursor.DatabaseName());
    EXPECT_TRUE(other.Open(kAll).Ok() && other.AddNew().Ok());
    other.Set("StokKod", "NEW");
    other.Set("StokAdi", "Ayran");  // above all others
    EXPECT_TRUE(other.Update().Ok());
  });
  std::string doubled;
  connections += screen.StokGrid.dblClick.Connect([&] { doubled = cursor.Text("StokKod"); });
  DoubleTap(Grid()->viewport(), Grid()->CellRect(2, 1).center());
  EXPECT_EQ(doubled, "K0002");
  EXPECT_EQ(Grid()->ShownRows(1)[0][0], "NEW");
  // The next one, of its own, means the row under the finger again.
  QTest::qWait(QApplication::doubleClickInterval() + 50);
  DoubleTap(Grid()->viewport(), Grid()->CellRect(0, 1).center());
  EXPECT_EQ(doubled, "NEW");
}

TEST_F(DeskGridTest, space_taps_the_row_in_front_and_enter_taps_it_twice) {
  Fill(5);
  std::string heard;
  connections += screen.StokGrid.click.Connect([&] { heard += "tap " + cursor.Text("StokKod") + " "; });
  connections += screen.StokGrid.dblClick.Connect([&] { heard += "double " + cursor.Text("StokKod") + " "; });
  Focus(screen.StokGrid);
  Strike(Of(screen.StokGrid), Qt::Key_Down);
  Strike(Of(screen.StokGrid), Qt::Key_Space, " ");
  EXPECT_EQ(heard, "tap K0001 ");
  heard.clear();
  Strike(Of(screen.StokGrid), Qt::Key_Return, "\r");
  EXPECT_EQ(heard, "tap K0001 double K0001 ");
}

TEST_F(DeskGridTest, a_finger_that_comes_up_is_always_heard) {
  Fill(5);
  int pressed = 0, released = 0;
  connections += screen.StokGrid.mouseDown.Connect([&](const MouseEvent&) { ++pressed; });
  connections += screen.StokGrid.released.Connect([&] { ++released; });
  QWidget* const view = Grid()->viewport();
  const QPoint head = Grid()->HeadRect(0).center(), border = Grid()->HeadRect(1).topRight() + QPoint(0, 10);
  QTest::mouseClick(view, Qt::LeftButton, {}, head);
  EXPECT_EQ(std::pair(pressed, released), std::pair(1, 1));
  // A border that is dragged, and a press that ends elsewhere.
  QTest::mousePress(view, Qt::LeftButton, {}, border);
  QTest::mouseMove(view, border + QPoint(30, 0));
  QTest::mouseRelease(view, Qt::LeftButton, {}, border + QPoint(30, 0));
  QTest::mousePress(view, Qt::LeftButton, {}, head);
  QTest::mouseRelease(view, Qt::LeftButton, {}, Grid()->CellRect(2, 1).center());
  EXPECT_EQ(std::pair(pressed, released), std::pair(3, 3));
  // A list that goes under the finger.
  QTest::mousePress(view, Qt::LeftButton, {}, head);
  screen.StokGrid.SetVisible(false);
  EXPECT_GE(released, 4);
}

// A list of the main machine's rows, into which other terminals write.
class SharedListTest : public DeskGridTest {
 protected:
  SharedListTest() {
    EXPECT_TRUE(main.Open("\\\\kasa\\MuhasebeData\\01").Ok());
    for (int i = 0; i < 60; ++i) Other().Run(fmt::format("INSERT INTO StokKartlar(StokKod, StokAdi) VALUES('K{}', 'Mal {:02}')", i, i));
    list.SetDatabaseName("Stok.mdb");
    EXPECT_TRUE(list.Open(kAll).Ok());
    screen.StokGrid.SetSource(&list);
    Settle();
  }
  testing::ForeignProgram Other() { return testing::ForeignProgram(folder.Path() + "/net/kasa/MuhasebeData/01/Stok.mdb"); }
  void AnotherTerminalAddsOneAbove() {
    Other().Run("INSERT INTO StokKartlar(StokKod, StokAdi) VALUES('NEW', 'Ayran')");
    server.foreign = {"stok/StokKartlar"};
    main.ShowForeignChanges();
    Settle();
  }

  testing::ServerWatch server;
  Stores main{std::make_unique<testing::ShareEngine>(MakeSqliteEngine({.programFolder = folder.Path(), .vfs = {}}), server,
                                                     folder.Path() + "/net", folder.Path())};
  Cursor list{main, "List"};
};

TEST_F(SharedListTest, what_another_terminal_adds_above_is_seen_at_the_top_of_a_resting_list) {
  AnotherTerminalAddsOneAbove();
  TapTop();
  EXPECT_EQ(list.Text("StokKod"), "NEW");
}

TEST_F(SharedListTest, a_pressed_finger_takes_the_row_on_which_it_was_laid) {
  const QPoint top(60, Grid()->HeadHeight() + 20);
  QTest::mousePress(Grid()->viewport(), Qt::LeftButton, {}, top);
  AnotherTerminalAddsOneAbove();
  QTest::mouseRelease(Grid()->viewport(), Qt::LeftButton, {}, top);
  EXPECT_EQ(list.Text("StokKod"), "K0");
  // The hand is still there: the rows stay under it.
  Settle();
  TapTop();
  EXPECT_EQ(list.Text("StokKod"), "K0");
}

TEST_F(SharedListTest, rows_of_a_server_that_is_away_stay_on_the_screen) {
  const QImage before = Grid()->viewport()->grab().toImage();
  server.away = true;
  list.shown();
  EXPECT_EQ(Grid()->viewport()->grab().toImage(), before);
  server.away = false;
  Other().Run("INSERT INTO StokKartlar(StokKod, StokAdi) VALUES('NEW', 'Ayran')");
  ASSERT_TRUE(main.AskServer().Ok());
  Settle();
  EXPECT_NE(Grid()->viewport()->grab().toImage(), before);
}

TEST_F(SharedListTest, an_empty_list_says_that_the_server_is_away) {
  ASSERT_TRUE(list.Open("Select * From StokKartlar Where StokKod='YOK'").Ok());
  const QImage empty = Grid()->viewport()->grab().toImage();
  server.away = true;
  ASSERT_TRUE(list.Refresh().Ok());
  EXPECT_NE(Grid()->viewport()->grab().toImage(), empty);
}

}  // namespace
}  // namespace karvel
