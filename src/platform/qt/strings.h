#pragma once
// Text between the program and Qt.

#include <QString>

#include "text/text.h"

inline QString ToQt(const String& text) {
  return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

inline String FromQt(QStringView text) {
  return String(reinterpret_cast<const char16_t*>(text.utf16()),
                static_cast<std::size_t>(text.size()));
}
