#include "state/options.h"

#include "platform/system/text_file.h"
#include "text/runtime_error.h"

namespace {

constexpr std::size_t kLineCount = 9;
constexpr double kLargestFontSize = 1638;

double FontSize(const String& line, const String& path) {
  const double size = Val(line);
  if (!(size >= 1 && size <= kLargestFontSize))
    throw RuntimeError(kInvalidCall, ToUtf8(path) + ": not a font size: " + ToUtf8(line));
  return size;
}

}  // namespace

Options ReadOptions(const String& path) {
  const std::vector<String> lines = ReadDataFile(path);
  if (lines.size() < kLineCount)
    throw RuntimeError(kInputPastEnd, ToUtf8(path) + ": not nine lines");
  Options options;
  options.ViewFont = {lines[0], FontSize(lines[1], path), lines[2] == u"True"};
  options.PrintFont = {lines[3], FontSize(lines[4], path), lines[5] == u"True"};
  options.StartupFolder = lines[6];
  options.DefaultHeaderFile = lines[7];
  options.DefaultFooterFile = lines[8];
  return options;
}
