#include "platform/qt/qt_common_dialog.h"

#include <QApplication>
#include <QFileInfo>

#include "platform/qt/strings.h"
#include "platform/qt/window_place.h"
#include "platform/runtime_error.h"

QStringList NameFilters(const String& filter) {
  const QStringList parts = ToQt(filter).split(u'|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QString description = parts[i];
    // The patterns come again behind it.
    if (const auto bracket = description.lastIndexOf(u'('); bracket > 0)
      description.truncate(bracket);
    QString patterns = parts[i + 1];
    patterns.replace(u';', u' ');
    if (patterns == QStringLiteral("*.*")) patterns = QStringLiteral("*");
    filters += QStringLiteral("%1 (%2)").arg(description.trimmed(), patterns);
  }
  return filters;
}

QString QtCommonDialog::StartFolder() const {
  const QString named = FileName.empty() ? QString() : QFileInfo(ToQt(FileName)).absolutePath();
  for (const QString& folder : {ToQt(InitDir), *lastFolder_, named})
    if (!folder.isEmpty() && QFileInfo(folder).isDir()) return folder;
  return QDir::currentPath();
}

void QtCommonDialog::Ask(QFileDialog::AcceptMode mode) {
  const bool save = mode == QFileDialog::AcceptSave;
  QFileDialog dialog(nullptr, ToQt(DialogTitle), StartFolder());
  dialog.setAcceptMode(mode);
  dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, save && (Flags & kOverwritePrompt) == 0);
  const QStringList filters = NameFilters(Filter);
  if (!filters.isEmpty()) {
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(FilterIndex - 1, filters.first()));
  }
  if (!FileName.empty()) dialog.selectFile(QFileInfo(ToQt(FileName)).fileName());

  PlaceOver(dialog, QApplication::activeWindow());

  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
    throw RuntimeError(kDialogCancelled, "The file dialog was cancelled.");

  const QFileInfo chosen(dialog.selectedFiles().constFirst());
  *lastFolder_ = chosen.absolutePath();
  FileName = FromQt(chosen.absoluteFilePath());
  FileTitle = FromQt(chosen.fileName());
  if (const auto index = filters.indexOf(dialog.selectedNameFilter()); index >= 0)
    FilterIndex = static_cast<int>(index) + 1;
}
