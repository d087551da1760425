#include "tools/lines/html_body.h"

#include "tools/lines/html_list.h"

namespace {

constexpr StringView kBreak = u"<BR>";
constexpr StringView kParagraph = u"<P>";
constexpr StringView kIndent = u"   ";
constexpr StringView kDashes = u"-----";

// The first characters of the latest line that had so many.
class Start {
 public:
  explicit Start(StringView wanted) : wanted_(wanted) {}
  // Looks at a line. Whether the characters are the ones that are wanted.
  bool Take(StringView line) {
    if (line.size() >= wanted_.size()) is_ = line.starts_with(wanted_);
    return is_;
  }

 private:
  StringView wanted_;
  bool is_ = false;
};

class Body {
 public:
  Body(const Lines& lines, std::size_t first, const HtmlPageSettings& settings, LineSink& out)
      : lines_(lines), first_(first), settings_(settings), out_(out), list_(lines) {}

  void Print() {
    for (std::size_t row = first_; row <= lines_.Count(); ++row) {
      if (settings_.BreakLines)
        PrintBroken(row);
      else
        PrintFlowing(row);
    }
    if (!gap_) out_.Print(kParagraph);
  }

 private:
  void Print(StringView mark, StringView line) {
    out_.Write(mark);
    out_.Print(line);
  }

  void PrintBroken(std::size_t row) {
    const StringView line = lines_.At(row);
    if (IsBlank(line)) {
      if (!gap_) Print(kParagraph, line);
      gap_ = true;
      return;
    }
    const StringView mark = gap_ ? StringView() : kBreak;
    gap_ = false;
    if (!indent_.Take(line)) return Print(row == 1 ? StringView() : mark, line);
    out_.Write(mark);
    const StringView text = LTrim(line);
    for (std::size_t spaces = line.size() - text.size(); spaces > 0; --spaces)
      out_.Write(u"&nbsp;");
    out_.Print(text);
  }

  void PrintFlowing(std::size_t row) {
    const StringView line = lines_.At(row);
    if (gap_) {
      if (IsBlank(line)) return;
      gap_ = false;
      return out_.Print(line);
    }
    if (row == list_.FirstLine()) return out_.Print(line);
    if (list_.IsItem(line)) return Print(kBreak, line);
    if (IsBlank(line) || line.front() == u'\t') {
      gap_ = true;
      return Print(kParagraph, line);
    }
    if (indent_.Take(line)) return Print(kParagraph, line);
    if (!dashes_.Take(line)) return out_.Print(line);
    // The line under a title goes.
    if (row != first_ || settings_.NoTitle) Print(kBreak, line);
  }

  const Lines& lines_;
  std::size_t first_;
  const HtmlPageSettings& settings_;
  LineSink& out_;
  HtmlList list_;
  Start indent_{kIndent};
  Start dashes_{kDashes};
  // A paragraph mark has just been printed.
  bool gap_ = false;
};

}  // namespace

void PrintHtmlBody(const Lines& lines, std::size_t first, const HtmlPageSettings& settings,
                   LineSink& out) {
  Body(lines, first, settings, out).Print();
}
