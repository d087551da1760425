#include "tools/character_repair.h"

#include "support/tool_fixture.h"
#include "tools/catalogue.h"

namespace {

using CharacterRepair = ToolTest;

TEST_F(CharacterRepair, CleansAlikeOnEditorAndFile) {
  struct Case {
    StringView Tool;
    StringView Text;
    StringView Result;
  };
  const Case cases[] = {
      {u"Fix Odd-Looking Characters (upper->lower ASCII)",
       u"\u201Ca\u201D \u2018b\u2019 c\u2026 d\u2013e f\u2014g h \u2014 i \u0436",
       u"\"a\" 'b' c... d-e f - g h  -  i \u0436\r\n"},
      {u"Email Cleanup - Standard", u"\r\n> \u201Cone\r\n>  two\u201D\r\n>\r\n> > three\r\n\r\n",
       u"\"one two\" \r\n\r\nthree \r\n"},
      {u"Email Cleanup - Poem or List",
       u"\r\n> \u201Cone\r\n>  two\u201D\r\n>\r\n> > three\r\n\r\n",
       u"\"one\r\ntwo\"\r\n\r\nthree\r\n"},
      // Blank on the way: the signs are all there is.
      {u"Email Cleanup - Poem or List", u">\r\n> >\r\n", u""},
  };
  // They report nothing.
  Windows.OnModal = [](Form& shown) { ADD_FAILURE() << ToUtf8(shown.Caption.Get()); };
  for (const Case& c : cases) {
    SCOPED_TRACE(ToUtf8(c.Tool) + ": " + ToUtf8(c.Text));
    EXPECT_EQ(OnBoth(c.Tool, c.Text), c.Result);
  }
  EXPECT_TRUE(Windows.Notices.empty());
}

TEST_F(CharacterRepair, IsOneToolOnTheEditor) {
  SearchReplaceForm& form = App().Tools.SearchReplaceForm;
  form.Text1.Text = u"mine";
  form.Check3.Value = 1;
  Windows.OnModal = [](Form& shown) { ADD_FAILURE() << ToUtf8(shown.Caption.Get()); };
  const String text = u"x\r\n> \u201Cone\u201D\r\ny";
  const std::function<void()> entries[] = {
      [this] { App().Menu.ToolMenu(u"Email Cleanup - Standard")->Click(); },
      [this] { App().Menu.ToolMenu(u"Email Cleanup - Poem or List")->Click(); },
      [this] { App().Menu.ToolMenu(u"Fix Odd-Looking Characters (upper->lower ASCII)")->Click(); },
      [this] { App().Command11.Click(); },
      [this] { App().Command12.Click(); },
  };
  for (const auto& click : entries) {
    App().RichTextBox1.SetText(text);
    App().UndoEdit.Reset();
    click();
    EXPECT_NE(App().RichTextBox1.Text(), text);
    EXPECT_EQ(ReadWorkFile(App().Fields.TempFile1), text);
    EXPECT_EQ(form.Text1.Text.Get(), u"mine");
    EXPECT_EQ(form.Check3.Value, 1);
    App().Menu.UndoEditMenu.Click();
    EXPECT_EQ(App().RichTextBox1.Text(), text);
  }
}

TEST_F(CharacterRepair, WorksOnASelection) {
  RichTextBox& box = App().RichTextBox1;
  box.SetText(u"> a\r\n> \u201Cb\u201D\r\n> c");
  box.SetSelStart(5);
  box.SetSelLength(5);
  App().Command12.Click();
  EXPECT_EQ(box.Text(), u"> a\r\n\"b\"\r\n> c");
  // An equal place in front of it is not taken for the selection by the steps behind the first.
  box.SetText(u"code:\r\n  hi\r\nreply:\r\n>  hi\r\nend");
  box.SetSelStart(21);
  box.SetSelLength(5);
  App().Command11.Click();
  EXPECT_EQ(box.Text(), u"code:\r\n  hi\r\nreply:\r\nhi \r\nend");
  // A lone LF whose first equal is half a line end, which can't be selected.
  box.SetText(u"  abc\r\n  x\ny\r\n");
  box.SetSelStart(10);
  box.SetSelLength(1);
  App().Command11.Click();
  EXPECT_EQ(box.Text().substr(0, 10), u"  abc\r\n  x");
  // Nothing is left of it: the rest of the text is not touched instead.
  box.SetText(u"> a\r\n\r\n \r\n> c");
  box.SetSelStart(5);
  box.SetSelLength(5);
  App().Command12.Click();
  EXPECT_EQ(box.Text(), u"> a\r\n> c");
}

TEST_F(CharacterRepair, ATextOfTooManyLinesIsRefusedOnce) {
  String text;
  for (int i = 0; i < 30001; ++i) text += u"> \u201Ca\u201D\r\n";
  for (const StringView tool : {kEmailStandard, kEmailPoem,
                                StringView(u"Fix Odd-Looking Characters (upper->lower ASCII)")}) {
    Windows.Notices.clear();
    EXPECT_EQ(OnEditor(tool, text), text);
    EXPECT_EQ(
        Windows.Notices,
        std::vector<String>{u"The text has more than 30000 lines, which this tool cannot take."});
  }
}

TEST_F(CharacterRepair, GuardsOfButtonsAndMenu) {
  App().RichTextBox1.SetText(u"> a");
  App().Fields.ToolBusy = true;
  App().Command11.Click();
  EXPECT_EQ(App().RichTextBox1.Text(), u"> a");
  App().Fields.ToolBusy = false;
  App().RichTextBox1.Locked = true;
  App().Command11.Click();
  App().Command12.Click();
  App().Menu.ToolMenu(u"All Upper Case")->Click();
  EXPECT_EQ(App().RichTextBox1.Text(), u"> a");
  EXPECT_EQ(Windows.Notices,
            std::vector<String>(3,
                                u"This text has been encrypted and no tools may be run on it "
                                u"until after it is decrypted."));
}

}  // namespace
