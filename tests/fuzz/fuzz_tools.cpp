// Throws random texts at every tool, on the editor and on a file, which have to agree:
// fuzz_tools [RUNS [SEED [TOOL]]]

#include <algorithm>
#include <cstdlib>
#include <iostream>

#include "platform/console/console_window_system.h"
#include "state/data_files.h"
#include "support/temp_folder.h"
#include "text/runtime_error.h"
#include "tools/catalogue.h"
#include "tools/file_run.h"
#include "tools/random_text.h"

namespace {

constexpr StringView kTokens[] = {
    u" ",        u" ",         u"  ",       u"   ",   u"    ",   u"a",          u"b",
    u"A",        u"i ",        u"i'v",      u"é",     u"\u0131", u"\U0001F600", u"\t",
    u"\r\n",     u"\r\n",      u"\r\n\r\n", u"\r",    u"\n",     u">",          u"> ",
    u".",        u"?",         u"!",        u"\"",    u"\u201C", u"\u2019",     u"\u2014",
    u"\u2026",   u"<",         u"<P>",      u"<br>",  u"<BODY>", u"<A HREF=x>", u"</a>",
    u"<SCRIPT>", u"</SCRIPT>", u"&lt;",     u"&amp;", u"&nbsp;", u"www.x",      u"http://Y",
    u"ftp:",     u"1",         u"-",        u"-----", u"*",      u"\u0000x",    u"word word word",
};
constexpr StringView kSettings[] = {u"a",  u"b",       u"ab",  u"<OR>", u"\r\n", u" ",
                                    u"97", u"98",      u"300", u"76",   u"5",    u"0",
                                    u"",   u"Default", u"x",   u"a b",  u"words"};

// Whatever may stand in the settings of a step.
ToolSettings RandomSettings(const Tool& tool, RandomText& random) {
  if (!tool.Settings) return {};
  ToolSettings settings = tool.Settings->Empty();
  ForEachField(settings, [&random](auto& values, const auto& field) {
    if (field.Flag)
      values.*field.Flag = random.Number(1) == 1;
    else
      values.*field.Text = random.Of(kSettings, 3);
  });
  return settings;
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

// What a tool makes of a text that isn't blank and holds a CR LF; nothing where it refuses the
// text.
std::optional<String> Run(const Tool& tool, const ToolSettings& settings, StringView text,
                          bool onFile) {
  TempFolder folder;
  QuietWindowSystem windows;
  Messages messages(windows);
  ToolState tools(windows, messages);
  SharedFields fields;
  SetDataPaths(fields, folder.Path(), folder.Path());
  const auto editor = windows.CreateRichTextBox();
  ToolContext context{fields, *editor, messages, windows, tools};
  std::optional<FileRun> run;
  try {
    if (onFile) context.File = &run.emplace(folder.Put(u"in", ToUtf8(text)), folder.Path());
    context.CustomToolRunning = !onFile;
    editor->SetText(text);
    tool.Run(context, settings);
    if (!windows.Anything) return onFile ? ReadTextFile(run->Result()).Text : editor->Text();
  } catch (const RuntimeError&) {
    // Refused.
  }
  return {};
}

}  // namespace

int main(int argc, char** argv) {
  const long runs = argc > 1 ? std::atol(argv[1]) : 100;
  RandomText random(static_cast<unsigned>(argc > 2 ? std::atol(argv[2]) : 1));
  const String wanted = argc > 3 ? FromUtf8(argv[3]) : String();
  for (long i = 0; i < runs; ++i) {
    for (const Tool& tool : Catalogue()) {
      if (tool.StoredName == kRunProgram || tool.StoredName == u"Capitalize Custom Words" ||
          (!wanted.empty() && tool.StoredName != wanted))
        continue;
      String text = random.Of(kTokens, random.Number(7) == 0 ? 400 : 40);
      if (text.starts_with(u'\uFEFF')) text.erase(0, 1);
      text += u".\r\n";
      const ToolSettings settings = RandomSettings(tool, random);
      const auto fromEditor = Run(tool, settings, text, false);
      if (fromEditor == Run(tool, settings, text, true)) continue;
      std::cerr << ToUtf8(tool.StoredName) << " makes another text of a file, run " << i << ":\n"
                << ToUtf8(text) << '\n';
      return 1;
    }
  }
  std::cout << runs << " texts for each tool: all well\n";
}
