// karvel-window-bench: what the clerk waits for in the window itself, from the key or tap to the painted rows.
//   karvel-window-bench wide|busy     in the shop of KARVEL_HOME, offscreen unless told otherwise
// Prints a line a measurement: name, a tab, the median, a tab, the 99th of a hundred (the worst of fewer), both in milliseconds.
#include <fmt/format.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>
#include <chrono>
#include <cstring>
#include <exception>
#include <functional>
#include <stdexcept>
#include <thread>
#include <vector>

#include "app/app.h"
#include "app/desk_window.h"
#include "app/qt_text.h"
#include "store/cursor.h"
#include "tests/support/quiet_world.h"
#include "text/turkish.h"

namespace karvel::bench {
namespace {

class WindowBench {
 public:
  WindowBench(App& app, ScriptedMessages& messages)
      : desk_(app.TheDesk()), window_(app.TheWindow()), screen_(desk_.screen), messages_(messages) {
    window_.resize(1024, 768);
    window_.show();
    Rest();
    if (!screen_.CariGrid.IsShown()) throw std::runtime_error("the desk doesn't open");
  }

  void Wide();
  void Busy();

 private:
  // What happens until the screen shows it.
  double Milliseconds(const std::function<void()>& action) {
    const auto begin = std::chrono::steady_clock::now();
    action();
    QCoreApplication::processEvents();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
  }

  // The clerk looks at the screen; what the window does meanwhile must not hold up his next key either.
  void Rest() {
    double worst = 0;
    for (int i = 0; i < 10; ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
      worst = std::max(worst, Milliseconds([] {}));
    }
    rests_.push_back(worst);
  }

  void Print(const std::string& name, std::vector<double>& times) {
    std::ranges::sort(times);
    const std::size_t last = times.size() < 100 ? times.size() - 1 : times.size() * 99 / 100;
    fmt::print("{}\t{:.3f}\t{:.3f}\n", name, times[times.size() / 2], times[last]);
    times.clear();
  }

  void Strike(const Element& element, const QString& letter) {
    QWidget* const widget = window_.WidgetOf(element);
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, Qt::Key_unknown, Qt::NoModifier, letter);
      QCoreApplication::sendEvent(widget, &event);
    }
  }

  // Types the beginnings of names letter by letter, as far as `letters`.
  void TypeNames(const std::string& name, Element& field, const std::vector<std::string>& names, qsizetype letters) {
    std::vector<double> completed, painted;
    for (const std::string& text : names) {
      field.SetFocus();
      field.SelectAll();
      QCoreApplication::processEvents();
      for (const QChar letter : ToQt(text).left(letters)) {
        const auto begin = std::chrono::steady_clock::now();
        painted.push_back(Milliseconds([&] {
          Strike(field, QString(letter));
          completed.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count());
        }));
      }
      if (field.Text().empty()) throw std::runtime_error(name + ": nothing was completed");
    }
    Print(name + ", key press to completed field", completed);
    Print(name + ", key press to painted grid", painted);
  }

  void Press(const Element& key) {
    QWidget* const widget = window_.WidgetOf(key);
    const QPointF point = widget->rect().center();
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      const bool press = type == QEvent::MouseButtonPress;
      QMouseEvent event(type, point, widget->mapToGlobal(point), Qt::LeftButton, press ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
      QCoreApplication::sendEvent(widget, &event);
    }
  }

  [[nodiscard]] const Element* KeyOf(const std::string& letter) const {
    const ElementArray& keys = screen_.Form2.Label1;
    if (letter == " ") return &keys(KeyboardScreen::kSpace);
    for (int i = 0; i < keys.Count(); ++i)
      if (EqualText(keys(i).Caption(), letter)) return &keys(i);
    return nullptr;
  }

  // The same names on the on-screen keyboard, where the list follows each key too.
  void TapNames(const std::string& name, Element& field, const std::vector<std::string>& names, std::size_t letters) {
    std::vector<double> painted;
    for (const std::string& text : names) {
      field.SetFocus();
      field.click();
      QCoreApplication::processEvents();
      if (!screen_.Form2.Form2.Visible()) throw std::runtime_error(name + ": the keyboard doesn't open");
      for (std::size_t i = 0; i < std::min(letters, LetterCount(text)); ++i)
        if (const Element* const key = KeyOf(MidLetters(text, i, 1))) painted.push_back(Milliseconds([&] { Press(*key); }));
      if (field.Text().empty()) throw std::runtime_error(name + ": nothing was written");
      screen_.Form2.Command1.click();
      QCoreApplication::processEvents();
    }
    Print(name + ", key press to painted grid", painted);
  }

  void Each(const std::string& name, const std::vector<std::function<void()>>& actions, int times = 1) {
    std::vector<double> painted;
    rests_.clear();
    for (int i = 0; i < times; ++i)
      for (const auto& action : actions) {
        painted.push_back(Milliseconds(action));
        Rest();
      }
    Print(name, painted);
    Print(name + ", at rest afterwards", rests_);
  }

  std::vector<std::string> Names(const Cursor& cursor, const char* field, int count) {
    // Spread over the whole list.
    std::vector<std::string> names;
    for (const char* letter :
         {"a", "b", "c", "ç", "d", "e", "f", "g", "h", "i", "k", "l", "m", "n", "o", "p", "r", "s", "ş", "t", "u", "v", "y", "z"}) {
      GridRow beside;
      beside.values.resize(cursor.SourceTable()->columns.size());
      beside.values[static_cast<std::size_t>(cursor.SourceTable()->Position(field))] = std::string(letter);
      for (const GridRow& row : cursor.RowsAfter(beside, count))
        names.push_back(AsText(row.values[static_cast<std::size_t>(cursor.SourceTable()->Position(field))]));
    }
    return names;
  }

  void Enter() {
    screen_.Label1(0).dblClick();
    QCoreApplication::processEvents();
  }

  Desk& desk_;
  DeskWindow& window_;
  Screen& screen_;
  ScriptedMessages& messages_;
  std::vector<double> rests_;
};

