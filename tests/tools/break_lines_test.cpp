#include "tools/lines/break_lines.h"

#include "support/tool_fixture.h"
#include "tools/lines/break_position.h"
#include "tools/lines/text_lines.h"
#include "tools/random_text.h"

namespace {

using BreakLines = ToolTest;

TEST_F(BreakLines, BreaksAtThePositionOrTheNearestWord) {
  struct Case {
    StringView Position;
    bool Words;
    StringView Text;
    StringView Result;
  };
  const String pair = u"\U0001F600";
  const Case cases[] = {
      {u"9", true, u"one two three four", u"one two\r\nthree four\r\n"},
      {u"10", true, u"one two three four five six seven",
       u"one two\r\nthree four\r\nfive six\r\nseven\r\n"},
      {u"8", true, u"abcdefghijklmnopqrst uvw", u"abcdefghijklmnopqrst\r\nuvw\r\n"},
      {u"17", true, u"the quick brown fox", u"the quick brown\r\nfox\r\n"},
      {u"18", true, u"the quick brown fox", u"the quick brown fox\r\n"},
      {u"5", true, u"abcdefghij\r\n          \r\na b", u"abcdefghij\r\n          \r\na b\r\n"},
      {u"5", true, u"abcd          ", u"abcd          \r\n"},
      {u"5", false, u"abcdefghij\r\nabcde\r\nabcd\r\n      ",
       u"abcd\r\nefgh\r\nij\r\nabcd\r\ne\r\nabcd\r\n    \r\n  \r\n"},
      {u" 1 0x", false, u"123456789abc", u"123456789\r\nabc\r\n"},
      {u"5", false, u"abc\U0001F600de", u"abc\r\n\U0001F600de\r\n"},
      {u"2", false, u"a\U0001F600\U0001F600", u"a\r\n\U0001F600\r\n\U0001F600\r\n"},
      {u"1", false, u"abc", u"abc\r\n"},
      {u"1", true, u"a b c", u"a\r\nb c\r\n"},
      {u"0", true, u"a b\r\n  ", u"a\r\nb\r\n  \r\n"},
      {u"", false, u"abc", u"abc\r\n"},
      {u"-5", false, u"a b c", u"a b c\r\n"},
      {u"99999999999999999999999999", false, u"abc", u"abc\r\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(ToUtf8(c.Position) + ": " + ToUtf8(c.Text));
    App().Tools.AddCarriageForm.Text1.Text = String(c.Position);
    App().Tools.AddCarriageForm.Check1.Value = c.Words ? 1 : 0;
    EXPECT_EQ(OnBoth(kAddCarriageReturns, c.Text), c.Result);
  }
}

// The rule step by step on the text itself.
String SlowWords(String line, std::size_t pos) {
  const std::size_t len0 = line.size();
  if (Trim(line).size() < pos) return line;
  for (std::size_t p = pos; line.size() >= p;) {
    long long back = -1, forward = -1;
    for (std::size_t i = p; i >= 1 && back < 0; --i) {
      if (line[i - 1] == u' ') back = static_cast<long long>(p - i);
    }
    for (std::size_t i = std::max<std::size_t>(p, 1); i <= line.size() && forward < 0; ++i) {
      if (line[i - 1] == u' ') forward = static_cast<long long>(i - p);
    }
    const long long end = static_cast<long long>(len0) - static_cast<long long>(p);
    std::size_t b = p + static_cast<std::size_t>(forward);
    if (back == -1 && forward == -1)
      b = len0;
    else if (back == -1)
      b = b < len0 ? b : len0;
    else if (forward == -1)
      b = back < end ? p - static_cast<std::size_t>(back) : len0;
    else if (back < forward)
      b = p - static_cast<std::size_t>(back);
    if (b == len0) {
      p += pos + 2;
      continue;
    }
    p = b + pos + 1;
    if (IsBlank(StringView(line).substr(b))) continue;
    line = line.substr(0, b - 1) + String(kCrLf) + line.substr(b);
  }
  return line;
}

TEST(WordBreaker, AgreesWithTheRuleStepByStep) {
  constexpr StringView kTokens[] = {u" ",
                                    u" ",
                                    u"a",
                                    u"bb",
                                    u"cccc",
                                    u"ddddddddddddd",
                                    u"eeeeeeeeeeeeeeeeeeeeeeeeeeeeeeeeeeeeeeee",
                                    u"   "};
  RandomText random(1);
  WordBreaker words;
  for (int i = 0; i < 20000; ++i) {
    const String line = random.Of(kTokens, i % 10 == 0 ? 300 : 30);
    const std::size_t position = 2 + random.Number(20);
    TextSink broken;
    words.Break(line, position, broken);
    ASSERT_EQ(broken.Text, SlowWords(line, position) + String(kCrLf))
        << ToUtf8(line) << " at " << position;
  }
}

TEST_F(BreakLines, DialogChecksThePosition) {
  AddCarriageForm& form = App().Tools.AddCarriageForm;
  struct Case {
    StringView Position;
    StringView Notice;
  };
  constexpr StringView kNothing =
      u"You have not entered the character position at which to add the carriage return on each "
      u"line.";
  constexpr StringView kBelow5 =
      u"The character position at which to add the carriage return on each line cannot be less "
      u"than 5.";
  constexpr StringView kCharacter = u"Error: Character other than number found.";
  const Case cases[] = {
      {u"  ", kNothing},     {u"4", kBelow5}, {u"abc", kBelow5}, {u"5x", kCharacter},
      {u"12.5", kCharacter}, {u"5", u""},     {u"12_3", u""},    {u"5 0", u""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(ToUtf8(c.Position));
    Windows.Notices.clear();
    form.Show();
    form.Text1.Text = String(c.Position);
    form.Command1.Click();
    EXPECT_EQ(Windows.Notices.empty() ? String() : Windows.Notices.front(), c.Notice);
    EXPECT_EQ(form.Visible, !c.Notice.empty());
    form.Hide();
  }
}

TEST_F(BreakLines, CancelKeepsTextAndSettings) {
  AddCarriageForm& form = App().Tools.AddCarriageForm;
  EXPECT_EQ(form.Text1.Text.Get(), u"76");
  const String text = u"one two three four";
  App().RichTextBox1.SetText(text);
  Windows.OnModal = [&](Form& shown) {
    EXPECT_EQ(&shown, &form);
    form.Text1.Text = u"9";
    form.Check1.Value = 0;
    form.CloseByFrame();
  };
  App().Menu.ToolMenu(u"Add Trailing Carriage Returns")->Click();
  EXPECT_EQ(App().RichTextBox1.Text(), text);
  EXPECT_EQ(form.Text1.Text.Get(), u"76");
  EXPECT_EQ(form.Check1.Value, 1);

  Windows.OnModal = [&](Form&) {
    form.Text1.Text = u"9";
    form.Command1.Click();
  };
  App().Menu.ToolMenu(u"Add Trailing Carriage Returns")->Click();
  EXPECT_EQ(App().RichTextBox1.Text(), u"one two\r\nthree four\r\n");

  Windows.OnModal = [](Form&) { ADD_FAILURE() << "a blank text needs no settings"; };
  App().RichTextBox1.SetText(u"  ");
  App().Menu.ToolMenu(u"Add Trailing Carriage Returns")->Click();
}

}  // namespace
