#include "platform/qt/fonts.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QStringList>

namespace {

// The desktop may name a proportional font for its fixed one, or none.
QFont FixedFont() {
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  if (QFontInfo(font).fixedPitch()) return font;
  font.setFamilies({QStringLiteral("monospace")});
  font.setStyleHint(QFont::Monospace);
  return font;
}

}  // namespace

QFont ToQFont(const TextFont& font) {
  const QString name = QString::fromStdU16String(font.Name);
  QFont result = FixedFont();
  if (!name.isEmpty() && QFontDatabase::hasFamily(name)) result.setFamilies({name});
  if (font.Size > 0) result.setPointSizeF(font.Size);
  result.setBold(font.Bold);
  return result;
}
