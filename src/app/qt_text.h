// Texts between the desk (UTF-8, counted in letters) and Qt (UTF-16, counted in code units).
#pragma once

#include <QString>
#include <string>

namespace karvel {

inline QString ToQt(const std::string& text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string ToUtf8(const QString& text) {
  return text.toStdString();
}

// How many letters stand before a code unit.
inline int LettersBefore(const QString& text, int unit) {
  int letters = 0;
  for (int i = 0; i < unit && i < text.size(); ++i)
    if (!text[i].isLowSurrogate()) ++letters;
  return letters;
}

// The code unit at which a letter begins.
inline int UnitOfLetter(const QString& text, int letter) {
  int unit = 0;
  for (; letter > 0 && unit < text.size(); --letter) unit += text[unit].isHighSurrogate() && unit + 1 < text.size() ? 2 : 1;
  return unit;
}

}  // namespace karvel
