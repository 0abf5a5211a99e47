#include "app/qt_keyboard.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QTimer>
#include <QWidget>
#include <array>

namespace karvel {
namespace {

struct KeyName {
  int virtualKey;
  Qt::Key key;
  const char* text;
};

constexpr std::array kKeys{
    KeyName{8, Qt::Key_Backspace, "\b"}, KeyName{9, Qt::Key_Tab, "\t"},       KeyName{13, Qt::Key_Return, "\r"},
    KeyName{27, Qt::Key_Escape, "\x1b"}, KeyName{32, Qt::Key_Space, " "},     KeyName{33, Qt::Key_PageUp, ""},
    KeyName{34, Qt::Key_PageDown, ""},   KeyName{35, Qt::Key_End, ""},        KeyName{36, Qt::Key_Home, ""},
    KeyName{37, Qt::Key_Left, ""},       KeyName{38, Qt::Key_Up, ""},         KeyName{39, Qt::Key_Right, ""},
    KeyName{40, Qt::Key_Down, ""},       KeyName{46, Qt::Key_Delete, "\x7f"},
};

// Key and text of a virtual key; key 0 for one that the desk never sends.
std::pair<int, QString> KeyOf(int virtualKey) {
  for (const KeyName& name : kKeys)
    if (name.virtualKey == virtualKey) return {name.key, QString::fromLatin1(name.text)};
  if (virtualKey >= '0' && virtualKey <= '9') return {virtualKey, QString(QChar(virtualKey))};
  if (virtualKey >= 'A' && virtualKey <= 'Z') return {virtualKey, QString(QChar(virtualKey + ('a' - 'A')))};
  if (virtualKey >= 112 && virtualKey <= 123) return {Qt::Key_F1 + (virtualKey - 112), QString()};
  return {0, QString()};
}

void SendToFocus(QEvent::Type type, int key, const QString& text) {
  // A box that opened meanwhile is for a person to answer.
  if (QApplication::activeModalWidget()) return;
  QWidget* target = QApplication::focusWidget();
  if (!target) target = QApplication::activeWindow();
  if (!target) return;
  QKeyEvent event(type, key, Qt::NoModifier, text);
  QApplication::sendEvent(target, &event);
}

}  // namespace

void QtKeyboard::Send(int virtualKey) {
  const auto [key, text] = KeyOf(virtualKey);
  if (key == 0) return;
  QTimer::singleShot(0, QCoreApplication::instance(), [key = key, text = text] {
    SendToFocus(QEvent::KeyPress, key, text);
    // The press may have moved the focus; the release goes where the focus is then.
    SendToFocus(QEvent::KeyRelease, key, text);
  });
}

bool QtKeyboard::CapsLock() const {
  const QDir lights(QStringLiteral("/sys/class/leds"));
  for (const QString& light : lights.entryList({QStringLiteral("*::capslock")}, QDir::Dirs | QDir::NoDotAndDotDot)) {
    QFile brightness(lights.filePath(light) + QStringLiteral("/brightness"));
    if (brightness.open(QIODevice::ReadOnly) && brightness.readAll().trimmed() != "0") return true;
  }
  return false;
}

void QtKeyboard::Beep() {
  QApplication::beep();
}

}  // namespace karvel
