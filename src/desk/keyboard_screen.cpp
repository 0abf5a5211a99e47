#include "desk/keyboard_screen.h"

namespace karvel {

ElementArray KeyboardScreen::Keys() {
  constexpr std::pair<const char*, bool> kKeys[] = {
      {"A", false}, {"B", false},       {"C", false},       {"Ç", false}, {"D", false}, {"E", false}, {"F", false},   {"G", false},
      {"Ğ", false}, {"H", false},       {"I", false},       {"İ", false}, {"J", false}, {"K", false}, {"L", false},   {"M", false},
      {"N", false}, {"O", false},       {"Ö", false},       {"P", false}, {"R", false}, {"S", false}, {"Ş", false},   {"T", false},
      {"U", false}, {"Ü", false},       {"V", false},       {"Y", false}, {"Z", false}, {".", false}, {"-", false},   {"/", false},
      {"Q", false}, {"Geri Al", false}, {" Boşluk", false}, {"0", true},  {"1", true},  {"2", true},  {"3", true},    {"4", true},
      {"5", true},  {"6", true},        {"7", true},        {"8", true},  {"9", true},  {"W", false}, {"Sil", false}, {"AB", false},
      {"X", false}, {"Num Off", false}};
  std::vector<Element*> keys;
  for (const auto& [caption, inBlock] : kKeys)
    keys.push_back(&One("Label1(" + std::to_string(keys.size()) + ")", Kind::Label, caption, inBlock ? &Frame1 : &Form2));
  return ElementArray(std::move(keys));
}

}  // namespace karvel
