#include "app/key_card.h"

#include <QEvent>
#include <QPainter>

#include "app/element_binding.h"
#include "app/widget_factory.h"

namespace karvel {
namespace {
constexpr qreal kRadius = 10;
}

KeyCard::KeyCard(DeskUi& ui, ElementTable& table, QWidget* parent) : QFrame(parent), ui_(ui), table_(table) {
  for (Element* panel : table.elements.All()) {
    if (panel->Kind() != ElementKind::Panel) continue;
    connections_ += panel->altered.Connect([this, panel] {
      for (Element* element : table_.elements.All())
        if (element->Panel() == panel)
          if (ElementBinding* const binding = ElementBinding::Of(ui_.widgets.value(element))) binding->RefreshShown();
    });
  }
}

QWidget* KeyCard::Key(Element& element, KeyLook look) {
  auto* const key = new FloatingKey(ui_, element, look, this);
  new ElementBinding(ui_, element, *key, {.sync = [key] { key->Sync(); }, .pressClicks = true});
  return key;
}

QWidget* KeyCard::Field(Element& element) {
  QWidget* const field = MakeWidget(ui_, element, this);
  field->setFocusPolicy(Qt::ClickFocus);  // Tab walks the desk's own fields
  field->installEventFilter(this);
  return field;
}

QWidget* KeyCard::Label(Element& element) {
  return MakeWidget(ui_, element, this);
}

void KeyCard::Refresh() {
  for (Element* element : table_.elements.All())
    if (element->Kind() != ElementKind::Form)
      if (ElementBinding* const binding = ElementBinding::Of(ui_.widgets.value(element))) binding->Refresh();
}

bool KeyCard::eventFilter(QObject* object, QEvent* event) {
  // The field that it serves has the focus as the desk sees it, whether the finger stands there or here.
  if (event->type() == QEvent::FocusOut) table_.elements.MoveFocus(nullptr);
  return QFrame::eventFilter(object, event);
}

void KeyCard::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), palette::kBackground);
  painter.setPen(QPen(palette::kFaint, 1));
  painter.setBrush(palette::kSurface);
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
}

}  // namespace karvel
