#include <QGridLayout>

#include "app/floating_layouts.h"
#include "app/text_field.h"

namespace karvel {

FloatingPanel* BuildPad(DeskUi& ui, QWidget* window) {
  PadScreen& pad = ui.screen.Form3;
  auto* const panel = new FloatingPanel(ui, pad, pad.Form3, pad.frame, window);
  auto* const grid = new QGridLayout(panel);
  const auto fit = [grid, &theme = ui.theme] {
    const int side = theme.Px(6);
    grid->setContentsMargins(side, side, side, side);
    grid->setSpacing(theme.Px(5));
  };
  fit();
  panel->Keep(ui.theme.changed.Connect(fit));
  grid->addWidget(panel->Label(pad.Label2), 0, 0, 1, 4);
  QWidget* const number = panel->Field(pad.Text1);
  qobject_cast<TextField*>(number)->SetAmount(true);
  grid->addWidget(number, 1, 0, 1, 4);
  // The digits as on a calculator; beside them what changes the number, below them what ends it.
  for (int digit = 1; digit <= 9; ++digit)
    grid->addWidget(panel->Key(pad.cmd(digit), KeyLook::Digit), 4 - (digit - 1) / 3, (digit - 1) % 3);
  grid->addWidget(panel->Key(pad.cmd(0), KeyLook::Digit), 5, 0);
  grid->addWidget(panel->Key(pad.Comonlu(0), KeyLook::Digit), 5, 1);
  grid->addWidget(panel->Key(pad.Comonlu(1), KeyLook::Digit), 5, 2);
  grid->addWidget(panel->Key(pad.Cmdc, KeyLook::Word), 2, 3);
  grid->addWidget(panel->Key(pad.Label1, KeyLook::Word), 3, 3);
  grid->addWidget(panel->Key(pad.cmdpoint, KeyLook::Digit), 4, 3);
  grid->addWidget(panel->Key(pad.Command1, KeyLook::Word), 5, 3);
  QWidget* const confirm = panel->Key(pad.Tamam, KeyLook::Main);
  // The keys stay where they are while it comes and goes.
  QSizePolicy kept = confirm->sizePolicy();
  kept.setRetainSizeWhenHidden(true);
  confirm->setSizePolicy(kept);
  grid->addWidget(confirm, 6, 0, 1, 4);
  for (int row = 2; row <= 6; ++row) grid->setRowStretch(row, 1);
  for (int column = 0; column < 4; ++column) grid->setColumnStretch(column, 1);
  return panel;
}

}  // namespace karvel
