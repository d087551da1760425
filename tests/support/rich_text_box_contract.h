#pragma once
// What every edit control has to keep to. Include once in a test program and instantiate
// RichTextBoxContract with a factory for each implementation.

#include <functional>
#include <gtest/gtest.h>
#include <memory>

#include "platform/window/rich_text_box.h"

using MakeRichTextBox = std::function<std::unique_ptr<RichTextBox>()>;

class RichTextBoxContract : public testing::TestWithParam<MakeRichTextBox> {
 protected:
  RichTextBoxContract() {
    box.OnChange = [this] { events += 'c'; };
    box.OnSelChange = [this] { events += 's'; };
  }

  // What was reported since the last call: "s" a move, "c" a change of the selection.
  std::string Events() { return std::exchange(events, {}); }

  void Select(std::size_t start, std::size_t length) {
    box.SetSelStart(start);
    box.SetSelLength(length);
  }

  std::unique_ptr<RichTextBox> owner = GetParam()();
  RichTextBox& box = *owner;
  std::string events;
};

using namespace std::string_view_literals;

TEST_P(RichTextBoxContract, TextComesBackWithCrLfLineEnds) {
  struct {
    StringView In, Out;
  } const cases[] = {
      {u""sv, u""sv},
      {u"a"sv, u"a"sv},
      {u"\r"sv, u"\r\n"sv},
      {u"a\rb\r\nc"sv, u"a\r\nb\r\nc"sv},
      {u"a\nb"sv, u"a\nb"sv},
      {u"\r\r\n\n\r"sv, u"\r\n\r\n\n\r\n"sv},
      {u"\n\r\n"sv, u"\n\r\n"sv},
      {u"\0a\0"sv, u"\0a\0"sv},
      {u"\u2028\u2029\uFDD0\uFDD1"sv, u"\u2028\u2029\uFDD0\uFDD1"sv},
      {u"\uFDD2\u2028\uFDD3\u2029\uFDD4\uFDD0\uFDD5"sv,
       u"\uFDD2\u2028\uFDD3\u2029\uFDD4\uFDD0\uFDD5"sv},
      {u"\u00A0\u0085\v\f\uFEFF\uFFFC\uFFFE\uFFFF"sv,
       u"\u00A0\u0085\v\f\uFEFF\uFFFC\uFFFE\uFFFF"sv},
      {u"\xD83D\xDE00 \xDE00\xD83D \xD800"sv, u"\xD83D\xDE00 \xDE00\xD83D \xD800"sv},
  };
  for (const auto& [in, out] : cases) {
    box.SetText(in);
    EXPECT_EQ(box.Text(), out);
    EXPECT_EQ(*box.SharedText(), out);
    EXPECT_EQ(box.TextLength(), out.size());
    Select(0, out.size());
    EXPECT_EQ(box.SelText(), out);
  }
}

TEST_P(RichTextBoxContract, EveryCharacterSurvivesAtOnce) {
  String all;
  for (std::uint32_t c = 0; c <= 0xFFFF; ++c)
    // Four characters are left for what a document can't hold.
    if (c != kCr && (c < 0x4E00 || c > 0x4E03)) all += static_cast<char16_t>(c);
  box.SetText(all);
  EXPECT_TRUE(box.Text() == all);
}

TEST_P(RichTextBoxContract, ASelectionStandsAtPlacesThatExist) {
  //                     0123 4 56 7 8 9
  box.SetText(u"abc\r\nde\r\n\n");
  struct {
    std::size_t Start, Length;
    std::size_t WantedStart, WantedLength;
    StringView Text;
    TextPlace Caret;
  } const cases[] = {
      {0, 0, 0, 0, u"", {1, 1}},
      {0, 3, 0, 3, u"abc", {1, 4}},
      {0, 4, 0, 3, u"abc", {1, 4}},
      {0, 5, 0, 5, u"abc\r\n", {2, 1}},
      {4, 0, 3, 0, u"", {1, 4}},
      {4, 2, 3, 2, u"\r\n", {2, 1}},
      {6, 99, 6, 4, u"e\r\n\n", {3, 2}},
      {9, 1, 9, 1, u"\n", {3, 2}},
      {10, 1, 10, 0, u"", {3, 2}},
      {999, 5, 10, 0, u"", {3, 2}},
      {1, static_cast<std::size_t>(-1), 1, 9, u"bc\r\nde\r\n\n", {3, 2}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.Start) + ", " + std::to_string(c.Length));
    Select(c.Start, c.Length);
    EXPECT_EQ(box.SelStart(), c.WantedStart);
    EXPECT_EQ(box.SelLength(), c.WantedLength);
    EXPECT_EQ(box.SelText(), c.Text);
    EXPECT_EQ(box.Caret(), c.Caret);
    box.SetSelStart(2);
    EXPECT_EQ(box.SelLength(), 0u);
  }
}

