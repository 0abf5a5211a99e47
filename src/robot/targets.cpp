#include "robot/targets.h"

#include <fmt/format.h>

#include <QAction>

#include "desk/elements.h"
#include "robot/json.h"

namespace karvel {

Target Targets::Find(const std::string& name) const {
  const TargetWindow* window = &windows_.front();
  std::string local = name;
  for (const TargetWindow& candidate : windows_) {
    const bool inside = name.starts_with(candidate.name + ".");
    if (!inside && name != candidate.name) continue;
    window = &candidate;
    local = inside ? name.substr(candidate.name.size() + 1) : name;
  }
  const Elements* const elements = window->elements();
  if (!elements) throw RequestError(fmt::format("{} is not open", window->name));
  Element* const element = elements->Find(local);
  if (!element) throw RequestError(fmt::format("there is no element {}", name));
  return {element, window->widgetOf(*element), window->actionOf ? window->actionOf(*element) : nullptr};
}

Target Targets::FindReachable(const std::string& name) const {
  const Target target = Find(name);
  const bool isMenu = target.element->Kind() == ElementKind::Menu;
  const bool shown = isMenu ? target.element->Visible() : target.element->IsShown();
  const bool open = isMenu ? target.element->Enabled() : target.element->IsOpen();
  if (!shown) throw RequestError(fmt::format("{} is hidden", name));
  if (!open) throw RequestError(fmt::format("{} is disabled", name));
  if (!target.widget && !target.action) throw RequestError(fmt::format("{} has no place on the window", name));
  return target;
}

}  // namespace karvel
