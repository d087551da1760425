#include "tools/carriage_returns.h"

#include "tools/lines/break_lines.h"
#include "tools/lines/break_position.h"
#include "tools/lines/join_lines.h"
#include "tools/tool_frame.h"

void RemoveCarriage(ToolContext& context) { RunLineTool(context, JoinLines); }

void AddCarriage2(ToolContext& context, const AddSettings& settings) {
  const std::size_t position = BreakPosition(settings.Position);
  RunTableTool(context, [position, atWords = settings.AtWords](LineSource& in, LineSink& out) {
    WordBreaker words;
    while (!in.AtEnd()) {
      const StringView line = in.ReadLine();
      if (atWords)
        words.Break(line, position, out);
      else
        BreakExactly(line, position, out);
    }
  });
}
