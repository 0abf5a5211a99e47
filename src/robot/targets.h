// Finds what a request means by an element's name: "Label1(0)" on the desk's window, "Form3.cmd(7)" on a small window over it.
#pragma once

#include <functional>
#include <string>
#include <vector>

class QAction;
class QWidget;

namespace karvel {

class Element;
class Elements;
class GridElement;

// One window's elements. They are looked up anew at each request, for windows come and go.
struct TargetWindow {
  std::string name;                           // "Form1"
  std::function<const Elements*()> elements;  // null while the window isn't open
  std::function<QWidget*(const Element&)> widgetOf;
  std::function<QAction*(const Element&)> actionOf;
};

struct Target {
  Element* element;
  QWidget* widget;  // null for a menu entry
  QAction* action;  // null for anything else
};

class Targets {
 public:
  // The first window added is the one whose elements need no window name in front.
  void Add(TargetWindow window) { windows_.push_back(std::move(window)); }

  // A RequestError tells what is wrong with the name.
  [[nodiscard]] Target Find(const std::string& name) const;
  // The same for something that a person can reach: shown and enabled, with all that it lies on.
  [[nodiscard]] Target FindReachable(const std::string& name) const;

 private:
  std::vector<TargetWindow> windows_;
};

}  // namespace karvel
