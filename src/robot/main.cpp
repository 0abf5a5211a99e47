// karvel-robot: the desk, driven by requests on the standard input.
#include <QApplication>
#include <csignal>
#include <cstdio>

#include "app/app.h"
#include "app/desk_window.h"
#include "app/program_title.h"
#include "app/qt_event_loop.h"
#include "desk/desk.h"
#include "robot/robot.h"
#include "robot/robot_platform.h"

int main(int argc, char** argv) {
  using namespace karvel;
  // That the reader of the answers went away is noticed at the end of the input.
  std::signal(SIGPIPE, SIG_IGN);
  if (argc > 1) argc = 1;
  const RobotPlatform platform;
  QApplication application(argc, argv);
  const std::string title = qEnvironmentVariable("KARVEL_TITLE").toStdString();

  RobotWorld world;
  // A clock that stands still from the very start, for what the start itself writes.
  if (const DateTime now = DateTime::FromIso(qEnvironmentVariable("KARVEL_CLOCK").toStdString()); !now.IsEmpty()) world.clock.Fix(now);
  world.connection.Set(qgetenv("KARVEL_CONNECTION") != "down");
  QtEventLoop loop([&world] { return world.clock.IsFixed(); });
  App app(application, title.empty() ? ProgramTitle(argv[0] ? argv[0] : "") : title,
          {.clock = &world.clock,
           .loop = &loop,
           .messages = &world.messages,
           .connection = &world.connection,
           .unattended = true,
           .systemPrinters = qgetenv("KARVEL_PRINTERS") == "system"});
  Robot robot(app, world, fileno(stdin), stdout);
  if (!app.Load()) {
    // What the clerk would have read.
    for (const Json& box : world.messages.TakeShown()) std::fprintf(stderr, "%s\n", box["text"].get<std::string>().c_str());
    return 0;
  }
  if (platform.IsOwnScreen()) {
    app.ShowWindow();
  } else {
    app.TheWindow().resize(platform.WindowSize());
    app.TheWindow().show();
  }
  return QCoreApplication::exec();
}
