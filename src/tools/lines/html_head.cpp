#include "tools/lines/html_head.h"

namespace {

constexpr std::size_t kLongestTitle = 100;
constexpr StringView kTitleTag = u"<TITLE>";
constexpr StringView kTitleEnd = u"</TITLE>";

void AddLine(String& head, std::initializer_list<StringView> parts) {
  for (const StringView part : parts) head += part;
  head += kCrLf;
}

// The row of the title: 1, or 2 behind a blank one; 0 when that has too much text or none.
std::size_t TitleRow(const Lines& lines) {
  const std::size_t row = IsBlank(lines.At(1)) ? 2 : 1;
  const std::size_t length = Trim(lines.At(row)).size();
  return length > 0 && length <= kLongestTitle ? row : 0;
}

String OwnHeader(StringView title) {
  String head;
  AddLine(head, {u"<HTML>"});
  AddLine(head, {u"<HEAD>"});
  AddLine(head, {kTitleTag, title, kTitleEnd});
  AddLine(head, {u"</HEAD>"});
  AddLine(head, {u"<BODY>"});
  return head;
}

bool HoldsTitleEnd(StringView line) { return Contains(UCase(line), kTitleEnd); }

// The user's header with the title in it, wherever it has a place for one.
String UsersHeader(std::vector<String> header, const Lines& lines, std::size_t titleRow) {
  for (std::size_t i = 0; titleRow != 0 && i < header.size(); ++i) {
    String& line = header[i];
    const String upper = UCase(line);
    const std::size_t place = upper.find(kTitleTag);
    if (place == String::npos) continue;
    const std::size_t end = upper.find(kTitleEnd);
    const String behind = end == String::npos ? String() : line.substr(end);
    line.resize(place);
    line.append(kTitleTag).append(lines.At(titleRow)).append(behind);
    // An old title on a line of its own goes.
    if (end == String::npos && i + 2 < header.size() && HoldsTitleEnd(header[i + 2]))
      header.erase(header.begin() + static_cast<std::ptrdiff_t>(i) + 1);
  }
  String head;
  for (const String& line : header) AddLine(head, {line});
  return head;
}

}  // namespace

std::size_t PrintHtmlHead(const Lines& lines, const HtmlPageSettings& settings, LineSink& out) {
  const std::size_t titleRow = settings.NoTitle ? 0 : TitleRow(lines);
  String head;
  if (!settings.NoFrame) {
    head = settings.Header ? UsersHeader(*settings.Header, lines, titleRow)
                           : OwnHeader(titleRow != 0 ? lines.At(titleRow) : StringView());
  }
  std::size_t headingRow = titleRow;
  if (settings.NoTitle) {
    headingRow = IsBlank(lines.At(1)) ? 2 : 1;
    if (IsBlank(lines.At(headingRow))) headingRow = 0;
    if (headingRow != 0) AddLine(head, {lines.At(headingRow)});
  } else if (titleRow != 0) {
    AddLine(head, {u"<B><U>", lines.At(titleRow), u"</U></B>"});
  }
  // A line end alone is no head.
  if (head.size() > kCrLf.size()) out.Write(head);
  return headingRow + 1;
}
