#include "core/status_line.h"

namespace {

struct EncodingChoice {
  ::Encoding Encoding;
  bool Mark;
};

constexpr std::array<EncodingChoice, 5> kEncodings{{
    {Encoding::Utf8, false},
    {Encoding::Utf8, true},
    {Encoding::Utf16Le, true},
    {Encoding::Utf16Be, true},
    {Encoding::Windows1252, false},
}};

struct LineEndsChoice {
  ::LineEnds LineEnds;
  StringView Caption;
};

constexpr std::array<LineEndsChoice, 2> kLineEnds{{
    {LineEnds::CrLf, u"CR LF (Windows)"},
    {LineEnds::Lf, u"LF (Unix)"},
}};

String Number(std::size_t number) { return Str(static_cast<long long>(number)); }

}  // namespace

StatusLine::StatusLine(const SharedFields& fields, RichTextBox& editor, Document& document)
    : fields_(fields), editor_(editor), lockedChange_(editor.Locked.Observe([this] {
        for (MenuItem* item : Choices()) item->Enabled = !editor_.Locked;
      })) {
  Bar.Panels = {&Position, &Selected, &EncodingPanel, &LineEndsPanel};
  Position.ToolTipText = u"Line and column of the caret";
  Selected.ToolTipText = u"Selected characters";
  EncodingPanel.ToolTipText = u"Encoding that the next save writes";
  LineEndsPanel.ToolTipText = u"Line ends that the next save writes";
  for (std::size_t i = 0; i < kEncodings.size(); ++i) {
    const EncodingChoice choice = kEncodings[i];
    MenuItem& item = EncodingChoices[i];
    TextFormat named;
    named.Encoding = choice.Encoding;
    named.Mark = choice.Mark;
    item.Caption = EncodingName(named);
    item.Checkable = true;
    item.OnClick = [&document, choice] { document.ChooseEncoding(choice.Encoding, choice.Mark); };
    EncodingPanel.Choices.push_back(&item);
  }
  for (std::size_t i = 0; i < kLineEnds.size(); ++i) {
    const LineEndsChoice choice = kLineEnds[i];
    MenuItem& item = LineEndsChoices[i];
    item.Caption = String(choice.Caption);
    item.Checkable = true;
    item.OnClick = [&document, choice] { document.ChooseLineEnds(choice.LineEnds); };
    LineEndsPanel.Choices.push_back(&item);
  }
}

std::vector<MenuItem*> StatusLine::Choices() {
  std::vector<MenuItem*> choices = EncodingPanel.Choices;
  choices.insert(choices.end(), LineEndsPanel.Choices.begin(), LineEndsPanel.Choices.end());
  return choices;
}

void StatusLine::ShowCaret() {
  const TextPlace caret = editor_.Caret();
  Position.Text = u"Ln " + Number(caret.Line) + u", Col " + Number(caret.Column);
  const std::size_t selected = editor_.SelLength();
  Selected.Text = selected == 0 ? String() : Number(selected) + u" selected";
}

void StatusLine::ShowFormat() {
  const TextFormat& format = fields_.DocumentFormat;
  EncodingPanel.Text = EncodingName(format);
  LineEndsPanel.Text = LineEndsName(format);
  for (std::size_t i = 0; i < kEncodings.size(); ++i) {
    EncodingChoices[i].Checked =
        kEncodings[i].Encoding == format.Encoding && kEncodings[i].Mark == format.Mark;
  }
  for (std::size_t i = 0; i < kLineEnds.size(); ++i)
    LineEndsChoices[i].Checked = kLineEnds[i].LineEnds == format.LineEnds;
}
