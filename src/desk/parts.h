// What a feature of the desk is built on: the shared state, and the world outside. References to what the desk owns.
#pragma once

#include "books/shop.h"
#include "desk/cursors.h"
#include "desk/form_state.h"
#include "desk/screen.h"
#include "desk/world.h"
#include "settings/settings.h"

namespace karvel {

struct DeskParts {
  Screen& screen;
  FormState& form;
  Cursors& cursors;
  Settings& settings;
  const World& world;
  Shop shop;  // what the books are opened with
};

}  // namespace karvel
