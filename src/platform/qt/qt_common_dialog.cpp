#include "platform/qt/qt_common_dialog.h"

#include <QApplication>
#include <QFileInfo>
#include <QMessageBox>

#include "platform/qt/strings.h"
#include "platform/qt/window_place.h"
#include "platform/system/files.h"
#include "text/runtime_error.h"

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

QString QtCommonDialog::StartFolder(bool save) const {
  // A bare name says nothing about a folder.
  const bool hasFolder = FileName.find(kPathSeparator) != String::npos;
  const QString own = hasFolder ? ToQt(FolderOf(FileName)) : QString(), first = ToQt(InitDir);
  const QStringList folders =
      save ? QStringList{own, *lastFolder_, first} : QStringList{*lastFolder_, first, own};
  for (const QString& folder : folders)
    if (!folder.isEmpty() && QFileInfo(folder).isDir()) return folder;
  return QDir::currentPath();
}

namespace {

// Qt can't see a file whose name is not valid UTF-8, so its dialog does not ask about one.
bool MayReplace(QFileDialog& dialog, const QString& path) {
  if (QFileInfo::exists(path) || !FileExists(FromQt(path))) return true;
  const QString question = QFileDialog::tr("%1 already exists.\nDo you want to replace it?")
                               .arg(QFileInfo(path).fileName());
  return QMessageBox::warning(&dialog, dialog.windowTitle(), question,
                              QMessageBox::Yes | QMessageBox::No,
                              QMessageBox::No) == QMessageBox::Yes;
}

}  // namespace

void QtCommonDialog::Ask(QFileDialog::AcceptMode mode) {
  const bool save = mode == QFileDialog::AcceptSave;
  QFileDialog dialog(nullptr, ToQt(DialogTitle), StartFolder(save));
  dialog.setAcceptMode(mode);
  dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  const bool asks = save && (Flags & kOverwritePrompt) != 0;
  dialog.setOption(QFileDialog::DontConfirmOverwrite, !asks);
  const QStringList filters = NameFilters(Filter);
  if (!filters.isEmpty()) {
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(FilterIndex - 1, filters.first()));
  }
  if (!FileName.empty()) dialog.selectFile(QFileInfo(ToQt(FileName)).fileName());

  PlaceOver(dialog, QApplication::activeWindow());

  do {
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
      throw RuntimeError(kDialogCancelled, "The file dialog was cancelled.");
  } while (asks && !MayReplace(dialog, dialog.selectedFiles().constFirst()));

  const QFileInfo chosen(dialog.selectedFiles().constFirst());
  *lastFolder_ = chosen.absolutePath();
  FileName = FromQt(chosen.absoluteFilePath());
  FileTitle = FromQt(chosen.fileName());
  if (const auto index = filters.indexOf(dialog.selectedNameFilter()); index >= 0)
    FilterIndex = static_cast<int>(index) + 1;
}
