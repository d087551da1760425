#include "fuzz/tool_properties.h"

#include <cstdlib>
#include <iostream>

#include "platform/console/console_window_system.h"
#include "platform/system/files.h"
#include "state/data_files.h"
#include "support/temp_folder.h"
#include "text/runtime_error.h"
#include "tools/file_run.h"

namespace {

void NoSettings(ToolState&, unsigned) {}

void SetPosition(ToolState& tools, unsigned choice) {
  tools.AddCarriageForm.Text1.Text = Str(choice % 23);
  tools.AddCarriageForm.Check1.Value = choice / 23 % 2;
}

void SetSearch(ToolState& tools, unsigned choice) {
  constexpr StringView kSearched[] = {u"a",      u"b",           u"ab",    u"a<OR>b",
                                      u"a\r\nb", u" ",           u"a\r\n", u"a\r\nb\r\na",
                                      u"97",     u"97 98<OR>32", u"<P",    u"<OR>a"};
  constexpr StringView kReplaced[] = {u"", u"a", u"x", u"a b", u"98", u"13 10", u"\r\n"};
  SearchReplaceForm& form = tools.SearchReplaceForm;
  form.Text1.Text = String(kSearched[choice % std::size(kSearched)]);
  choice /= std::size(kSearched);
  form.Text2.Text = String(kReplaced[choice % std::size(kReplaced)]);
  choice /= std::size(kReplaced);
  form.Check1.Value = choice % 4 == 0 ? 1 : 0;
  form.Check2.Value = choice / 4 % 2;
  form.Check3.Value = choice / 8 % 2;
}

void SetHtml(ToolState& tools, unsigned choice) {
  tools.HTML.Check1.Value = choice % 2;
  tools.HTML.Check2.Value = choice / 2 % 2;
}

constexpr FuzzedTool kTools[] = {
    {u"Remove Trailing Carriage Returns", NoSettings, true, true},
    {u"Add Trailing Carriage Returns", SetPosition, true, false},
    {u"All Lower Case", NoSettings, true, true},
    {u"All Upper Case", NoSettings, true, true},
    {u"Capitalize 1st Letter on Every Line", NoSettings, true, true},
    {u"Capitalize 1st Letter of Sentences", NoSettings, true, false},
    {u"Add Double Spacing", NoSettings, true, true},
    {u"Remove Double Spacing", NoSettings, true, true},
    {u"Remove Blank Lines at Beginning and End of Text", NoSettings, true, true},
    {u"Add Blank Line Before Indented Paragraph", NoSettings, true, false},
    // What stands between the spaces and the first sign goes with the sign.
    {u"Remove Leading \">\" Signs", NoSettings, false, false},
    {u"Remove 1 Leading Space", NoSettings, true, false},
    {u"Remove ALL Leading Spaces", NoSettings, true, false},
    {u"Indent Paragraphs", NoSettings, true, true},
    {u"Fix Odd-Looking Characters (upper->lower ASCII)", NoSettings, true, true},
    {u"Convert TO HTML", SetHtml, false, false},
    {u"Convert FROM HTML", NoSettings, false, false},
    {u"Search and Replace", SetSearch, false, false},
    {u"Email Cleanup - Standard", NoSettings, false, false},
    {u"Email Cleanup - Poem or List", NoSettings, false, false},
};

// The letters of a text in upper case.
String LettersOf(StringView text) {
  String letters;
  for (const char16_t c : text) {
    if (UCase(c) != LCase(c)) letters += UCase(c);
  }
  return letters;
}

// Remembers what is said instead of printing it.
class QuietWindowSystem : public ConsoleWindowSystem {
 public:
  void RunModal(Form& form) override {
    Anything = !form.AnswerUnattended().empty() || Anything;
    form.Hide();
  }
  bool Anything = false;
};

// One run of one tool.
class ToolRun {
 public:
  ToolRun(const FuzzedTool& tool, unsigned choice) : tool_(*FindTool(tool.StoredName)) {
    SetDataPaths(fields_, folder_.Path(), folder_.Path());
    tool.Set(tools_, choice);
  }

