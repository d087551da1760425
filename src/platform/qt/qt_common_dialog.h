#pragma once

#include <QFileDialog>
#include <memory>

#include "platform/window/common_dialog.h"

class QtCommonDialog : public CommonDialog {
 public:
  // All dialogs of the program share the folder used last.
  explicit QtCommonDialog(std::shared_ptr<QString> lastFolder)
      : lastFolder_(std::move(lastFolder)) {}
  void ShowOpen() override { Ask(QFileDialog::AcceptOpen); }
  void ShowSave() override { Ask(QFileDialog::AcceptSave); }

 private:
  void Ask(QFileDialog::AcceptMode mode);
  QString StartFolder(bool save) const;

  std::shared_ptr<QString> lastFolder_;
};

// "Texts (*.txt)|*.txt|All|*.*" as Qt's name filters: "Texts (*.txt)", "All (*)".
QStringList NameFilters(const String& filter);
