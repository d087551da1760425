#pragma once
// Runs a tool over the editor and over a file.

#include "platform/system/text_file.h"
#include "support/app_fixture.h"
#include "tools/catalogue.h"
#include "tools/file_run.h"

class ToolTest : public AppTest {
 protected:
  void SetUp() override {
    Start();
    // The report of Search and Replace.
    Windows.OnModal = [](Form& form) {
      EXPECT_NE(dynamic_cast<ReplaceFoundNum*>(&form), nullptr) << ToUtf8(form.Caption.Get());
      form.CloseByFrame();
    };
  }

  // Runs a tool, with what its window holds where it has settings.
  static void Run(ToolContext& context, StringView tool) {
    const Tool& found = *FindTool(tool);
    found.Run(context, SettingsInWindow(found, context.Tools));
  }

  // What the tool makes of the editor's text, nothing being selected.
  String OnEditor(StringView tool, StringView text) {
    App().RichTextBox1.SetText(text);
    ToolContext context = App().Context();
    Run(context, tool);
    return App().RichTextBox1.Text();
  }

  // What the tool makes of a file in UTF-8. A text that holds LF and no CR is a Unix text.
  // RuntimeError as the tool raises it.
  String OnFile(StringView tool, StringView text) {
    FileRun run(Files.Put(u"in.txt", ToUtf8(text)), Data.Path());
    ToolContext context = App().Context();
    context.File = &run;
    Run(context, tool);
    return ReadTextFile(run.Result()).Text;
  }

  // What both make of it; a difference fails the test. The text is not blank.
  String OnBoth(StringView tool, StringView text) {
    const String result = OnEditor(tool, text);
    EXPECT_EQ(OnFile(tool, text), result) << "file path";
    return result;
  }
};