  String OnEditor(StringView text) {
    editor_->SetText(text);
    context_.CustomToolRunning = true;
    try {
      Run();
    } catch (const RuntimeError&) {
      windows_.Anything = true;
    }
    return editor_->Text();
  }
  // Empty with `code` where the tool failed.
  String OnFile(const std::string& bytes, int& code) {
    FileRun run(folder_.Put(u"in", bytes), folder_.Path());
    context_.File = &run;
    code = 0;
    try {
      Run();
    } catch (const RuntimeError& error) {
      code = error.Code;
      return {};
    }
    return ReadTextFile(run.Result()).Text;
  }
  bool SaidAnything() const { return windows_.Anything; }

 private:
  void Run() { tool_.Run(context_, SettingsInWindow(tool_, tools_)); }

  TempFolder folder_;
  QuietWindowSystem windows_;
  Messages messages_{windows_};
  ToolState tools_{windows_, messages_};
  SharedFields fields_;
  std::unique_ptr<RichTextBox> editor_ = windows_.CreateRichTextBox();
  ToolContext context_{fields_, *editor_, messages_, windows_, tools_};
  const Tool& tool_;
};

// The text as a file with LF line ends; none where a CR or an LF stands alone.
std::optional<std::string> UnixBytesOf(StringView text) {
  String unixText;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool pair = text.substr(i).starts_with(kCrLf);
    if (!pair && (text[i] == kCr || text[i] == kLf)) return std::nullopt;
    unixText += pair ? kLf : text[i];
    i += pair ? 1 : 0;
  }
  return ToUtf8(unixText);
}

// With CR LF for each LF that stands alone.
String WithCrLf(StringView text) {
  String result;
  for (const char16_t c : text) {
    if (c == kLf && !result.ends_with(kCr)) result += kCr;
    result += c;
  }
  return result;
}

struct Checker {
  const FuzzedTool& Tool;
  StringView Text;
  unsigned Choice;

  void Expect(bool holds, const char* what, StringView got) const {
    if (holds) return;
    std::cerr << ToUtf8(Tool.StoredName) << ", settings " << Choice << ": " << what
              << "\n--- text ---\n"
              << ToUtf8(Text) << "\n--- got ---\n"
              << ToUtf8(got) << '\n';
    std::abort();
  }
};

}  // namespace

std::span<const FuzzedTool> FuzzedTools() { return kTools; }

void CheckTool(const FuzzedTool& tool, StringView text, unsigned choice) {
  const Checker check{tool, text, choice};
  int code = 0;
  ToolRun editor(tool, choice);
  const String result = editor.OnEditor(text);
  const String fromFile = ToolRun(tool, choice).OnFile(ToUtf8(text), code);
  if (code != 0) {
    check.Expect(editor.SaidAnything(), "fails on a file and is silent on the editor", result);
    return;
  }
  check.Expect(!editor.SaidAnything(), "fails on the editor alone", result);
  check.Expect(fromFile == result, "the file differs from the editor", fromFile);
  if (const auto bytes = UnixBytesOf(text)) {
    const String fromUnix = ToolRun(tool, choice).OnFile(*bytes, code);
    // An LF that a tool leaves alone is a line end of such a file.
    check.Expect(WithCrLf(fromUnix) == WithCrLf(result), "the file with LF line ends differs",
                 fromUnix);
  }
  if (tool.KeepsLetters)
    check.Expect(LettersOf(result) == LettersOf(text), "letters are lost", result);
  if (tool.Idempotent && !IsBlank(result)) {
    const String again = ToolRun(tool, choice).OnEditor(result);
    check.Expect(again == result, "a second run changes the text again", again);
  }
}
