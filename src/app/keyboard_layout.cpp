#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <initializer_list>
#include <utility>

#include "app/element_binding.h"
#include "app/floating_layouts.h"

namespace karvel {
namespace {

using Keyboard = KeyboardScreen;

constexpr int kGap = 4, kMargin = 5;

// A row of keys and the part of its width that each takes.
void AddRow(QVBoxLayout& rows, KeyCard& card, const Keyboard& keyboard, std::initializer_list<int> keys) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(kGap);
  for (const int key : keys) row->addWidget(card.Key(keyboard.Label1(key), KeyLook::Letter), 1);
  rows.addLayout(row, 1);
}

void AddCommands(QVBoxLayout& rows, KeyCard& card, const Keyboard& keyboard) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(kGap);
  for (const auto& [key, width] :
       {std::pair{Keyboard::kCase, 3}, {Keyboard::kBlock, 4}, {Keyboard::kSpace, 9}, {Keyboard::kBack, 4}, {Keyboard::kClear, 4}})
    row->addWidget(card.Key(keyboard.Label1(key), KeyLook::Word), width);
  rows.addLayout(row, 1);
}

// As on a calculator: 7 8 9 on top.
QWidget* NumberBlock(DeskUi& ui, KeyCard& card, const Keyboard& keyboard) {
  auto* const block = new QFrame(&card);
  new ElementBinding(ui, keyboard.Frame1, *block, {});
  auto* const grid = new QGridLayout(block);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(kGap);
  const auto digit = [&](int value) { return card.Key(keyboard.Label1(Keyboard::kFirstDigit + value), KeyLook::Digit); };
  for (int value = 1; value <= 9; ++value) grid->addWidget(digit(value), 2 - (value - 1) / 3, (value - 1) % 3);
  grid->addWidget(digit(0), 3, 0, 1, 3);
  for (int row = 0; row < 4; ++row) grid->setRowStretch(row, 1);
  for (int column = 0; column < 3; ++column) grid->setColumnStretch(column, 1);
  return block;
}

}  // namespace

void FillKeyboard(DeskUi& ui, KeyCard& card, Keyboard& keyboard) {
  auto* const all = new QVBoxLayout(&card);
  all->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  all->setSpacing(kGap);

  auto* const strip = new QHBoxLayout;
  strip->setSpacing(kGap);
  auto* const grip = new QLabel(QStringLiteral("⠿"), &card);
  grip->setAttribute(Qt::WA_TransparentForMouseEvents);
  grip->setMargin(6);
  strip->addWidget(grip);
  strip->addWidget(card.Field(keyboard.Text1), 1);
  QWidget* const close = card.Key(keyboard.Command1, KeyLook::Word);
  close->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);  // as high as the box beside it
  strip->addWidget(close);
  all->addLayout(strip);

  auto* const body = new QHBoxLayout;
  body->setSpacing(kGap);
  all->addLayout(body, 1);
  auto* const letters = new QVBoxLayout;
  letters->setSpacing(kGap);
  body->addLayout(letters, 12);
  AddRow(*letters, card, keyboard, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11});
  AddRow(*letters, card, keyboard, {12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23});
  AddRow(*letters, card, keyboard, {24, 25, 26, 27, 28, 32, 45, 48, 29, 30, 31});
  AddCommands(*letters, card, keyboard);
  body->addWidget(NumberBlock(ui, card, keyboard), 3);
}

FloatingPanel* BuildKeyboard(DeskUi& ui, QWidget* window) {
  Keyboard& keyboard = ui.screen.Form2;
  auto* const panel = new FloatingPanel(ui, keyboard, keyboard.Form2, keyboard.frame, window);
  FillKeyboard(ui, *panel, keyboard);
  return panel;
}

}  // namespace karvel
