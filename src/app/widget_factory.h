// Makes the widget of an element by its kind and binds the two. Where it stands is the layout's matter.
#pragma once

#include <QWidget>

#include "app/desk_ui.h"

namespace karvel {

// Null for menu entries, the form and panels, which the window makes itself.
QWidget* MakeWidget(DeskUi& ui, Element& element, QWidget* parent);

}  // namespace karvel
