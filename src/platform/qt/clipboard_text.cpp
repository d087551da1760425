#include "platform/qt/clipboard_text.h"

#include <QUrl>

String FromClipboard(QStringView text) {
  const StringView in(text.utf16(), static_cast<std::size_t>(text.size()));
  const bool lfEndsLines = in.find(kCr) == StringView::npos;
  String result;
  result.reserve(in.size());
  for (std::size_t i = 0; i < in.size(); ++i) {
    const bool lineEnd = in[i] == kCr || (in[i] == kLf && lfEndsLines);
    if (!lineEnd) {
      result += in[i];
      continue;
    }
    result += kCrLf;
    if (in[i] == kCr && i + 1 < in.size() && in[i + 1] == kLf) ++i;
  }
  return result;
}

QString ToClipboard(StringView text) {
  QString result;
  result.reserve(static_cast<qsizetype>(text.size()));
  for (std::size_t i = 0; i < text.size(); ++i) {
    result += QChar(text[i] == kCr ? kLf : text[i]);
    if (text[i] == kCr && i + 1 < text.size() && text[i + 1] == kLf) ++i;
  }
  return result;
}

bool HoldsFiles(const QMimeData& data) {
  const QList<QUrl> urls = data.urls();
  return std::any_of(urls.begin(), urls.end(), [](const QUrl& url) { return url.isLocalFile(); });
}

bool HoldsText(const QMimeData& data) { return data.hasFormat(QStringLiteral("text/plain")); }
