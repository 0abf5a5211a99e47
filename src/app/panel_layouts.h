// What lies on which panel, and how.
#pragma once

#include <vector>

#include "app/panel_card.h"

namespace karvel {

// Makes a card of every panel that lies over a list, with its elements laid out on it. The elements' widgets exist before.
std::vector<PanelCard*> BuildPanels(DeskUi& ui, QWidget* parent);

}  // namespace karvel
