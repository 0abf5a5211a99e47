// The two pictures at the top of the desk, each with a menu entry that shows it: the invoice's, which lies beside the program, and the
// company's, which the clerk chooses.
#pragma once

#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class Logos {
 public:
  explicit Logos(const DeskParts& parts);
  // The desk opens: what was shown is shown again.
  void Begin();

 private:
  void Toggle(int index);
  void Show(int index, bool shown);
  [[nodiscard]] std::string FileOf(int index) const;
  [[nodiscard]] std::string OwnLogo() const;

  Screen& screen_;
  Settings& settings_;
  const World& world_;
  Connections connections_;
};

}  // namespace karvel
