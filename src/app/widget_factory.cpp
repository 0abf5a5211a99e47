#include "app/widget_factory.h"

#include <QLabel>
#include <QPixmap>

#include "app/choice_fields.h"
#include "app/desk_grid.h"
#include "app/element_binding.h"
#include "app/qt_text.h"
#include "app/text_field.h"
#include "app/touch_button.h"
#include "app/touch_label.h"

namespace karvel {
namespace {

QWidget* MakeLabel(DeskUi& ui, Element& element, QWidget* parent) {
  auto* const label = new TouchLabel(ui, element, parent);
  new ElementBinding(ui, element, *label, {.sync = [label] { label->Sync(); }, .type = [label](char32_t letter) { label->Type(letter); }});
  return label;
}

QWidget* MakeText(DeskUi& ui, Element& element, QWidget* parent) {
  auto* const field = new TextField(ui, element, parent);
  new ElementBinding(ui, element, *field, {.sync = [field] { field->Sync(); }, .type = [field](char32_t letter) { field->Type(letter); }});
  return field;
}

QWidget* MakeButton(DeskUi& ui, Element& element, QWidget* parent) {
  auto* const button = new TouchButton(ui, element, parent);
  const auto type = [button](char32_t letter) {
    if (letter == key::kEnter || letter == ' ') button->click();
  };
  new ElementBinding(ui, element, *button, {.sync = [button] { button->Sync(); }, .type = type, .tapClicks = false});
  QObject::connect(button, &QAbstractButton::clicked, button, [&ui, &element] {
    if (ui.Reaches(element)) element.click();
  });
  return button;
}

QWidget* MakeCheck(DeskUi& ui, Element& element, QWidget* parent) {
  auto* const check = new TouchCheck(ui, element, parent);
  const auto type = [check](char32_t letter) {
    if (letter == ' ') check->click();
  };
  new ElementBinding(ui, element, *check, {.sync = [check] { check->Sync(); }, .type = type, .tapClicks = false});
  QObject::connect(check, &QAbstractButton::clicked, check, [&ui, &element] {
    if (ui.Reaches(element)) element.SetChecked(!element.Checked());
  });
  return check;
}

QWidget* MakeGrid(DeskUi& ui, GridElement& element, QWidget* parent) {
  auto* const grid = new DeskGrid(ui, element, parent);
  new ElementBinding(ui, element, *grid, {.sync = [grid] { grid->Sync(); }, .tapClicks = false, .mouseEvents = false});
  return grid;
}

// A picture shows the file that its element names, where it can be read.
QWidget* MakePicture(DeskUi& ui, Element& element, QWidget* parent) {
  auto* const picture = new QLabel(parent);
  const auto sync = [&ui, &element, picture] {
    const QPixmap file(ToQt(element.Text()));
    picture->setPixmap(file.isNull() ? QPixmap()
                                     : file.scaled(ui.theme.Px(120), ui.theme.Px(44), Qt::KeepAspectRatio, Qt::SmoothTransformation));
  };
  new ElementBinding(ui, element, *picture, {.sync = sync, .placed = [picture] { return !picture->pixmap().isNull(); }});
  return picture;
}

}  // namespace

QWidget* MakeWidget(DeskUi& ui, Element& element, QWidget* parent) {
  switch (element.Kind()) {
    case ElementKind::Label:
      return MakeLabel(ui, element, parent);
    case ElementKind::TextBox:
      return MakeText(ui, element, parent);
    case ElementKind::Button:
      return MakeButton(ui, element, parent);
    case ElementKind::CheckBox:
      return MakeCheck(ui, element, parent);
    case ElementKind::Grid:
      return MakeGrid(ui, static_cast<GridElement&>(element), parent);
    case ElementKind::Picture:
      return MakePicture(ui, element, parent);
    case ElementKind::Combo: {
      auto* const combo = new ComboField(ui, element, parent);
      new ElementBinding(ui, element, *combo, {.sync = [combo] { combo->Sync(); }, .tapClicks = false});
      return combo;
    }
    case ElementKind::DatePicker: {
      auto* const date = new DateField(ui, element, parent);
      new ElementBinding(ui, element, *date, {.sync = [date] { date->Sync(); }, .tapClicks = false});
      return date;
    }
    case ElementKind::List: {
      auto* const list = new ListField(ui, element, parent);
      new ElementBinding(ui, element, *list, {.sync = [list] { list->Sync(); }, .surface = list->viewport(), .tapClicks = false});
      return list;
    }
    default:
      return nullptr;
  }
}

}  // namespace karvel
