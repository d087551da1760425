#include "platform/qt/fonts.h"

#include <QFontDatabase>
#include <QStringList>

QFont ToQFont(const TextFont& font) {
  const QString name = QString::fromStdU16String(font.Name);
  QFont result = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  if (!name.isEmpty() && QFontDatabase::hasFamily(name)) result.setFamilies({name});
  if (font.Size > 0) result.setPointSizeF(font.Size);
  result.setBold(font.Bold);
  return result;
}