TEST_P(RichTextBoxContract, TextTakesThePlaceOfTheSelection) {
  struct {
    StringView Before;
    std::size_t Start, Length;
    StringView Piece, After;
    std::size_t Caret;
  } const cases[] = {
      {u"", 0, 0, u"a\rb", u"a\r\nb", 4},
      {u"abc", 1, 1, u"", u"ac", 1},
      {u"abc", 3, 0, u"\r", u"abc\r\n", 5},
      {u"a\r\nb", 1, 2, u"", u"ab", 1},
      {u"a\r\nb", 1, 2, u"\n", u"a\nb", 2},
      // A CR put before an LF that was there is a line end of its own.
      {u"a\nb", 1, 0, u"\r", u"a\r\n\nb", 3},
      {u"a\r\nb", 3, 0, u"\n", u"a\r\n\nb", 4},
      {u"a\u2028\nb", 2, 0, u"\uFDD2\r", u"a\u2028\uFDD2\r\n\nb", 5},
  };
  for (const auto& c : cases) {
    box.SetText(c.Before);
    Select(c.Start, c.Length);
    Events();
    box.SetSelText(c.Piece);
    EXPECT_EQ(box.Text(), c.After);
    EXPECT_EQ(box.SelStart(), c.Caret);
    EXPECT_EQ(box.SelLength(), 0u);
    EXPECT_TRUE(Events().ends_with("c"));
  }
}

TEST_P(RichTextBoxContract, EachChangeIsReportedOnceAndAfterTheMove) {
  const struct {
    const char* Name;
    std::function<void()> Action;
    std::string Events;
  } steps[] = {
      {"first text", [&] { box.SetText(u"one\r\ntwo"); }, "c"},
      {"the same text", [&] { box.SetText(u"one\rtwo"); }, ""},
      {"a move", [&] { box.SetSelStart(3); }, "s"},
      {"no move", [&] { box.SetSelStart(4); }, ""},
      {"an empty selection", [&] { box.SetSelLength(0); }, ""},
      {"a selection", [&] { box.SetSelLength(3); }, "s"},
      {"the selection by itself", [&] { box.SetSelText(u"\rt"); }, "s"},
      {"nothing by nothing", [&] { box.SetSelText(u""); }, ""},
      {"an insertion", [&] { box.SetSelText(u"x\ry"); }, "sc"},
      {"the same text, caret to the start", [&] { box.SetText(u"one\r\ntx\r\nywo"); }, "s"},
      {"a deletion in place", [&] { Select(0, 0), Events(), box.SetSelText(u""); }, ""},
      {"other stand-ins", [&] { box.SetSelText(u"\u2028\uFDD2"); }, "sc"},
      {"another text", [&] { box.SetText(u"three"); }, "sc"},
      {"all gone", [&] { box.SetText(u""); }, "c"},
  };
  for (const auto& step : steps) {
    step.Action();
    EXPECT_EQ(Events(), step.Events) << step.Name;
  }
}

TEST_P(RichTextBoxContract, AHandlerSeesTheNewStateAndMayChangeTheText) {
  String seen;
  box.SharedText();
  box.OnChange = [&] {
    seen = *box.SharedText();
    EXPECT_EQ(seen, box.Text());
    if (box.TextLength() < 5) box.SetSelText(u"+");
  };
  box.SetText(u"ab");
  EXPECT_EQ(box.Text(), u"+++ab");
  box.OnSelChange = [&] { EXPECT_EQ(box.SelStart(), 5u); };
  box.SetSelStart(5);
}

TEST_P(RichTextBoxContract, TheProgramMayChangeALockedText) {
  box.Locked = true;
  box.SetText(u"ab");
  box.SetSelStart(1);
  box.SetSelText(u"-");
  EXPECT_EQ(box.Text(), u"a-b");
}
