#include "platform/qt/qt_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "platform/qt/clipboard_text.h"

QtClipboard::QtClipboard() {
  QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, &context_,
                   [this] { ++changes_; });
}

bool QtClipboard::HasText() const {
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  return data && HoldsText(*data);
}

String QtClipboard::GetText() const { return FromClipboard(QGuiApplication::clipboard()->text()); }

void QtClipboard::SetText(StringView text) {
  QGuiApplication::clipboard()->setText(ToClipboard(text));
}

String QtClipboard::GetRawText() const {
  return QGuiApplication::clipboard()->text().toStdU16String();
}

void QtClipboard::SetRawText(StringView text) {
  QGuiApplication::clipboard()->setText(
      QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size())));
}

void QtClipboard::Clear() { QGuiApplication::clipboard()->clear(); }
