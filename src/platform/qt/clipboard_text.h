#pragma once
// Text on its way to and from other programs of this system, whose line end is LF.

#include <QMimeData>

#include "text/text.h"

// Text that holds LF and no CR has LF as its line end; in any other an LF alone stays as it is.
// The result has CR LF line ends.
String FromClipboard(QStringView text);
// With LF line ends.
QString ToClipboard(StringView text);

// Whether these are files, which belong to the window.
bool HoldsFiles(const QMimeData& data);
// Whether text was meant, and not only something that could be shown as text.
bool HoldsText(const QMimeData& data);
