#include "custom/custom_tool_record.h"

#include "text/runtime_error.h"
#include "tools/catalogue.h"

namespace {

constexpr StringView kBeginSearch = u"<<BEGINSEARCHTEXT>>";
constexpr StringView kEndSearch = u"<<ENDSEARCHTEXT>>";
constexpr StringView kBeginReplace = u"<<BEGINREPLACETEXT>>";
constexpr StringView kEndReplace = u"<<ENDREPLACETEXT>>";

class Writer {
 public:
  std::vector<String> Lines;

  void Text(StringView line) { Lines.emplace_back(line); }
  void Flag(int value) { Text(value == 1 ? u"1" : u"0"); }
  void Between(StringView begin, StringView text, StringView end) {
    String rest = String(begin).append(text).append(end);
    for (std::size_t lineEnd; (lineEnd = rest.find(kCrLf)) != String::npos;) {
      Text(StringView(rest).substr(0, lineEnd));
      rest.erase(0, lineEnd + kCrLf.size());
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
  void Flag(int& value) {
    const String& line = Text();
    if (line == u"0" || line == u"1") value = line[0] - u'0';
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
  // Passes over lines in front of one that begins so.
  void SkipTo(StringView begin) {
    while (!Text().starts_with(begin)) {
    }
    --next_;
  }

 private:
  const std::vector<String>& lines_;
  std::size_t next_ = 0;
};

void WriteRun(Writer& out, const CustomTool& tool, std::size_t step) {
  const RunSettings& run = tool.StepRun[step];
  out.Text(run.Program);
  out.Text(run.Arguments);
}
void ReadRun(Reader& in, CustomTool& tool, std::size_t step) {
  RunSettings& run = tool.StepRun[step];
  run.Program = in.Text();
  run.Arguments = in.Text();
}

void WriteHtml(Writer& out, const CustomTool& tool, std::size_t step) {
  const HtmlSettings& html = tool.StepHtml[step];
  out.Flag(html.ShowSettings);
  out.Text(html.HeaderFile);
  out.Text(html.FooterFile);
  out.Flag(html.UseBr);
  out.Flag(html.NoTitle);
}
void ReadHtml(Reader& in, CustomTool& tool, std::size_t step) {
  HtmlSettings& html = tool.StepHtml[step];
  in.Flag(html.ShowSettings);
  html.HeaderFile = in.Text();
  html.FooterFile = in.Text();
  in.Flag(html.UseBr);
  in.Flag(html.NoTitle);
}

void WriteSearch(Writer& out, const CustomTool& tool, std::size_t step) {
  const SearchReplaceSettings& search = tool.StepSearch[step];
  out.Flag(search.ShowSettings);
  out.Between(kBeginSearch, search.SearchText, kEndSearch);
  out.Between(kBeginReplace, search.ReplaceText, kEndReplace);
  out.Flag(search.CodeMode);
  out.Flag(search.WholeWord);
  out.Flag(search.MatchCase);
}
void ReadSearch(Reader& in, CustomTool& tool, std::size_t step) {
  SearchReplaceSettings& search = tool.StepSearch[step];
  in.Flag(search.ShowSettings);
  search.SearchText = in.UpTo(kBeginSearch, kEndSearch);
  in.SkipTo(kBeginReplace);
  search.ReplaceText = in.UpTo(kBeginReplace, kEndReplace);
  in.Flag(search.CodeMode);
  in.Flag(search.WholeWord);
  in.Flag(search.MatchCase);
}

void WriteAdd(Writer& out, const CustomTool& tool, std::size_t step) {
  const AddSettings& add = tool.StepAdd[step];
  out.Flag(add.ShowSettings);
  out.Text(add.Position);
  out.Flag(add.Nearest);
}
void ReadAdd(Reader& in, CustomTool& tool, std::size_t step) {
  AddSettings& add = tool.StepAdd[step];
  in.Flag(add.ShowSettings);
  add.Position = in.Text();
  in.Flag(add.Nearest);
}

// The tools that have settings. Key: the word in front of the tool's number.
struct Block {
  StringView Key;
  StringView StepName;
  void (*Write)(Writer&, const CustomTool&, std::size_t step);
  void (*Read)(Reader&, CustomTool&, std::size_t step);
};

constexpr Block kBlocks[] = {
    {u"RunProgram", kRunProgram, WriteRun, ReadRun},
    {u"HTML", kToHtml, WriteHtml, ReadHtml},
    {u"Search", kSearchAndReplace, WriteSearch, ReadSearch},
    {u"Add", kAddCarriageReturns, WriteAdd, ReadAdd},
};

// The step that a line "Add1-3:" is about; what stands round its digit is not looked at.
std::size_t StepOf(StringView line, const Block& block) {
  const std::size_t column = block.Key.size() + 2;
  const char16_t digit = column < line.size() ? line[column] : u' ';
  if (digit < u'0' || digit > u'9') return 0;
  if (digit == u'0' || digit > u'0' + kMostSteps)
    throw RuntimeError(kSubscriptOutOfRange, "A custom tool has settings of a step that is none");
  return static_cast<std::size_t>(digit - u'0');
}

template <typename Row>
void ClearButShowSettings(StepTable<Row>& table) {
  for (Row& row : table) {
    Row empty;
    empty.ShowSettings = row.ShowSettings;
    row = empty;
  }
}

}  // namespace

String RecordKey(int number) { return u"Tool" + Str(number) + u":"; }

std::vector<String> RecordLines(const CustomTool& tool, int number) {
  Writer out;
  out.Text(RecordKey(number));
  out.Text(Trim(tool.Name));
  for (std::size_t step = 1; step <= kMostSteps; ++step) out.Text(tool.StepNames[step]);
  for (std::size_t step = 1; step <= kMostSteps; ++step) {
    for (const Block& block : kBlocks) {
      if (tool.StepNames[step] != block.StepName) continue;
      out.Text(String(block.Key) + Str(number) + u"-" + Str(static_cast<int>(step)) + u":");
      block.Write(out, tool, step);
    }
  }
  return out.Lines;
}

void ReadRecord(const std::vector<String>& lines, int number, CustomTool& tool) {
  tool.Name.clear();
  tool.StepNames = {};
  tool.StepRun = {};
  ClearButShowSettings(tool.StepAdd);
  ClearButShowSettings(tool.StepSearch);
  ClearButShowSettings(tool.StepHtml);
  const String key = RecordKey(number);
  const String digit = Str(number);
  Reader in(lines);
  while (!in.AtEnd()) {
    const String& line = in.Text();
    if (line == key) {
      tool.Name = in.Text();
      for (std::size_t step = 1; step <= kMostSteps; ++step) tool.StepNames[step] = in.Text();
      continue;
    }
    for (const Block& block : kBlocks) {
      if (line.starts_with(block.Key) &&
          StringView(line).substr(block.Key.size()).starts_with(digit)) {
        block.Read(in, tool, StepOf(line, block));
        break;
      }
    }
  }
}
