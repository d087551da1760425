#include "platform/qt/qt_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "platform/qt/strings.h"

namespace {

// A text of other programs has LF line ends when it has no CR.
String WithCrLf(const QString& text) {
  if (text.contains(u'\r')) return FromQt(text);
  String result;
  result.reserve(static_cast<std::size_t>(text.size()));
  for (const QChar c : text) {
    if (c == u'\n') result += kCr;
    result += c.unicode();
  }
  return result;
}

QString WithLf(StringView text) {
  QString result;
  result.reserve(static_cast<qsizetype>(text.size()));
  for (std::size_t i = 0; i < text.size(); ++i)
    if (text[i] != kCr || i + 1 == text.size() || text[i + 1] != kLf) result += QChar(text[i]);
  return result;
}

}  // namespace

bool QtClipboard::HasText() const {
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  return data && data->hasText();
}

String QtClipboard::GetText() const { return WithCrLf(QGuiApplication::clipboard()->text()); }

void QtClipboard::SetText(StringView text) { QGuiApplication::clipboard()->setText(WithLf(text)); }

void QtClipboard::Clear() { QGuiApplication::clipboard()->clear(); }
