#pragma once
// Runs a tool over the editor and over a file.

#include "platform/system/text_file.h"
#include "support/app_fixture.h"

class ToolTest : public AppTest {
 protected:
  using RunFunction = void (*)(ToolContext&);

  void SetUp() override { Start(); }

  ToolContext Context() {
    return {App().Fields, App().RichTextBox1, App().Messages, Windows, App().Tools};
  }

  // What the tool makes of the editor's text, nothing being selected.
  String OnEditor(RunFunction run, StringView text) {
    App().RichTextBox1.SetText(text);
    ToolContext context = Context();
    run(context);
    return App().RichTextBox1.Text();
  }

  // What the tool makes of a file in UTF-8. A text that holds LF and no CR is a Unix text.
  // RuntimeError as the tool raises it.
  String OnFile(RunFunction run, StringView text) {
    SharedFields& fields = App().Fields;
    fields.BatchCurrentFile = Files.Put(u"in.txt", ToUtf8(text));
    fields.InputFileNum = std::make_unique<TextReader>(fields.BatchCurrentFile);
    fields.BatchMode = true;
    ToolContext context = Context();
    try {
      run(context);
    } catch (...) {
      EndFile();
      throw;
    }
    EndFile();
    return ReadTextFile(fields.TempFile1).Text;
  }

  // What both make of it; a difference fails the test. The text is not blank.
  String OnBoth(RunFunction run, StringView text) {
    const String result = OnEditor(run, text);
    EXPECT_EQ(OnFile(run, text), result) << "file path";
    return result;
  }

 private:
  void EndFile() {
    App().Fields.BatchMode = false;
    App().Fields.InputFileNum.reset();
    App().Fields.OutputFileNum.reset();
  }
};
