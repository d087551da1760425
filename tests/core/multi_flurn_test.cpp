// Multiple File Flurn from the main window.

#include <ctime>

#include "batch/run_backups.h"
#include "support/app_fixture.h"

namespace {

class MultiFlurnTest : public AppTest {};

TEST_F(MultiFlurnTest, UndoBlocksTheCommandsOfTheMainWindow) {
  ChangeCase& app = Start();
  const String file = Files.Put(u"a.txt", "old");
  RunBackups backups(app.Batch.Windows.Ring.Prepare().value(),
                     MakeRunHead(std::time(nullptr), u"Mine"));
  backups.BackUp(file);
  backups.Flush();
  Files.Put(u"a.txt", "new");
  backups.NoteLeft(file);
  backups.Close();
  Open(file);
  app.RichTextBox1.SetText(u"text");
  Windows.Answers = {Answer::Yes};
  Windows.OnModal = [&](Form& form) {
    app.Menu.NewMenu.Click();
    EXPECT_EQ(app.RichTextBox1.Text(), u"text");
    EXPECT_EQ(app.Status.Bar.Message.Get(), u"The program is still at work.");
    app.CloseByFrame();
    EXPECT_FALSE(Windows.QuitStatus);
    if (&form == &app.Batch.Windows.UndoMFF)
      app.Batch.Windows.UndoMFF.Command1.Click();
    else
      app.Batch.Windows.UndoMFF2.Command1.Click();
  };
  app.Menu.UndoMFFMenu.Click();
  EXPECT_EQ(BytesOf(file), "old");
  ASSERT_EQ(Windows.Notices.size(), 2u);
  EXPECT_TRUE(Windows.Notices[1].starts_with(file + u" has been changed."));
  app.Fields.TextChanged = false;
  app.CloseByFrame();
  EXPECT_EQ(Windows.QuitStatus, 0);
}

}  // namespace
