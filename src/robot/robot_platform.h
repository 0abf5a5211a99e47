#pragma once

#include <QSize>
#include <QTemporaryFile>

namespace karvel {

// The screen that the robot works on. It has to be made before the application, and to live until that exists.
class RobotPlatform {
 public:
  // Without a display the robot works offscreen, on a screen of the window's size.
  RobotPlatform();
  // The window's size in pixels: KARVEL_SIZE ("1920x1080"), else 1024×768.
  [[nodiscard]] QSize WindowSize() const { return size_; }

 private:
  const QSize size_;
  QTemporaryFile screens_;
};

}  // namespace karvel
