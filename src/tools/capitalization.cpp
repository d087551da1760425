#include "tools/capitalization.h"

#include "tools/lines/capital_letters.h"
#include "tools/tool_frame.h"

namespace {

// Runs a tool that changes letters in each line.
template <typename Capitals>
void RaiseLetters(ToolContext& context) {
  RunLineTool(context, [](LineSource& in, LineSink& out) {
    Capitals capitals;
    String line;
    while (!in.AtEnd()) {
      line = in.ReadLine();
      capitals.Change(line);
      out.Print(line);
    }
  });
}

}  // namespace

void UpperCaseText(ToolContext& context) { RunCharacterTool(context, UCaseInto); }

void LowerCaseText(ToolContext& context) { RunCharacterTool(context, LCaseInto); }

void CapitalizeLines(ToolContext& context) { RaiseLetters<LineCapitals>(context); }

void CapitalizeSentences(ToolContext& context) { RaiseLetters<SentenceCapitals>(context); }

void CapitalizeCustom(ToolContext&) {}
