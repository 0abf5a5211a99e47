// What the robot tells about the desk.
#pragma once

#include "robot/json.h"
#include "robot/targets.h"

namespace karvel {

class Desk;
class DeskGrid;

// The grid on the window; a RequestError for anything else.
DeskGrid& GridOf(const Target& target);

// The element's own properties, as it has them; a colour of -1 is the theme's own. Lists and combos also tell their items.
Json DescribeElement(const Target& target);
// The grid's visible headings and its rows from the first on, at most `limit` of them, as texts.
Json DescribeGrid(const Target& target, int limit);
// The form-level values by name, title and data folder.
Json DescribeState(const Desk& desk);

}  // namespace karvel
