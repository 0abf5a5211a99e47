#include "app/qt_event_loop.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <utility>

namespace karvel {

QtEventLoop::QtEventLoop(std::function<bool()> waitsEndAtOnce) : waitsEndAtOnce_(std::move(waitsEndAtOnce)) {}

void QtEventLoop::RunPending() {
  QCoreApplication::processEvents();
}

void QtEventLoop::RunPendingButInput() {
  ++inputHeld_;
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers);
  --inputHeld_;
}

void QtEventLoop::Wait(int milliseconds) {
  if (milliseconds <= 0 || (waitsEndAtOnce_ && waitsEndAtOnce_())) {
    RunPending();
    return;
  }
  QEventLoop loop;
  QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
  loop.exec();
}

void QtEventLoop::Later(std::function<void()> work) {
  QTimer::singleShot(0, QCoreApplication::instance(), std::move(work));
}

std::shared_ptr<void> QtEventLoop::Every(int milliseconds, std::function<void()> tick) {
  // A tick may drop its own timer, so the timer is deleted only when its event has been handled.
  const std::shared_ptr<QTimer> timer(new QTimer, [](QTimer* ended) {
    ended->stop();
    ended->disconnect();
    ended->deleteLater();
  });
  QObject::connect(timer.get(), &QTimer::timeout, timer.get(), std::move(tick));
  timer->start(milliseconds);
  return timer;
}

}  // namespace karvel
