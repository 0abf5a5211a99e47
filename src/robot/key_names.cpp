#include "robot/key_names.h"

#include <QList>
#include <array>
#include <string_view>
#include <utility>

namespace karvel {
namespace {

struct NamedKey {
  std::string_view name;
  Qt::Key key;
  const char* text;
};

constexpr std::array kNames{
    NamedKey{"Enter", Qt::Key_Return, "\r"},
    NamedKey{"Tab", Qt::Key_Tab, "\t"},
    NamedKey{"Delete", Qt::Key_Delete, "\x7f"},
    NamedKey{"Backspace", Qt::Key_Backspace, "\b"},
    NamedKey{"Left", Qt::Key_Left, ""},
    NamedKey{"Right", Qt::Key_Right, ""},
    NamedKey{"Up", Qt::Key_Up, ""},
    NamedKey{"Down", Qt::Key_Down, ""},
    NamedKey{"Home", Qt::Key_Home, ""},
    NamedKey{"End", Qt::Key_End, ""},
    NamedKey{"PageUp", Qt::Key_PageUp, ""},
    NamedKey{"PageDown", Qt::Key_PageDown, ""},
    NamedKey{"Escape", Qt::Key_Escape, "\x1b"},
    NamedKey{"Space", Qt::Key_Space, " "},
    NamedKey{"Insert", Qt::Key_Insert, ""},
    NamedKey{"Menu", Qt::Key_Menu, ""},
};

constexpr std::array<std::pair<std::string_view, Qt::KeyboardModifier>, 3> kPrefixes{
    {{"Ctrl+", Qt::ControlModifier}, {"Alt+", Qt::AltModifier}, {"Shift+", Qt::ShiftModifier}}};

KeyStroke KeyOfLetter(char32_t letter) {
  if (letter == '\n' || letter == '\r') return {Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r")};
  if (letter == '\t') return {Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t")};
  if (letter == '\b') return {Qt::Key_Backspace, Qt::NoModifier, QStringLiteral("\b")};
  KeyStroke stroke;
  stroke.text = QString::fromUcs4(&letter, 1);
  const bool ascii = letter >= 0x20 && letter < 0x7f;
  // Keys are named by capital letters; beyond ASCII a key has no number of its own and is known by its text.
  stroke.key = !ascii ? Qt::Key_unknown : letter >= 'a' && letter <= 'z' ? static_cast<int>(letter - 'a' + 'A') : static_cast<int>(letter);
  if (QChar::isUpper(letter)) stroke.modifiers = Qt::ShiftModifier;
  return stroke;
}

}  // namespace

std::optional<KeyStroke> KeyByName(const std::string& name) {
  std::string_view rest = name;
  Qt::KeyboardModifiers held = Qt::NoModifier;
  for (bool found = true; found;) {
    found = false;
    for (const auto& [prefix, modifier] : kPrefixes) {
      if (!rest.starts_with(prefix) || rest.size() == prefix.size()) continue;
      held |= modifier;
      rest.remove_prefix(prefix.size());
      found = true;
    }
  }
  KeyStroke stroke;
  if (rest.size() >= 2 && rest.size() <= 3 && rest[0] == 'F') {
    bool number = false;
    const int function = QString::fromLatin1(rest.data() + 1, static_cast<qsizetype>(rest.size()) - 1).toInt(&number);
    if (!number || function < 1 || function > 12) return std::nullopt;
    stroke.key = Qt::Key_F1 + function - 1;
  } else if (const QList<uint> letters = QString::fromUtf8(rest.data(), static_cast<qsizetype>(rest.size())).toUcs4();
             letters.size() == 1) {
    stroke = KeyOfLetter(letters[0]);
  } else {
    for (const NamedKey& named : kNames) {
      if (named.name != rest) continue;
      stroke.key = named.key;
      stroke.text = QString::fromLatin1(named.text);
    }
    if (stroke.key == 0) return std::nullopt;
  }
  stroke.modifiers |= held;
  if (held & Qt::ShiftModifier) stroke.text = stroke.text.toUpper();
  // With Ctrl or Alt a key writes nothing.
  if (held & (Qt::ControlModifier | Qt::AltModifier)) stroke.text.clear();
  return stroke;
}

std::vector<KeyStroke> KeysOfText(const std::string& text) {
  std::vector<KeyStroke> strokes;
  for (const uint letter : QString::fromStdString(text).toUcs4()) strokes.push_back(KeyOfLetter(letter));
  return strokes;
}

}  // namespace karvel
