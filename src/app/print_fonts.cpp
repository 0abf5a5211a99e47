#include "app/print_fonts.h"

#include <QFontDatabase>
#include <QHash>
#include <array>

#include "app/qt_text.h"

namespace karvel {
namespace {

struct WidthClass {
  std::array<const char*, 5> words;     // in the name asked for
  std::array<const char*, 3> families;  // the nearest first
};

// A name is of the first class that has a word of it; the last class takes all.
constexpr std::array kClasses{
    WidthClass{{"courier", "mono", "console", "terminal", "fixed"}, {"Liberation Mono", "DejaVu Sans Mono", "Noto Mono"}},
    WidthClass{{"narrow", "condensed", "tahoma"}, {"Liberation Sans Narrow", "DejaVu Sans Condensed", "DejaVu Sans"}},
    WidthClass{{"verdana", "dejavu"}, {"DejaVu Sans", "Liberation Sans", "Inter"}},
    WidthClass{{"times", "roman", "georgia", "ms serif"}, {"Liberation Serif", "DejaVu Serif", "DejaVu Sans"}},
    WidthClass{{""}, {"Liberation Sans", "DejaVu Sans", "Inter"}},
};

// "Courier New Tur" is Courier New with the letters of one alphabet.
QString WithoutAlphabet(const QString& name) {
  return name.endsWith(QLatin1String(" Tur"), Qt::CaseInsensitive) ? name.chopped(4) : name;
}

bool IsOfClass(const QString& name, const WidthClass& kind) {
  for (const char* const word : kind.words)
    if (word && name.contains(QLatin1String(word), Qt::CaseInsensitive)) return true;
  return false;
}

QString NearestFamily(const QString& name) {
  if (QFontDatabase::hasFamily(name)) return name;
  for (const WidthClass& kind : kClasses) {
    if (!IsOfClass(name, kind)) continue;
    for (const char* const family : kind.families)
      if (QFontDatabase::hasFamily(QLatin1String(family))) return QLatin1String(family);
  }
  return name;
}

}  // namespace

QFont FontOnPaper(const PrintFont& font) {
  static QHash<QString, QString> found;  // looking through the machine's fonts takes long
  const QString name = WithoutAlphabet(ToQt(font.name));
  auto family = found.constFind(name);
  if (family == found.constEnd()) family = found.insert(name, NearestFamily(name));
  QFont onPaper(*family);
  onPaper.setPointSizeF(font.size > 0 ? font.size : 8);
  onPaper.setBold(font.bold);
  onPaper.setUnderline(font.underline);
  onPaper.setStrikeOut(font.strikethru);
  // As wide as they are, not as the dots of a screen would have them.
  onPaper.setHintingPreference(QFont::PreferNoHinting);
  return onPaper;
}

}  // namespace karvel
