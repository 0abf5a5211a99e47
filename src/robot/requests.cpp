#include "robot/requests.h"

#include <fmt/format.h>

#include <QAction>
#include <QApplication>
#include <QEventLoop>
#include <QPainter>
#include <QPixmap>
#include <QTimer>

#include "app/app.h"
#include "app/code_scanner.h"
#include "app/desk_grid.h"
#include "app/desk_window.h"
#include "app/disk_files.h"
#include "app/scanner_keys.h"
#include "desk/desk.h"
#include "robot/open_choice.h"
#include "robot/setting_values.h"

namespace karvel {
namespace {

constexpr int kMostRows = 10'000'000;
constexpr int kRowLimit = 10000;  // of a grid's rows in one answer, unless a request names another

Json Refusal(const std::string& error) {
  return {{"ok", false}, {"error", error}};
}

Json ParseRequest(const std::string& line) {
  Json request = Json::parse(line, nullptr, false);
  if (!request.is_object()) throw RequestError("the line is not a JSON object");
  return request;
}

const Json kDone = Json::object();

// Under a finger there lies what is painted on top, which may be something else than what was meant.
void ExpectUncovered(const QWidget& widget, const QPoint& point, const std::string& name) {
  const QWidget* const window = widget.window();
  const QPoint at = widget.mapTo(window, point);
  if (!window->rect().contains(at)) throw RequestError(fmt::format("{} lies outside the window", name));
  const QWidget* const top = window->childAt(at);
  const bool itself = !top || top == &widget || widget.isAncestorOf(top) || top->isAncestorOf(&widget);
  if (!itself) throw RequestError(fmt::format("{} is covered", name));
}

// All that a person sees of the desk: the window, and the menus and boxes that are open over it.
QPixmap PictureOf(QWidget& window) {
  QPixmap picture = window.grab();
  QPainter painter(&picture);
  for (QWidget* over : QApplication::topLevelWidgets())
    if (over != &window && over->isVisible()) painter.drawPixmap(over->pos() - window.mapToGlobal(QPoint(0, 0)), over->grab());
  return picture;
}

// What the work answers, or why it could not be done.
template <typename Work>
Json Answered(const Work& work) {
  try {
    Json answer{{"ok", true}};
    answer.update(work());
    return answer;
  } catch (const std::exception& error) {
    return Refusal(error.what());
  }
}

}  // namespace

Requests::Requests(App& app, RobotWorld& world)
    : desk_(app.TheDesk()),
      window_(app.TheWindow()),
      scanner_(app.TheScanner()),
      scannerKeys_(app.TheScannerKeys()),
      world_(world),
      printed_(app.ThePrinter(), app.TheFiles().HomeFolder()) {
  targets_.Add({.name = "Form1",
                .elements = [this] { return &desk_.screen.elements; },
                .widgetOf = [this](const Element& element) { return window_.WidgetOf(element); },
                .actionOf = [this](const Element& element) { return window_.ActionOf(element); }});
  const auto small = [this](const std::string& name, const ElementTable& table) {
    targets_.Add({.name = name,
                  .elements = [&table] { return &table.elements; },
                  .widgetOf = [this](const Element& element) { return window_.WidgetOf(element); },
                  .actionOf = [this](const Element& element) { return window_.ActionOf(element); }});
  };
  small("Form2", desk_.screen.Form2);
  small("Form3", desk_.screen.Form3);
  AddHandHandlers();
  AddWorldHandlers();
}

void Requests::AddHandHandlers() {
  handlers_["click"] = [this](const Json& request) { return DoTap(request, Tap::Click); };
  handlers_["dblclick"] = [this](const Json& request) { return DoTap(request, Tap::Double); };
  handlers_["rightclick"] = [this](const Json& request) { return DoTap(request, Tap::Right); };
  handlers_["press"] = [this](const Json& request) { return DoTap(request, Tap::Press); };
  handlers_["release"] = [this](const Json& request) { return DoTap(request, Tap::Release); };
  handlers_["drag"] = [this](const Json& request) { return DoDrag(request); };
  handlers_["type"] = [this](const Json& request) { return DoType(request); };
  handlers_["key"] = [this](const Json& request) { return DoKey(request); };
  handlers_["row"] = [this](const Json& request) { return DoRow(request); };
  handlers_["head"] = [this](const Json& request) { return DoHead(request); };
  handlers_["set"] = [this](const Json& request) {
    const auto value = request.find("value");
    if (value == request.end()) throw RequestError("the request lacks \"value\"");
    const Target target = targets_.FindReachable(TextOf(request, "at"));
    Focus(target);
    SetValue(target, *value);
    return kDone;
  };
  handlers_["close"] = [this](const Json&) {
    window_.close();
    return kDone;
  };
}

void Requests::AddWorldHandlers() {
  handlers_["get"] = [this](const Json& request) { return DescribeElement(targets_.Find(TextOf(request, "at"))); };
  handlers_["grid"] = [this](const Json& request) {
    const int limit = NumberOf(request, "limit", kRowLimit);
    if (limit < 0) throw RequestError("\"limit\" is negative");
    return DescribeGrid(targets_.Find(TextOf(request, "at")), std::min(limit, kMostRows));
  };
  handlers_["state"] = [this](const Json&) { return DescribeState(desk_); };
  handlers_["scan"] = [this](const Json& request) { return DoScan(request); };
  handlers_["answer"] = [this](const Json& request) {
    world_.messages.QueueAnswer(TextOf(request, "with"));
    return kDone;
  };
  handlers_["messages"] = [this](const Json&) { return Json{{"messages", world_.messages.TakeShown()}}; };
  handlers_["printed"] = [this](const Json&) { return Json{{"jobs", printed_.Take()}}; };
  handlers_["clock"] = [this](const Json& request) { return DoClock(request); };
  handlers_["connection"] = [this](const Json& request) {
    world_.connection.Set(BooleanOf(request, "up"));
    return kDone;
  };
  handlers_["wait"] = [](const Json& request) {
    QEventLoop loop;
    QTimer::singleShot(std::max(0, NumberOf(request, "ms")), Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
    return kDone;
  };
  handlers_["shot"] = [this](const Json& request) { return DoShot(request); };
}

Json Requests::Handle(const std::string& line) {
  return Answered([&] {
    // A window that lost its place in front (another program, a closed menu) would get no focus.
    if (window_.isVisible() && !QApplication::activeWindow()) QApplication::setActiveWindow(&window_);
    Json done = Do(ParseRequest(line));
    scannerKeys_.Settle();
    Settle();
    return done;
  });
}

std::optional<Json> Requests::HandleEarly(const std::string& line) {
  const Json request = Json::parse(line, nullptr, false);
  if (!request.is_object()) return std::nullopt;
  const auto reads = [&](const char* field, const std::string& text) {
    const auto found = request.find(field);
    return found != request.end() && *found == text;
  };
  const bool stops = window_.Heard() && reads("at", window_.Heard()->Name());
  if (!stops && !reads("do", "connection")) return std::nullopt;
  if (stops) QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);  // it has its place before it is tapped
  return Answered([&] { return Do(request); });
}

bool Requests::DeskAwaitsConnection() const {
  return desk_.screen.BağlantıFrm.IsShown() && !world_.connection.Up();
}

Json Requests::Do(const Json& request) {
  const std::string word = TextOf(request, "do");
  const auto found = handlers_.find(word);
  if (found == handlers_.end()) throw RequestError(fmt::format("unknown request {}", word));
  return found->second(request);
}

Json Requests::DoTap(const Json& request, Tap tap) {
  const std::string name = TextOf(request, "at");
  // What was pressed may have hidden itself; the finger comes up all the same.
  const Target target = tap == Tap::Release ? targets_.Find(name) : targets_.FindReachable(name);
  if (target.action) {
    if (tap != Tap::Click) throw RequestError(fmt::format("{} is a menu entry: it can only be clicked", name));
    target.action->trigger();
    ClosePopUps();
    return kDone;
  }
  if (!target.widget) throw RequestError(fmt::format("{} has no place on the window", name));
  ClosePopUps();
  // In a list the finger comes down on the row in front, so that a tap on the list itself chooses no other.
  auto* const grid = qobject_cast<DeskGrid*>(target.widget);
  const auto row = grid ? grid->RowInFront() : std::nullopt;
  const QPoint point = row ? *row : target.widget->rect().center();
  if (tap != Tap::Release) ExpectUncovered(*target.widget, point, name);
  TapAt(*target.widget, point, tap);
  return kDone;
}

Json Requests::DoDrag(const Json& request) {
  const std::string name = TextOf(request, "at");
  const Target target = targets_.FindReachable(name);
  if (!target.widget) throw RequestError(fmt::format("{} has no place on the window", name));
  ClosePopUps();
  const QPoint grip = GripOf(*target.widget);
  ExpectUncovered(*target.widget, grip, name);
  DragBy(*target.widget, grip, QPoint(NumberOf(request, "dx", 0), NumberOf(request, "dy", 0)));
  return kDone;
}

void Requests::Focus(const Target& target) const {
  ClosePopUps();
  if (target.widget) target.widget->setFocus(Qt::OtherFocusReason);
  Settle();
  const QWidget* const focused = QApplication::focusWidget();
  // A handler may have sent the focus elsewhere; nowhere at all means that the target can't have it.
  if (!target.widget || !focused || focused == &window_) throw RequestError(fmt::format("{} can't take the focus", target.element->Name()));
}

Json Requests::DoType(const Json& request) {
  const std::string text = TextOf(request, "text");
  if (request.contains("at")) Focus(targets_.FindReachable(TextOf(request, "at")));
  TypeFast(KeysOfText(text), window_);
  return kDone;
}

Json Requests::DoKey(const Json& request) {
  const std::string name = TextOf(request, "key");
  const std::optional<KeyStroke> stroke = KeyByName(name);
  if (!stroke) throw RequestError(fmt::format("there is no key {}", name));
  if (request.contains("at")) Focus(targets_.FindReachable(TextOf(request, "at")));
  Strike(*stroke, window_);
  return kDone;
}

Json Requests::DoRow(const Json& request) {
  const Target target = targets_.FindReachable(TextOf(request, "at"));
  if (OpensChoice(target.widget)) return DoPick(request, target);
  DeskGrid& grid = GridOf(target);
  const int row = NumberOf(request, "row"), column = NumberOf(request, "column", 0);
  const bool isDouble = BooleanOf(request, "dblclick", false);
  const QRect cell = row < 0 || column < 0 ? QRect() : grid.CellRect(row, column);
  if (cell.isEmpty()) throw RequestError(fmt::format("{} has no cell in row {}, column {}", target.element->Name(), row, column));
  ClosePopUps();
  ExpectUncovered(*grid.viewport(), cell.center(), target.element->Name());
  TapAt(*grid.viewport(), cell.center(), isDouble ? Tap::Double : Tap::Click);
  return kDone;
}

// A tap opens the list or the calendar, another one takes what is meant there.
Json Requests::DoPick(const Json& request, const Target& target) {
  const std::string name = TextOf(request, "at");
  // One that is open already shows what was leafed to.
  if (!IsOpenListOf(*target.widget)) {
    ClosePopUps();
    ExpectUncovered(*target.widget, target.widget->rect().center(), name);
    TapCenter(*target.widget, Tap::Click);
    Settle();
  }
  const int row = NumberOf(request, "row"), column = NumberOf(request, "column", 0);
  if (!TapInOpenList(row, column)) throw RequestError(fmt::format("{} has no entry in row {}, column {}", name, row, column));
  return kDone;
}

Json Requests::DoHead(const Json& request) {
  const Target target = targets_.FindReachable(TextOf(request, "at"));
  DeskGrid& grid = GridOf(target);
  const int column = NumberOf(request, "column");
  const QRect head = column < 0 ? QRect() : grid.HeadRect(column);
  if (head.isEmpty()) throw RequestError(fmt::format("{} has no column {}", target.element->Name(), column));
  ClosePopUps();
  ExpectUncovered(*grid.viewport(), head.center(), target.element->Name());
  TapAt(*grid.viewport(), head.center(), Tap::Click);
  return kDone;
}

Json Requests::DoScan(const Json& request) {
  scanner_.Take(TextOf(request, "code"));
  return kDone;
}

Json Requests::DoClock(const Json& request) {
  const auto now = request.find("now");
  if (now == request.end()) throw RequestError("the request lacks \"now\"");
  if (now->is_null()) {
    world_.clock.Free();
    return kDone;
  }
  const DateTime moment = DateTime::FromIso(TextOf(request, "now"));
  if (moment.IsEmpty()) throw RequestError("\"now\" is not a moment like 2026-03-01T10:15:00");
  world_.clock.Fix(moment);
  return kDone;
}

Json Requests::DoShot(const Json& request) {
  const std::string file = TextOf(request, "file");
  if (!PictureOf(window_).save(QString::fromStdString(file), "PNG")) throw RequestError(fmt::format("can't write {}", file));
  return kDone;
}

}  // namespace karvel
