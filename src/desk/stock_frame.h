// The stock picker of an invoice, StkFrame: a right press on it shows the handles by which it is moved and sized, a left press hides them
// and keeps its place.
#pragma once

#include "desk/parts.h"
#include "platform/signal.h"
#include "touch/sizing_handles.h"

namespace karvel {

class StockFrame {
 public:
  explicit StockFrame(const DeskParts& parts);
  // Where it stood last, from the settings.
  void ReadPlace();

 private:
  void Press(const MouseEvent& event);
  void Draw(const MouseEvent& event);
  void ShowHandles(bool shown);
  void KeepPlace();

  Screen& screen_;
  Settings& settings_;
  FloatingFrame& frame_;
  SizingHandles handles_;
  Connections connections_;
};

}  // namespace karvel
