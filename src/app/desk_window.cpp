#include "app/desk_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>
#include <QWindow>

#include "app/element_binding.h"
#include "app/floating_layouts.h"
#include "app/panel_layouts.h"
#include "app/qt_text.h"
#include "app/text_field.h"
#include "app/widget_factory.h"

namespace karvel {
namespace {

// What fields without a caption of their own are called, for those who hear the screen.
struct Named {
  const char* element;
  const char* name;
};
constexpr Named kNames[] = {
    {"Text1(0)", "Müşteri"},
    {"Text1(1)", "Ürün"},
    {"Text2(0)", "Fiyat"},
    {"Text2(1)", "Miktar"},
    {"Text2(2)", "Tahsilat"},
    {"Text2(3)", "İskonto yüzdesi"},
    {"Text3", "Sayı girişi"},
    {"Text4", "Seri numarası"},
    {"Text5", "Süz"},
    {"GurupCombo", "Gurup"},
    {"CariGrid", "Müşteri listesi"},
    {"StokGrid", "Stok listesi"},
    {"HareketGrid", "Günlük hareketler"},
    {"CariDBGrid", "Cari hesap dökümü"},
    {"FatGrid", "Fatura satırları"},
    {"GrpCombo", "Stok gurubu"},
    {"Stoktxt", "Stok ara"},
    {"DTPicker2(0)", "İlk tarih"},
    {"DTPicker2(1)", "Son tarih"},
    {"Drive1", "Sürücü"},
    {"DökNoYaz", "Döküm yazdır"},
    {"Picture2(0)", "Fatura logosu"},
    {"Picture2(1)", "Firma logosu"},
    {"Label15", "Geçen gün"},
};

bool IsInput(QEvent::Type type) {
  switch (type) {
    case QEvent::KeyPress:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
      return true;
    default:
      return false;
  }
}

}  // namespace

DeskWindow::DeskWindow(Screen& screen, DeskLife life) : ui_(screen), life_(std::move(life)) {
  setObjectName("Form1");
  setWindowTitle(life_.title);
  setMinimumSize(480, 320);
  resize(1024, 768);
  MakeWidgets();
  menus_ = new DeskMenus(ui_, this);
  NameFields();
  FollowPanels();
  FollowFocus();
  FollowPointer();
  connections_ += screen.Form1.altered.Connect([this] {
    if (activationAsked_ && focusWidget() == this) SpareNobody();
  });
  ui_.spareKey = [this](int code) { return SpareKey(code); };
  connections_ += ui_.theme.changed.Connect([this] { ApplyTheme(); });
  ui_.theme.FitTo(width(), height());
  ApplyTheme();
  for (Element* element : screen.elements.All())
    if (ElementBinding* const binding = ElementBinding::Of(WidgetOf(*element))) binding->Refresh();
  connect(&surface_->MenuButton(), &QToolButton::clicked, this, [this] {
    const QToolButton& button = surface_->MenuButton();
    if (ui_.TakesInput()) menus_->PopUp(ui_.screen.PopBrk, button.mapToGlobal(QPoint(0, button.height())));
  });
  // Nobody has the keyboard until the desk or the clerk says so.
  setFocus();
  QApplication::instance()->installEventFilter(this);
}

void DeskWindow::MakeWidgets() {
  for (Element* element : ui_.screen.elements.All())
    if (QWidget* const widget = MakeWidget(ui_, *element, this)) widget->hide();
  surface_ = new MainLayout(ui_, this);
  setCentralWidget(surface_);
  cards_ = BuildPanels(ui_, surface_);
  for (PanelCard* card : cards_) connect(card, &PanelCard::appeared, this, &DeskWindow::LayCards);
  new ElementBinding(ui_, ui_.screen.Form1, *this, {});
  floating_ = {BuildKeyboard(ui_, this), BuildPad(ui_, this)};
}

void DeskWindow::NameFields() {
  for (const Named& named : kNames)
    if (const Element* const element = ui_.screen.elements.Find(named.element))
      if (QWidget* const widget = WidgetOf(*element)) widget->setAccessibleName(QString::fromUtf8(named.name));
}

// A panel that comes, goes or is turned off takes along all that lies on it, wherever the layout put it.
void DeskWindow::FollowPanels() {
  for (Element* panel : ui_.screen.elements.All()) {
    if (panel->Kind() != ElementKind::Panel) continue;
    connections_ += panel->altered.Connect([this, panel] {
      for (Element* element : ui_.screen.elements.All())
        if (element->Panel() == panel)
          if (ElementBinding* const binding = ElementBinding::Of(WidgetOf(*element))) binding->RefreshShown();
    });
  }
}

void DeskWindow::FollowFocus() {
  connections_ += ui_.screen.elements.focusMoved.Connect([this](Element* to) {
    QWidget* const widget = to ? WidgetOf(*to) : nullptr;
    if (!widget)
      setFocus();
    else if (widget->isEnabled() && !widget->isHidden() && !widget->hasFocus())
      widget->setFocus();
  });
}

void DeskWindow::FollowPointer() {
  connections_ += ui_.screen.pointerChanged.Connect([this](bool busy) {
    if (busy == pointerBusy_) return;
    pointerBusy_ = busy;
    if (busy)
      QApplication::setOverrideCursor(Qt::WaitCursor);
    else
      QApplication::restoreOverrideCursor();
  });
}

void DeskWindow::ApplyTheme() {
  const Theme& theme = ui_.theme;
  setStyleSheet(theme.Sheet());
  for (QWidget* widget : std::as_const(ui_.widgets)) {
    if (widget == this) continue;
    if (auto* const field = qobject_cast<TextField*>(widget))
      field->ApplyFont();
    else if (!widget->inherits("karvel::PanelCard"))
      widget->setFont(theme.Font(FontRole::Body));
    widget->updateGeometry();
    widget->update();
  }
  for (const Element* element : ui_.screen.elements.All())
    if (element->Kind() == ElementKind::Grid)
      if (ElementBinding* const binding = ElementBinding::Of(WidgetOf(*element))) binding->Refresh();
  surface_->ApplyTheme(width());
  LayCards();
}

void DeskWindow::LayCards() {
  if (laying_) return;
  laying_ = true;
  if (surface_->layout()) surface_->layout()->activate();
  const QRect list = surface_->ListArea(), body = surface_->BodyArea();
  for (PanelCard* card : cards_)
    if (!card->isHidden()) card->Lay(list, body);
  for (FloatingPanel* panel : floating_)
    if (!panel->isHidden()) panel->Lay();
  laying_ = false;
}

bool DeskWindow::event(QEvent* event) {
  // A box has come up over the window, or the last one has gone.
  if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowUnblocked)
    for (FloatingPanel* panel : floating_) panel->SetCovered(event->type() == QEvent::WindowBlocked);
  return QMainWindow::event(event);
}

