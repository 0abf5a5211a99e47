#include "app/start_notice.h"

#include <QGuiApplication>
#include <QScreen>

#include "app/qt_text.h"
#include "app/theme.h"

namespace karvel {

StartNotice::StartNotice(Screen& screen) : screen_(screen) {
  words_.setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
  words_.setAlignment(Qt::AlignCenter);
  words_.setMinimumSize(BoxPx(460), BoxPx(140));
  words_.setMargin(BoxPx(24));
  words_.setWordWrap(true);
  words_.setStyleSheet(QStringLiteral("background: %1; color: %2; border: 1px solid %3; font-size: %4px;")
                           .arg(palette::kRaised.name(), palette::kText.name(), palette::kLine.name())
                           .arg(BoxPx(18)));
  connections_ += screen_.Frame5.altered.Connect([this] { Follow(); });
}

void StartNotice::Follow() {
  words_.setText(ToQt(screen_.Label16.Caption()));
  words_.setVisible(screen_.Frame5.Visible());
  if (!words_.isVisible()) return;
  words_.adjustSize();
  words_.move(QGuiApplication::primaryScreen()->availableGeometry().center() - words_.rect().center());
  words_.raise();
}

}  // namespace karvel
