// Golden folders: real texts, what a tool is set to, and what it makes of them on both paths.
//
// `settings` holds "Tool: NAME" and a line "CONTROL: VALUE" for each control that is not as the
// program starts with it; "\n" in a value is a line end. `in.txt` and `out.txt` are the text before
// and after; `out.editor.txt` is there where the editor makes something else of it.

#include <filesystem>
#include <map>
#include <set>

#include "support/tool_fixture.h"
#include "tools/catalogue.h"

namespace {

namespace fs = std::filesystem;

String Unescaped(const std::string& value) {
  String text;
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] == '\\' && i + 1 < value.size()) {
      ++i;
      text += value[i] == 'n' ? String(kCrLf) : String(1, static_cast<char16_t>(value[i]));
      continue;
    }
    const std::size_t end = std::min(value.find('\\', i), value.size());
    text += FromUtf8(value.substr(i, end - i));
    i = end - 1;
  }
  return text;
}

class GoldenTest : public ToolTest {
 protected:
  // The controls that a tool is set by.
  void Set(StringView tool, const std::string& control, const String& value) {
    ToolState& tools = App().Tools;
    std::map<std::string, TextBox*> boxes;
    std::map<std::string, CheckBox*> checks;
    const auto know = [&](auto& form) {
      boxes["Text1"] = &form.Text1;
      checks["Check1"] = &form.Check1;
      if constexpr (requires { form.Text2; }) boxes["Text2"] = &form.Text2;
      if constexpr (requires { form.Check2; }) checks["Check2"] = &form.Check2;
      if constexpr (requires { form.Check3; }) checks["Check3"] = &form.Check3;
    };
    if (tool == u"Add Trailing Carriage Returns") know(tools.AddCarriageForm);
    if (tool == u"Search and Replace") know(tools.SearchReplaceForm);
    if (tool == u"Convert TO HTML") know(tools.HTML);
    if (boxes.contains(control))
      boxes[control]->Text = value;
    else if (checks.contains(control))
      checks[control]->Value = value == u"1" ? 1 : 0;
    else
      ADD_FAILURE() << "no control " << control;
  }

  void Check(const fs::path& folder) {
    SCOPED_TRACE(folder.filename().string());
    const auto read = [&](const char* name) {
      return ReadTextFile(FromUtf8((folder / name).string())).Text;
    };
    Start();
    const Tool* tool = nullptr;
    for (TextReader settings(FromUtf8((folder / "settings").string())); !settings.AtEnd();) {
      const std::string line = ToUtf8(settings.ReadLine());
      const std::size_t colon = line.find(": ");
      ASSERT_NE(colon, std::string::npos) << line;
      const String value = Unescaped(line.substr(colon + 2));
      if (line.starts_with("Tool: ")) {
        tool = FindTool(value);
        ASSERT_NE(tool, nullptr) << line;
      } else {
        ASSERT_NE(tool, nullptr) << "the tool comes first";
        Set(tool->StoredName, line.substr(0, colon), value);
      }
    }
    const String in = read("in.txt");
    const String out = read("out.txt");
    const String onEditor = fs::exists(folder / "out.editor.txt") ? read("out.editor.txt") : out;
    EXPECT_EQ(OnFile(tool->StoredName, in), out) << "file path";
    App().Tools.Replacing = {};
    EXPECT_EQ(OnEditor(tool->StoredName, in), onEditor) << "editor";
    shown_.insert(String(tool->StoredName));
  }

  std::set<String> shown_;
};

TEST_F(GoldenTest, EveryFolder) {
  for (const auto& entry : fs::directory_iterator(TEST_DATA "/golden")) Check(entry.path());
  for (const Tool& tool : Catalogue()) {
    // These do what their own tests say: nothing, and what a program does.
    if (tool.StoredName == u"Capitalize Custom Words" || tool.StoredName == u"Run Program")
      continue;
    EXPECT_TRUE(shown_.contains(String(tool.StoredName))) << ToUtf8(tool.StoredName);
  }
}

}  // namespace