void WindowBench::Wide() {
  Screen& screen = screen_;
  TapNames("customer's name on the screen's keys", screen.Text1(0), Names(desk_.cursors.CariData, "Unvan", 3), 8);
  TypeNames("customer's name", screen.Text1(0), Names(desk_.cursors.CariData, "Unvan", 3), 8);
  const auto filter = [&screen](const char* text) { return [&screen, text] { screen.Text5.SetText(text); }; };
  Each("list by Text5, Unvan Like",
       {filter("a"), filter("ah"), filter("ahmet"), filter("ş"), filter("zeynep"), filter("çelik"), filter("")});
  Each("list by Text5, Unvan Like with ? for i",
       {filter("i"), filter("ib"), filter("ibr"), filter("ibrahim"), filter("ibrahim k"), filter("ali"), filter("fil"), filter("")});
  Each("list by Text5 that fits nothing", {filter("qqq"), filter("iqq"), filter("iq"), filter("ziqx"), filter("")});
  std::vector<std::function<void()>> groups;
  for (int i = 0; i < static_cast<int>(screen.GurupCombo.Items().size()); ++i)
    groups.push_back([&screen, i] { screen.GurupCombo.Choose(i); });
  groups.push_back([&screen] { screen.GurupCombo.Choose(0); });
  Each("list by GurupCombo", groups);
  Enter();
  TapNames("product's name on the screen's keys", screen.Text1(1), Names(desk_.cursors.StokData, "StokAdi", 3), 8);
  TypeNames("product's name", screen.Text1(1), Names(desk_.cursors.StokData, "StokAdi", 3), 8);
  screen.ComboCmd.Press();
  groups.clear();
  for (int i = 0; i < static_cast<int>(screen.GurupCombo.Items().size()); ++i)
    groups.push_back([&screen, i] { screen.GurupCombo.Choose(i); });
  groups.push_back([&screen] { screen.GurupCombo.Choose(0); });
  Each("stock by GurupCombo", groups);
}

void WindowBench::Busy() {
  Screen& screen = screen_;
  const auto head = [](GridElement& grid, int column) { return [&grid, column] { grid.headClick(column); }; };
  const auto heads = [&head](GridElement& grid) {
    std::vector<std::function<void()>> taps;
    for (int i = 0; i < static_cast<int>(grid.Columns().size()); ++i) {
      if (grid.Columns()[static_cast<std::size_t>(i)].field.empty()) continue;
      taps.push_back(head(grid, i));
      taps.push_back(head(grid, i));
    }
    return taps;
  };
  Each("customers sorted", heads(screen.CariGrid));
  Each("switch to the stock list and back",
       {[&screen] { screen.StokChk.SetChecked(true); }, [&screen] { screen.StokChk.SetChecked(false); }}, 5);
  screen.StokChk.SetChecked(true);
  Each("stock list sorted", heads(screen.CariGrid));
  std::vector<std::function<void()>> narrow;
  for (int i = 0; i < static_cast<int>(screen.GrpCombo.Items().size()); ++i) narrow.push_back([&screen, i] { screen.GrpCombo.Choose(i); });
  narrow.push_back([&screen] { screen.StokCek.SetChecked(true); });
  narrow.push_back([&screen] { screen.GrpCombo.Choose(0); });
  narrow.push_back([&screen] { screen.StokCek.SetChecked(false); });
  Each("stock list narrowed", narrow);
  screen.StokChk.SetChecked(false);
  messages_.answers.push_back("1");  // the first answer becomes the password
  screen.SilinenChk.SetChecked(true);
  const auto showDeleted = [this, &screen] {
    messages_.answers.push_back("1");
    screen.SilinenChk.SetChecked(true);
  };
  showDeleted();
  if (!screen.SilinenChk.Checked()) throw std::runtime_error("the deleted lines don't open");
  screen.SilinenChk.SetChecked(false);
  Each("deleted lines and back", {showDeleted, [&screen] { screen.SilinenChk.SetChecked(false); }}, 5);
  Each("sale entered and left", {[&screen] { screen.Label1(0).dblClick(); }, [&screen] { screen.Label1(0).dblClick(); }}, 5);
  Enter();
  Each("day book of a customer sorted", heads(screen.HareketGrid));
  Each("stock of a sale sorted", {head(screen.StokGrid, 0), head(screen.StokGrid, 0), head(screen.StokGrid, 1), head(screen.StokGrid, 1)});
}

}  // namespace
}  // namespace karvel::bench

int main(int argc, char** argv) {
  using namespace karvel;
  const char* const what = argc > 1 ? argv[1] : "";
  if (std::strcmp(what, "wide") != 0 && std::strcmp(what, "busy") != 0) {
    fmt::print(stderr, "karvel-window-bench wide|busy\n");
    return 2;
  }
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  int one = 1;
  QApplication application(one, argv);
  FixedClock clock;
  ScriptedMessages messages;
  TestConnection connection;
  try {
    App app(application, "Velmora Karvel1",
            {.clock = &clock, .messages = &messages, .connection = &connection, .unattended = true, .systemPrinters = false});
    if (!app.Load()) throw std::runtime_error("the desk doesn't start");
    bench::WindowBench window(app, messages);
    if (std::strcmp(what, "wide") == 0) {
      window.Wide();
    } else {
      window.Busy();
    }
  } catch (const std::exception& failure) {
    fmt::print(stderr, "karvel-window-bench: {}\n", failure.what());
    return 1;
  }
  return 0;
}
