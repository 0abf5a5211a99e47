#include "app/ini_text.h"

#include <QString>
#include <QStringDecoder>
#include <QStringList>
#include <algorithm>
#include <utility>

#include "app/qt_text.h"

namespace karvel {
namespace {

constexpr const char* kRoot = "General";  // the section of addresses with one piece

bool IsPlain(char16_t unit) {
  return (unit >= 'a' && unit <= 'z') || (unit >= 'A' && unit <= 'Z') || (unit >= '0' && unit <= '9') || unit == '_' || unit == '-' ||
         unit == '.';
}

bool IsHexDigit(QChar letter) {
  return letter.unicode() < 0x80 && std::isxdigit(letter.unicode()) != 0;
}

QString Hex(char16_t unit, int digits) {
  return QStringLiteral("%1").arg(static_cast<uint>(unit), digits, 16, QChar('0')).toUpper();
}

// Names are spelled in plain letters: "D%F6kNo", "Sat%U0131rSay", "Size\Kdv" for Size/Kdv.
QString SpelledName(const QString& name) {
  QString spelled;
  for (const QChar letter : name) {
    const char16_t unit = letter.unicode();
    if (unit == '/') {
      spelled += '\\';
    } else if (IsPlain(unit)) {
      spelled += letter;
    } else {
      spelled += unit <= 0xFF ? "%" + Hex(unit, 2) : "%U" + Hex(unit, 4);
    }
  }
  return spelled;
}

QString ReadName(const QString& spelled) {
  QString name;
  for (qsizetype at = 0; at < spelled.size(); ++at) {
    if (spelled[at] == '\\') {
      name += '/';
      continue;
    }
    const bool wide = spelled[at] == '%' && at + 1 < spelled.size() && spelled[at + 1] == 'U';
    const qsizetype digits = wide ? 4 : 2, from = at + (wide ? 2 : 1);
    bool isCode = false;
    const uint code = spelled[at] == '%' && from + digits <= spelled.size() ? spelled.mid(from, digits).toUInt(&isCode, 16) : 0;
    if (isCode) {
      name += QChar(static_cast<char16_t>(code));
      at = from + digits - 1;
    } else {
      name += spelled[at];
    }
  }
  return name;
}

constexpr std::pair<char, char> kEscapes[] = {{'a', '\a'}, {'b', '\b'}, {'f', '\f'}, {'n', '\n'},  {'r', '\r'}, {'t', '\t'},
                                              {'v', '\v'}, {'"', '"'},  {'?', '?'},  {'\'', '\''}, {'\\', '\\'}};

QString SpelledValue(const QString& value) {
  QString spelled = value.startsWith('@') ? QStringLiteral("@") : QString();
  bool quoted = value.startsWith(' ') || value.endsWith(' '), afterCode = false;
  for (const QChar letter : value) {
    const char16_t unit = letter.unicode();
    quoted = quoted || unit == ';' || unit == ',' || unit == '=';
    const auto* const escape = std::ranges::find_if(kEscapes, [letter](const auto& pair) { return QChar(pair.second) == letter; });
    if (unit < 0x20 || unit == '"' || unit == '\\') {
      const bool known = escape != std::end(kEscapes);
      spelled += known ? QStringLiteral("\\") + QChar(escape->first) : "\\x" + QString::number(unit, 16);
      afterCode = !known;
    } else if (afterCode && IsHexDigit(letter)) {
      spelled += "\\x" + QString::number(unit, 16);  // else it would be read as a digit of the code before it
    } else {
      spelled += letter;
      afterCode = false;
    }
  }
  return quoted ? "\"" + spelled + "\"" : spelled;
}

// Reads one escape; `at` stands on what follows the backslash, and then behind it.
void ReadEscape(const QString& text, qsizetype& at, QString& value) {
  if (at >= text.size()) return;
  const QChar letter = text[at++];
  if (letter == 'x' || (letter >= '0' && letter <= '7')) {
    const int base = letter == 'x' ? 16 : 8;
    uint code = letter == 'x' ? 0 : static_cast<uint>(letter.unicode() - '0');
    const auto isDigit = [&](QChar next) { return base == 16 ? IsHexDigit(next) : next >= '0' && next <= '7'; };
    for (; at < text.size() && isDigit(text[at]); ++at) code = code * static_cast<uint>(base) + QString(text[at]).toUInt(nullptr, base);
    value += QChar(static_cast<char16_t>(code));
    return;
  }
  for (const auto& [spelled, meant] : kEscapes)
    if (letter == spelled) value += QChar(meant);
}

// The text behind "=", up to a remark. A list that someone wrote by hand without quotes reads as one text.
QString ReadValue(const QString& text) {
  QString value;
  qsizetype firm = 0;  // so many letters stay however blank: they were quoted or spelled out
  bool quoted = false, blanksSkipped = true;
  for (qsizetype at = 0; at < text.size();) {
    const QChar letter = text[at++];
    if (letter == '"') {
      quoted = !quoted;
      blanksSkipped = false;
      firm = value.size();
    } else if (letter == '\\') {
      ReadEscape(text, at, value);
      blanksSkipped = false;
      firm = value.size();
    } else if (quoted) {
      value += letter;
      firm = value.size();
    } else if (letter == ';') {
      break;
    } else if (letter == ',') {
      while (value.size() > firm && value.back().isSpace()) value.chop(1);
      value += QStringLiteral(", ");
      blanksSkipped = true;
    } else if (!blanksSkipped || !letter.isSpace()) {
      value += letter;
      blanksSkipped = false;
    }
  }
  while (value.size() > firm && value.back().isSpace()) value.chop(1);
  return value.startsWith(QStringLiteral("@@")) ? value.mid(1) : value;
}

bool IsText(std::string_view bytes) {
  return std::ranges::none_of(
      bytes, [](char letter) { return static_cast<unsigned char>(letter) < ' ' && letter != '\t' && letter != '\r' && letter != '\n'; });
}

}  // namespace

IniText ReadIni(std::string_view bytes) {
  IniText read;
  if (!IsText(bytes)) return {.values = {}, .whole = false};
  QString section;
  const QString text = ToQt(std::string(bytes)).replace('\r', '\n');
  for (const QString& whole : text.split('\n', Qt::SkipEmptyParts)) {
    const QString line = whole.trimmed();
    // "#" is how many a hand writes a remark.
    if (line.isEmpty() || line.startsWith(';') || line.startsWith('#')) continue;
    const qsizetype mark = line.indexOf('=');
    if (line.startsWith('[') && line.endsWith(']')) {
      const QString name = line.mid(1, line.size() - 2).trimmed();
      const bool root = name.compare(QLatin1String(kRoot), Qt::CaseInsensitive) == 0;
      section = root ? QString() : ReadName(name.compare(QStringLiteral("%General"), Qt::CaseInsensitive) == 0 ? kRoot : name) + "/";
    } else if (mark > 0 && !line.startsWith('[')) {
      read.values[ToUtf8(section + ReadName(line.left(mark).trimmed()))] = ToUtf8(ReadValue(line.mid(mark + 1)));
    } else {
      read.whole = false;
    }
  }
  return read;
}

std::string WriteIni(const IniValues& values) {
  std::map<QString, QString> sections;
  for (const auto& [address, value] : values) {
    const QString name = ToQt(address);
    const qsizetype slash = name.indexOf('/');
    const bool clash = slash > 0 && name.left(slash).compare(QLatin1String(kRoot), Qt::CaseInsensitive) == 0;
    const QString section = slash < 0 ? QString::fromLatin1(kRoot) : (clash ? "%" : "") + SpelledName(name.left(slash));
    sections[section] += SpelledName(name.mid(slash + 1)) + "=" + SpelledValue(ToQt(value)) + "\n";
  }
  std::string text;
  for (const auto& [section, lines] : sections) text += (text.empty() ? "[" : "\n[") + ToUtf8(section) + "]\n" + ToUtf8(lines);
  return text;
}

}  // namespace karvel
