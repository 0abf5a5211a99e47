#include "documents/print_choice.h"

#include <utility>

#include "desk/captions.h"
#include "documents/reports.h"
#include "platform/clock.h"

namespace karvel {

PrintChoice::PrintChoice(const DeskParts& parts) : screen_(parts.screen), world_(parts.world), day_(parts.world.clock.Now().Date()) {
  Screen& screen = screen_;
  // Before whoever prints reads the day.
  for (Element* const trigger : {&screen.Command1, &screen.Command5(1), &screen.Command5(2), &screen.DökNoYaz, &screen.ZRaporu,
                                 &screen.TahsilatCmd, &screen.CiroChk, &screen.CariHesCmd})
    connections_ += trigger->click.Connect([this] { FollowDay(); });
  connections_ += screen.Command1.click.Connect([this] { Toggle(); });
  for (Element* const out : {&screen.Command5(0), &screen.VzgCmd, &screen.Command4})
    connections_ += out->click.Connect([&screen] { screen.Frame3.SetVisible(false); });
  connections_ += screen.CiroChk.click.Connect([&screen] {
    if (screen.CiroChk.Checked()) screen.Frame3.SetVisible(false);
  });
  connections_ += screen.Frame3.altered.Connect([this] {
    if (std::exchange(open_, screen_.Frame3.Visible()) && !open_) Closed();
  });
}

void PrintChoice::Toggle() {
  if (screen_.Command1.Caption() != caption::kPrint || PrintsReport(screen_)) return;
  screen_.Frame3.SetVisible(!screen_.Frame3.Visible());
  if (screen_.Frame3.Visible()) screen_.Frame3.BringToFront();
}

void PrintChoice::Closed() {
  screen_.Command5(2).SetCaption(caption::kPrintAll);
  screen_.Command5(1).SetVisible(true);
  screen_.Command5(1).SetEnabled(true);
  screen_.DTPicker1.SetDate(world_.clock.Now().Date());
}

void PrintChoice::FollowDay() {
  const DateTime today = world_.clock.Now().Date();
  if (std::exchange(day_, today) != today) screen_.DTPicker1.SetDate(today);
}

}  // namespace karvel
