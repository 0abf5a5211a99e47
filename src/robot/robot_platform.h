#pragma once

#include <QSize>
#include <QTemporaryFile>

namespace karvel {

// The screen that the robot works on. To be made before the application, and kept until that exists.
class RobotPlatform {
 public:
  // Without a display the robot works offscreen, on a screen of the window's size.
  RobotPlatform();
  // Of the window: KARVEL_SIZE ("1920x1080"), else 1024×768.
  [[nodiscard]] QSize WindowSize() const { return size_; }

 private:
  const QSize size_;
  QTemporaryFile screens_;
};

}  // namespace karvel
