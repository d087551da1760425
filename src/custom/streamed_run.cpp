#include "custom/streamed_run.h"

#include <algorithm>
#include <vector>

#include "editor/encryption_marker.h"
#include "platform/system/byte_file.h"
#include "platform/system/safe_save.h"
#include "tools/catalogue.h"
#include "tools/file_run.h"

namespace {

// The tools of the chain; empty when one of them needs the editor.
std::vector<const Tool*> StreamingSteps(const CustomTool& custom) {
  std::vector<const Tool*> steps;
  for (const ToolStep& step : custom.Steps) {
    const Tool* tool = FindTool(step.Name);
    if (tool == nullptr) continue;
    if (!tool->Streams) return {};
    steps.push_back(tool);
  }
  return steps;
}

// Whether the editor would give the text back in another shape than a stream does.
bool IsOddFormat(const TextFormat& format) {
  const bool anyLineEnd = format.HasCrLf || format.HasLf;
  return format.HasCr || !anyLineEnd || format.Encoding == Encoding::Utf16Le ||
         format.Encoding == Encoding::Utf16Be;
}

// The last line has no end, and no tool would give it one on the editor.
struct NoLastLineEnd {};

}  // namespace

bool RunStreamed(ToolContext& context, const CustomTool& custom, const String& file,
                 const String& target, std::uint64_t large) {
  const std::vector<const Tool*> steps = StreamingSteps(custom);
  if (steps.empty()) return false;
  InputFile bytes(file);
  if (bytes.Size() < large || HoldsEncryptionMarker(bytes)) return false;
  FileRun run(file, context.Fields.WorkFolder);
  if (IsOddFormat(run.Input().Format())) return false;
  const bool noneEnds =
      std::all_of(steps.begin(), steps.end(), [](const Tool* tool) { return tool->KeepsLineEnds; });
  // Whether the last line has an end is known when the first step has read it.
  if (noneEnds && steps.size() > 1) return false;
  ToolContext onFile = context;
  onFile.File = &run;
  try {
    for (std::size_t i = 0; i + 1 < steps.size(); ++i) {
      steps[i]->Run(onFile, {});
      // The editor would not go on with a text that has become blank.
      if (run.Result().Size() < large) return false;
      run.Next();
    }
    SafeReplace(
        target,
        [&](OutputFile scratch) {
          run.SendTo(std::move(scratch));
          steps.back()->Run(onFile, {});
          if (noneEnds && steps.size() == 1 && !run.Input().LastLineEnded()) throw NoLastLineEnd();
        },
        file);
    return true;
  } catch (const NoLastLineEnd&) {
    return false;
  }
}
