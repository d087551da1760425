#include "custom/streamed_run.h"

#include <algorithm>
#include <vector>

#include "platform/system/byte_file.h"
#include "platform/system/files.h"
#include "platform/system/safe_save.h"
#include "tools/capitalization.h"
#include "tools/catalogue.h"
#include "tools/file_chain.h"

namespace {

// The tools of the chain; empty when one of them needs the editor.
std::vector<const Tool*> StreamingSteps(const CustomTool& custom) {
  std::vector<const Tool*> steps;
  for (std::size_t step = 1; step <= kMostSteps; ++step) {
    const Tool* tool = FindTool(custom.StepNames[step]);
    if (tool == nullptr) continue;
    if (!tool->Streams) return {};
    steps.push_back(tool);
  }
  return steps;
}

// Whether the file may be one of those that the editor shows locked.
bool MayBeEncrypted(const String& file) {
  constexpr std::string_view kMarkerStart = "**This file has been encrypted with";
  bool found = false;
  std::string overlap;
  InputFile(file).ReadRest([&](std::string_view bytes) {
    overlap += bytes.substr(0, kMarkerStart.size());
    found = found || overlap.find(kMarkerStart) != std::string::npos ||
            bytes.find(kMarkerStart) != std::string_view::npos;
    overlap = bytes.substr(bytes.size() - std::min(bytes.size(), kMarkerStart.size()));
  });
  return found;
}

// Whether the editor would give the text back in another shape than a stream does.
bool IsOddFormat(const TextFormat& format) {
  const bool anyLineEnd = format.HasCrLf || format.HasLf;
  return format.HasCr || !anyLineEnd || format.Encoding == Encoding::Utf16Le ||
         format.Encoding == Encoding::Utf16Be;
}

// The last line has no end, and no tool would give it one on the editor.
struct NoLastLineEnd {};

// These leave line ends as they are there.
bool KeepsLineEnds(const Tool* tool) {
  return tool->Run == UpperCaseText || tool->Run == LowerCaseText;
}

// The stand-ins of a batch for the length of the run.
class FilePath {
 public:
  explicit FilePath(SharedFields& fields) : fields_(fields), result_(fields.TempFile1) {
    fields_.BatchMode = true;
  }
  FilePath(const FilePath&) = delete;
  FilePath& operator=(const FilePath&) = delete;
  ~FilePath() {
    fields_.BatchMode = false;
    fields_.TempFile1 = result_;
    fields_.InputFileNum.reset();
    fields_.OutputFileNum.reset();
  }

 private:
  SharedFields& fields_;
  String result_;
};

}  // namespace

bool RunStreamed(ToolContext& context, const CustomTool& custom, const String& file,
                 const String& target, std::uint64_t large) {
  SharedFields& fields = context.Fields;
  const std::vector<const Tool*> steps = StreamingSteps(custom);
  if (steps.empty() || InputFile(file).Size() < large || MayBeEncrypted(file)) return false;
  const FilePath filePath(fields);
  fields.InputFileNum = std::make_unique<TextReader>(file);
  if (IsOddFormat(fields.InputFileNum->Format())) return false;
  const bool noneEnds = std::all_of(steps.begin(), steps.end(), KeepsLineEnds);
  // Whether the last line has an end is known when the first step has read it.
  if (noneEnds && steps.size() > 1) return false;
  try {
    for (std::size_t i = 0; i + 1 < steps.size(); ++i) {
      steps[i]->Run(context);
      // The editor would not go on with a text that has become blank.
      if (InputFile(fields.TempFile1).Size() < large) return false;
      ChainStep(fields);
    }
    return SafeReplace(target, [&](const String& scratch) {
      fields.TempFile1 = scratch;
      steps.back()->Run(context);
      if (noneEnds && steps.size() == 1 && !fields.InputFileNum->LastLineEnded())
        throw NoLastLineEnd();
    });
  } catch (const NoLastLineEnd&) {
    return false;
  }
}
