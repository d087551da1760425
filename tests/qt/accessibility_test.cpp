// What a screen reader and the keyboard find in the program's own windows.

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>
#include <QMenuBar>
#include <set>

#include "batch/working2.h"
#include "core/change_case.h"
#include "editor/browse_folders.h"
#include "form_fixture.h"
#include "support/temp_folder.h"

namespace {

class Accessible : public FormTest {
 protected:
  // The names of all that a user works or reads, by kind.
  std::vector<std::pair<QAccessible::Role, QString>> NamesIn(QAccessibleInterface& parent) {
    static const std::set kTold{
        QAccessible::ToolBar,  QAccessible::StatusBar,   QAccessible::MenuBar,
        QAccessible::Button,   QAccessible::PushButton,  QAccessible::ButtonMenu,
        QAccessible::CheckBox, QAccessible::RadioButton, QAccessible::EditableText,
        QAccessible::ComboBox, QAccessible::List};
    std::vector<std::pair<QAccessible::Role, QString>> names;
    for (int i = 0; i < parent.childCount(); ++i) {
      QAccessibleInterface* child = parent.child(i);
      if (!child || child->state().invisible) continue;
      if (kTold.contains(child->role()))
        names.emplace_back(child->role(), child->text(QAccessible::Name));
      // What is in a list or a box tells its own texts.
      if (child->role() != QAccessible::List && child->role() != QAccessible::ComboBox)
        for (auto& name : NamesIn(*child)) names.push_back(std::move(name));
    }
    return names;
  }

  // The letters that work something together with Alt.
  QString LettersIn(const QWidget& window) {
    QString letters;
    const auto note = [&](const QString& text) {
      const QString key = QKeySequence::mnemonic(text).toString();
      if (!key.isEmpty()) letters += key.back();
    };
    for (auto* button : window.findChildren<QAbstractButton*>()) {
      if (button->inherits("QToolButton")) continue;
      note(button->text());
    }
    for (auto* label : window.findChildren<QLabel*>())
      if (label->buddy()) {
        EXPECT_FALSE(QKeySequence::mnemonic(label->text()).isEmpty())
            << label->text().toStdString();
        note(label->text());
      }
    if (auto* main = window.findChild<QMenuBar*>())
      for (auto* menu : main->actions()) note(menu->text());
    return letters;
  }
};

TEST_F(Accessible, EverythingHasANameOfItsOwnAndNoLetterTwice) {
  const TempFolder data;
  Session session(windows, data.Path(), u"/NOSPLASH");
  ChangeCase app(session);
  app.Find.Open();
  BrowseFolders browse(windows, app.Messages);
  Working2 working(windows);
  ToolState& tools = app.Tools;
  Messages& messages = app.Messages;
  for (Form* form : std::initializer_list<Form*>{
           &app, &browse, &working, &messages.Notice1, &messages.Question1, &messages.HelpWindow,
           &tools.AddCarriageForm, &tools.RunProgramSettings, &tools.SearchReplaceForm,
           &tools.ReplaceFoundNum, &tools.HTML}) {
    form->Show();
    SCOPED_TRACE(ToUtf8(form->Caption.Get()));
    QWidget* window = windows.WindowOf(*form);
    const auto names = NamesIn(*QAccessible::queryAccessibleInterface(window));
    EXPECT_GE(names.size(), 1u);
    std::set<std::pair<QAccessible::Role, QString>> own;
    for (const auto& [role, name] : names) {
      EXPECT_FALSE(name.isEmpty()) << "role " << role;
      EXPECT_TRUE(own.emplace(role, name).second) << name.toStdString();
      for (const QChar c : name) EXPECT_LT(c.unicode(), 0x2500) << name.toStdString();
    }
    QString letters = LettersIn(*window);
    std::sort(letters.begin(), letters.end());
    EXPECT_EQ(std::adjacent_find(letters.begin(), letters.end()), letters.end())
        << letters.toStdString();
    form->Hide();
  }
}

TEST_F(Accessible, BarsTellTheirButtonsByName) {
  const TempFolder data;
  Session session(windows, data.Path(), u"/NOSPLASH");
  ChangeCase app(session);
  app.Show();
  const auto names = NamesIn(*QAccessible::queryAccessibleInterface(windows.WindowOf(app)));
  for (const char* name : {"Menus", "Tool bar", "Status bar", "Open", "Copy All", "Undo",
                           "Email Cleanup - Poem or List", "Custom Tool 1", "Text", "UTF-8"})
    EXPECT_TRUE(std::any_of(names.begin(), names.end(), [&](const auto& each) {
      return each.second == QLatin1String(name);
    })) << name;
}

}  // namespace
