#include "robot/robot_platform.h"

#include <QDir>
#include <QStringList>

#include "robot/json.h"

namespace karvel {
namespace {

QSize SizeFromEnvironment() {
  const QStringList sides = qEnvironmentVariable("KARVEL_SIZE").split('x');
  const QSize size = sides.size() == 2 ? QSize(sides[0].toInt(), sides[1].toInt()) : QSize();
  return size.width() > 0 && size.height() > 0 ? size : QSize(1024, 768);
}

}  // namespace

RobotPlatform::RobotPlatform() : size_(SizeFromEnvironment()), screens_(QDir::tempPath() + "/karvel-screens-XXXXXX.json") {
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  const bool unattended = platform.isEmpty() && !qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
  if (!unattended && platform != "offscreen") return;
  ownScreen_ = true;
  // The offscreen screen is 800×800 unless a file says otherwise, and a window is kept within its screen.
  const Json screen{{"name", "desk"},       {"x", 0},  {"y", 0}, {"width", size_.width()}, {"height", size_.height()}, {"logicalDpi", 96},
                    {"logicalBaseDpi", 96}, {"dpr", 1}};
  const std::string text =
      Json{{"synchronousWindowSystemEvents", false}, {"windowFrameMargins", false}, {"screens", Json::array({screen})}}.dump();
  const bool written = screens_.open() && screens_.write(text.data(), static_cast<qint64>(text.size())) > 0 && screens_.flush();
  qputenv("QT_QPA_PLATFORM", written ? "offscreen:configfile=" + screens_.fileName().toUtf8() : QByteArray("offscreen"));
}

}  // namespace karvel
