#include "platform/qt/qt_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "platform/qt/clipboard_text.h"

bool QtClipboard::HasText() const {
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  return data && HoldsText(*data);
}

String QtClipboard::GetText() const { return FromClipboard(QGuiApplication::clipboard()->text()); }

void QtClipboard::SetText(StringView text) {
  QGuiApplication::clipboard()->setText(ToClipboard(text));
}

void QtClipboard::Clear() { QGuiApplication::clipboard()->clear(); }
