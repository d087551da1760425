#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>

#include "form_fixture.h"
#include "platform/qt/qt_common_dialog.h"
#include "platform/system/byte_file.h"
#include "platform/system/files.h"
#include "text/runtime_error.h"

namespace {

using CommonDialogs = FormTest;

QFileDialog* Open() { return qobject_cast<QFileDialog*>(QApplication::activeModalWidget()); }

TEST_F(CommonDialogs, TheFileChosenIsKeptAndCancelChangesNothing) {
  QTemporaryDir folder;
  auto dialog = windows.CreateCommonDialog();
  dialog->DialogTitle = u"Save List of Files As";
  dialog->InitDir = FromQt(folder.path());
  dialog->FileName = u"/elsewhere/list.wff";
  dialog->Filter = u"List (*.wff)|*.wff|All Files (*.*)|*.*";
  dialog->FilterIndex = 2;
  for (const bool save : {false, true}) {
    Meanwhile([] { Open()->reject(); });
    try {
      save ? dialog->ShowSave() : dialog->ShowOpen();
      FAIL();
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Code, kDialogCancelled);
    }
    EXPECT_EQ(dialog->FileName, u"/elsewhere/list.wff");
    EXPECT_EQ(dialog->FileTitle, u"");
    EXPECT_EQ(dialog->FilterIndex, 2);
  }
  Meanwhile([&] {
    QFileDialog* shown = Open();
    EXPECT_EQ(shown->windowTitle(), "Save List of Files As");
    EXPECT_EQ(shown->selectedNameFilter(), "All Files (*)");
    auto* name = shown->findChild<QLineEdit*>();
    EXPECT_EQ(name->text(), "list.wff");
    name->setText("other");
    static_cast<QDialog*>(shown)->accept();
  });
  dialog->ShowSave();
  EXPECT_EQ(dialog->FileName, FromQt(folder.filePath("other")));
  EXPECT_EQ(dialog->FileTitle, u"other");
}

TEST_F(CommonDialogs, SavingStartsAtTheFileAndOpeningWhereTheUserWas) {
  QTemporaryDir own, last, init;
  auto dialog = windows.CreateCommonDialog();
  const auto start = [&](bool save) {
    QString folder;
    Meanwhile([&] {
      folder = Open()->directory().absolutePath();
      Open()->reject();
    });
    EXPECT_THROW(save ? dialog->ShowSave() : dialog->ShowOpen(), RuntimeError);
    return folder;
  };
  dialog->FileName = FromQt(own.filePath("a.txt"));
  EXPECT_EQ(start(false), own.path());
  dialog->InitDir = FromQt(init.path());
  EXPECT_EQ(start(false), init.path());
  EXPECT_EQ(start(true), own.path());

  dialog->FileName = FromQt(last.filePath("b.txt"));
  Meanwhile([] { static_cast<QDialog*>(Open())->accept(); });
  dialog->ShowSave();
  dialog->FileName = FromQt(own.filePath("a.txt"));
  EXPECT_EQ(start(false), last.path());
  EXPECT_EQ(start(true), own.path());
  dialog->FileName = u"no folder.txt";
  EXPECT_EQ(start(true), last.path());
}

// Such a file is out of Qt's sight.
TEST_F(CommonDialogs, AsksBeforeAFileWithStrayBytesIsReplaced) {
  QTemporaryDir folder;
  const String path = FromQt(folder.filePath("odd")) + u"\xDCFF.txt";
  OutputFile(path).Write("text");
  auto dialog = windows.CreateCommonDialog();
  dialog->FileName = path;
  dialog->Flags = CommonDialog::kOverwritePrompt;
  int asked = 0;
  const auto answer = [&](QMessageBox::StandardButton button) {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) return;
    ++asked;
    box->button(button)->click();
  };
  Meanwhile([&] {
    Meanwhile([&] {
      Meanwhile([&] {
        Meanwhile([&] { answer(QMessageBox::Yes); });
        static_cast<QDialog*>(Open())->accept();
      });
      answer(QMessageBox::No);
    });
    static_cast<QDialog*>(Open())->accept();
  });
  dialog->ShowSave();
  EXPECT_EQ(asked, 2);
  EXPECT_EQ(dialog->FileName, path);
  // The temporary folder can't see it either.
  DeleteFile(path);
}

TEST(NameFilter, BecomesQtsOwn) {
  const std::vector<std::pair<String, QStringList>> cases{
      {u"", {}},
      {u"Texts|*.txt;*.asc|All Files (*.*)|*.*", {"Texts (*.txt *.asc)", "All Files (*)"}},
      {u"Lists (*.wff)|*.wff|left over", {"Lists (*.wff)"}},
  };
  for (const auto& [filter, expected] : cases) EXPECT_EQ(NameFilters(filter), expected);
}

}  // namespace