bool DeskWindow::Belongs(const QObject* object) const {
  if (object->isWidgetType()) return static_cast<const QWidget*>(object)->window() == this;
  return object == windowHandle();
}

bool DeskWindow::eventFilter(QObject* object, QEvent* event) {
  if (!IsInput(event->type()) || !Belongs(object)) return QMainWindow::eventFilter(object, event);
  if (event->type() == QEvent::MouseButtonPress) ui_.lastPress = static_cast<QMouseEvent*>(event)->globalPosition().toPoint();
  if (heard_) return !IsHeard(object, event);
  return !ui_.TakesInput();
}

void DeskWindow::HearOnly(const Element* element) {
  heard_ = element;
}

// What comes to the frame goes on to a widget, and is looked at there.
bool DeskWindow::IsHeard(QObject* object, QEvent* event) const {
  if (!object->isWidgetType()) return true;
  QWidget* const widget = WidgetOf(*heard_);
  if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
    if (auto* const button = qobject_cast<QAbstractButton*>(widget)) button->click();
  return object == widget && event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride;
}

void DeskWindow::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  LayCards();
  if (activationAsked_) return;
  activationAsked_ = true;
  QTimer::singleShot(0, this, [this] {
    const QPointer<DeskWindow> self(this);
    if (life_.activate) life_.activate();
    if (self) Q_EMIT activated();
  });
}

void DeskWindow::CloseByProgram() {
  byProgram_ = true;
  close();
  byProgram_ = false;
}

void DeskWindow::EndAtOnce() {
  ended_ = true;
  close();
}

void DeskWindow::closeEvent(QCloseEvent* event) {
  if (!ended_) {
    event->ignore();
    if (closing_ || heard_) return;
    closing_ = true;
    const bool goes = !life_.mayClose || life_.mayClose(byProgram_);
    closing_ = false;
    if (!goes || ended_) return;  // a desk that ended while it was being asked has closed the window already
  }
  event->accept();
  Q_EMIT closed();
}

// The element that had the keyboard was switched off or went with its panel.
void DeskWindow::focusInEvent(QFocusEvent* event) {
  QMainWindow::focusInEvent(event);
  SpareNobody();
}

void DeskWindow::SpareNobody() {
  QTimer::singleShot(0, this, [this] {
    // Who was switched off while the form is closed gets the keyboard back when it opens.
    if (!activationAsked_ || focusWidget() != this || !ui_.screen.Form1.Enabled()) return;
    for (Element* const list : {static_cast<Element*>(&ui_.screen.CariGrid), static_cast<Element*>(&ui_.screen.StokGrid),
                                static_cast<Element*>(&ui_.screen.HareketGrid)}) {
      QWidget* const widget = WidgetOf(*list);
      if (!widget || !widget->isVisible() || !widget->isEnabled()) continue;
      widget->setFocus();
      return;
    }
  });
}

void DeskWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  if (!surface_) return;
  ui_.theme.FitTo(width(), height());
  surface_->ApplyTheme(width());
  LayCards();
}

void DeskWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::WindowTitleChange && surface_)
    surface_->ShowTitle(windowTitle(), windowFlags().testFlag(Qt::FramelessWindowHint));
  QMainWindow::changeEvent(event);
}

void DeskWindow::ShowTitleInside(bool shown) {
  surface_->ShowTitle(windowTitle(), shown);
}

// F2 customer or sale, F3 names or barcodes, F4 mode of the line, F6 next price, F7 form of payment, F10 menu.
bool DeskWindow::SpareKey(int code) {
  const auto doubleTap = [this](Element& element) {
    if (ui_.Reaches(element)) element.dblClick();
    return true;
  };
  Screen& screen = ui_.screen;
  switch (code) {
    case key::kF1 + 1:
      return doubleTap(screen.Label1(0));
    case key::kF1 + 2:
      return doubleTap(screen.Label1(1));
    case key::kF1 + 3:
      return doubleTap(screen.Label4);
    case key::kF1 + 5:
      return doubleTap(screen.Label1(2));
    case key::kF1 + 6:
      if (ui_.Reaches(screen.Label3)) screen.Label3.click();
      return true;
    case key::kF1 + 9:
      surface_->MenuButton().click();
      return true;
    default:
      return false;
  }
}

}  // namespace karvel
