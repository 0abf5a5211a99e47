// The keys by the names that requests use: "Enter", "Ctrl+Left", "F8", "a".
#pragma once

#include <QString>
#include <optional>
#include <string>
#include <vector>

namespace karvel {

struct KeyStroke {
  int key = 0;  // Qt::Key
  Qt::KeyboardModifiers modifiers = Qt::NoModifier;
  QString text;  // what the key writes
};

// Nothing for a name that isn't a key's.
std::optional<KeyStroke> KeyByName(const std::string& name);
// The keys that write a text, one for each letter.
std::vector<KeyStroke> KeysOfText(const std::string& text);

}  // namespace karvel
