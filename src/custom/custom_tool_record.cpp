#include "custom/custom_tool_record.h"

#include <map>

#include "platform/system/text_file.h"
#include "text/runtime_error.h"

namespace {

class Writer {
 public:
  std::vector<String> Lines;

  void Text(StringView line) { Lines.emplace_back(line); }
  void Flag(bool value) { Text(value ? u"1" : u"0"); }
  void Between(StringView begin, StringView text, StringView end) {
    const String whole = String(begin).append(text).append(end);
    StringView rest = whole;
    for (std::size_t lineEnd; (lineEnd = rest.find(kCrLf)) != String::npos;) {
      Text(rest.substr(0, lineEnd));
      rest.remove_prefix(lineEnd + kCrLf.size());
    }
    Text(rest);
  }
};

class Reader {
 public:
  explicit Reader(const std::vector<String>& lines) : lines_(lines) {}

  bool AtEnd() const { return next_ == lines_.size(); }
  const String& Text() {
    if (AtEnd()) throw RuntimeError(kInputPastEnd, "A custom tool is cut off");
    return lines_[next_++];
  }
  void Flag(bool& value) {
    const String& line = Text();
    if (line == u"0" || line == u"1") value = line == u"1";
  }
  // The lines up to the one with the end marker, which is cut there, each with a line end in front;
  // one that begins with the begin marker starts the text.
  String UpTo(StringView begin, StringView end) {
    String text;
    while (true) {
      StringView line = Text();
      const bool starts = line.starts_with(begin);
      if (starts) {
        line.remove_prefix(begin.size());
        text.clear();
      } else {
        text += kCrLf;
      }
      const std::size_t place = line.find(end);
      text += line.substr(0, place);
      if (place != StringView::npos) return text;
    }
  }

 private:
  const std::vector<String>& lines_;
  std::size_t next_ = 0;
};

// The settings of a step.
struct Block {
  ToolSettings Settings;
  bool ShowSettings = false;
};

void Write(Writer& out, const ToolStep& step, const SettingKind& kind) {
  if (kind.CanShow) out.Flag(step.ShowSettings);
  const ToolSettings empty = kind.Empty();
  const bool own = step.Settings.index() == empty.index();
  ForEachField(own ? step.Settings : empty, [&out](const auto& values, const auto& field) {
    if (field.Flag)
      out.Flag(values.*field.Flag);
    else if (field.Begin.empty())
      out.Text(values.*field.Text);
    else
      out.Between(field.Begin, values.*field.Text, field.End);
  });
}

Block Read(Reader& in, const SettingKind& kind) {
  Block block{.Settings = kind.Empty()};
  if (kind.CanShow) in.Flag(block.ShowSettings);
  ForEachField(block.Settings, [&in](auto& values, const auto& field) {
    if (field.Flag)
      in.Flag(values.*field.Flag);
    else
      values.*field.Text = field.Begin.empty() ? in.Text() : in.UpTo(field.Begin, field.End);
  });
  return block;
}

// The kind that a line "Add1-3:" of a tool's settings names; null for any other line.
const SettingKind* KindOf(StringView line, StringView toolDigit) {
  for (const Tool& tool : Catalogue()) {
    if (tool.Settings && line.starts_with(tool.Settings->Key) &&
        line.substr(tool.Settings->Key.size()).starts_with(toolDigit))
      return tool.Settings;
  }
  return nullptr;
}

// The step that such a line is about; what stands round its digit is not looked at. 0 is none.
std::size_t StepOf(StringView line, const SettingKind& kind) {
  const std::size_t column = kind.Key.size() + 2;
  const char16_t digit = column < line.size() ? line[column] : u' ';
  if (digit < u'0' || digit > u'9') return 0;
  const auto step = static_cast<std::size_t>(digit - u'0');
  if (step > kMostSteps)
    throw RuntimeError(kSubscriptOutOfRange, "A custom tool has settings of a step that is none");
  return step;
}

}  // namespace

String RecordKey(int number) { return u"Tool" + Str(number) + u":"; }

std::vector<String> RecordLines(const CustomTool& tool, int number) {
  Writer out;
  out.Text(RecordKey(number));
  out.Text(Trim(tool.Name));
  for (const ToolStep& step : tool.Steps) out.Text(step.Name);
  int place = 0;
  for (const ToolStep& step : tool.Steps) {
    ++place;
    const Tool* stepTool = FindTool(step.Name);
    if (stepTool == nullptr || !stepTool->Settings) continue;
    const SettingKind& kind = *stepTool->Settings;
    out.Text(String(kind.Key) + Str(number) + u"-" + Str(place) + u":");
    Write(out, step, kind);
  }
  return out.Lines;
}

CustomTool ReadCustomTool(const String& path, int number) {
  const std::vector<String> lines = ReadDataFile(path);
  try {
    return ReadRecord(lines, number);
  } catch (const RuntimeError& error) {
    throw RuntimeError(
        error.Code, ToUtf8(path) + ": custom tool " + std::to_string(number) + ": " + error.what());
  }
}

CustomTool ReadRecord(const std::vector<String>& lines, int number) {
  CustomTool tool;
  // By step, and 0 for those of none.
  std::array<std::map<const SettingKind*, Block>, kMostSteps + 1> blocks;
  const String key = RecordKey(number);
  const String digit = Str(number);
  Reader in(lines);
  while (!in.AtEnd()) {
    const String& line = in.Text();
    if (line == key) {
      tool.Name = in.Text();
      for (ToolStep& step : tool.Steps) step.Name = in.Text();
    } else if (const SettingKind* kind = KindOf(line, digit)) {
      Block block = Read(in, *kind);
      blocks[StepOf(line, *kind)][kind] = std::move(block);
    }
  }
  for (std::size_t i = 0; i < kMostSteps; ++i) {
    ToolStep& step = tool.Steps[i];
    const Tool* stepTool = FindTool(step.Name);
    if (stepTool == nullptr || !stepTool->Settings) continue;
    Block& block = blocks[i + 1][stepTool->Settings];
    step.Settings = std::move(block.Settings);
    step.ShowSettings = block.ShowSettings;
  }
  return tool;
}
