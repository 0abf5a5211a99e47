#include "app/qt_window.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFontMetrics>
#include <QSaveFile>
#include <QScreen>
#include <algorithm>

#include "app/desk_grid.h"
#include "app/private_files.h"
#include "app/qt_text.h"
#include "app/touch_button.h"
#include "app/touch_label.h"
#include "platform/log.h"

namespace karvel {

namespace {

void BringToFront(QWidget& widget) {
  widget.setWindowState(widget.windowState() & ~Qt::WindowMinimized);
  widget.raise();
  widget.activateWindow();
}

}  // namespace

void QtWindow::Attach(DeskWindow* window) {
  window_ = window;
  if (!window_) return;
  if (!title_.empty()) window_->setWindowTitle(ToQt(title_));
  if (!fitting_.empty()) RestoreFitting(fitting_);
  if (fixed_) {
    fixed_ = false;
    SetFixed(true);
  }
}

void QtWindow::Show() {
  if (!window_) return;
  if (!kept_) {
    window_->showMaximized();
    return;
  }
  window_->show();
  if (!FillsScreen()) Place(window_->geometry());
}

bool QtWindow::FillsScreen() const {
  return window_->windowState().testAnyFlags(Qt::WindowMaximized | Qt::WindowFullScreen);
}

void QtWindow::SetTitle(const std::string& title) {
  title_ = title;
  if (window_) window_->setWindowTitle(ToQt(title));
}

QString QtWindow::FittingFile(const std::string& name) const {
  return QDir(ToQt(folder_)).filePath("fitting/" + ToQt(name) + ".bin");
}

FloatingFrame* QtWindow::FrameOf(const std::string& name) const {
  Screen& screen = window_->Ui().screen;
  if (name == "VelmoraKlv") return &screen.Form2.frame;
  if (name == "VelmoraMik") return &screen.Form3.frame;
  return nullptr;
}

void QtWindow::RestoreFitting(const std::string& name) {
  if (!window_) {
    fitting_ = name;
    return;
  }
  QFile file(FittingFile(name));
  if (IsLink(ToUtf8(file.fileName())) || !file.open(QIODevice::ReadOnly)) return;
  if (FloatingFrame* const small = FrameOf(name)) {
    small->TakeKept(file.readAll().toStdString());
  } else if (window_->restoreGeometry(file.readAll())) {
    kept_ = true;
  }
}

void QtWindow::SaveFitting(const std::string& name) {
  if (!window_) return;
  const QString path = FittingFile(name);
  if (const Status made = MakePrivateFolder(ToUtf8(QFileInfo(path).path())); !made.Ok()) Log("window: " + made.Message());
  if (IsLink(ToUtf8(path))) QFile::remove(path);  // what is saved would go through it
  QSaveFile file(path);
  const FloatingFrame* const small = FrameOf(name);
  const QByteArray fitting = small ? QByteArray::fromStdString(small->Kept()) : window_->saveGeometry();
  if (!file.open(QIODevice::WriteOnly) || file.write(fitting) != fitting.size() || !file.commit())
    Log("window: the fitting can't be kept: " + ToUtf8(file.errorString()));
}

void QtWindow::SetFixed(bool fixed) {
  if (fixed == fixed_) return;
  fixed_ = fixed;
  if (!window_) return;
  const bool shown = window_->isVisible();
  const QRect place = window_->geometry();
  Qt::WindowFlags flags = Qt::Window;
  if (fixed) flags |= Qt::FramelessWindowHint;
  const bool fills = FillsScreen();
  window_->setWindowFlags(flags);
  window_->ShowTitleInside(fixed);
  if (!fills) window_->setGeometry(place);
  if (shown) window_->show();
}

void QtWindow::Place(QRect wanted) {
  const QScreen* const screen = window_->screen();
  if (!screen) return;
  const QRect inner = window_->geometry(), outer = window_->frameGeometry();
  const QRect room = screen->availableGeometry().adjusted(inner.left() - outer.left(), inner.top() - outer.top(),
                                                          inner.right() - outer.right(), inner.bottom() - outer.bottom());
  wanted.setSize(wanted.size().expandedTo(window_->minimumSize()).boundedTo(room.size()));
  wanted.moveLeft(std::clamp(wanted.left(), room.left(), std::max(room.left(), room.right() + 1 - wanted.width())));
  wanted.moveTop(std::clamp(wanted.top(), room.top(), std::max(room.top(), room.bottom() + 1 - wanted.height())));
  window_->setGeometry(wanted);
}

void QtWindow::MoveBy(int dx, int dy) {
  if (window_) Place(window_->geometry().translated(dx, dy));
}

void QtWindow::SizeBy(int dw, int dh) {
  if (window_) Place(window_->geometry().adjusted(0, 0, dw, dh));
}

bool QtWindow::IsActive() const {
  return window_ && window_->isActiveWindow();
}

void QtWindow::Raise() {
  if (window_ && window_->isVisible()) BringToFront(*window_);
  if (QWidget* const box = QApplication::activeModalWidget()) BringToFront(*box);
}

void QtWindow::Close() {
  if (window_) window_->CloseByProgram();
}

QWidget* QtWindow::Find(const std::string& elementName) const {
  if (!window_) return nullptr;
  const Element* const element = window_->Ui().screen.elements.Find(elementName);
  return element ? window_->WidgetOf(*element) : nullptr;
}

void QtWindow::HearOnly(const std::string& elementName) {
  if (window_) window_->HearOnly(window_->Ui().screen.elements.Find(elementName));
}

void QtWindow::End() {
  if (window_) window_->EndAtOnce();
}

int QtWindow::TextWidth(const std::string& elementName, const std::string& text) const {
  const QWidget* const widget = Find(elementName);
  if (!widget) return 0;
  QFont font = widget->font();
  if (const auto* grid = qobject_cast<const DeskGrid*>(widget)) font = grid->TextFont();
  if (const auto* label = qobject_cast<const TouchLabel*>(widget)) font = label->TextFont();
  if (const auto* button = qobject_cast<const TouchButton*>(widget)) font = button->TextFont();
  return QFontMetrics(font).horizontalAdvance(ToQt(text));
}

int QtWindow::InnerWidth(const std::string& elementName) const {
  const QWidget* const widget = Find(elementName);
  if (!widget) return 0;
  if (const auto* grid = qobject_cast<const DeskGrid*>(widget)) return grid->viewport()->width();
  if (const auto* label = qobject_cast<const TouchLabel*>(widget)) return label->InnerWidth();
  return widget->contentsRect().width();
}

int QtWindow::RowHeight(const std::string& gridName) const {
  const auto* const grid = qobject_cast<const DeskGrid*>(Find(gridName));
  return grid ? grid->RowHeight() : 0;
}

int QtWindow::InnerHeight(const std::string& gridName) const {
  const auto* const grid = qobject_cast<const DeskGrid*>(Find(gridName));
  return grid ? grid->BodyHeight() : 0;
}

void QtWindow::SetDeskFont(const std::string& name, double size, bool bold) {
  if (window_) window_->Ui().theme.SetDeskFont(ToQt(name), size, bold);
}

void QtWindow::SetGridFont(const std::string& name, double size, bool bold) {
  if (window_) window_->Ui().theme.SetGridFont(ToQt(name), size, bold);
}

}  // namespace karvel
