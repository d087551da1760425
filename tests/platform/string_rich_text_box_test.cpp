// The edit control without a display. The one of a window is held against it on random work.

#include "platform/console/string_rich_text_box.h"

#include "platform/test_folder.h"
#include "text/runtime_error.h"

namespace {

using namespace std::string_view_literals;

TEST(StringRichTextBox, LineEndsAndPlaces) {
  constexpr auto kAll = static_cast<std::size_t>(-1);
  const struct {
    StringView In;
    std::size_t Start, Length;
    StringView Text;
    std::size_t StandsAt;
    StringView Selected;
    TextPlace Caret;
    StringView Put, After;
  } cases[] = {
      {u"", 0, 0, u"", 0, u"", {1, 1}, u"a\rb", u"a\r\nb"},
      {u"a\rb\r\nc\nd", 0, 2, u"a\r\nb\r\nc\nd", 0, u"a", {1, 2}, u"", u"\r\nb\r\nc\nd"},
      {u"\r\r\n\n\r", 2, kAll, u"\r\n\r\n\n\r\n", 2, u"\r\n\n\r\n", {4, 1}, u"x", u"\r\nx"},
      {u"\0a\xD800"sv, 0, 2, u"\0a\xD800"sv, 0, u"\0a"sv, {1, 3}, u"\0"sv, u"\0\xD800"sv},
      // Inside a line end is in front of it; past the end is the end.
      {u"a\r\nb", 2, 1, u"a\r\nb", 1, u"", {1, 2}, u"-", u"a-\r\nb"},
      {u"a\r\nb", 1, 2, u"a\r\nb", 1, u"\r\n", {2, 1}, u"\n", u"a\nb"},
      {u"a\r\nb", 99, 5, u"a\r\nb", 4, u"", {2, 2}, u"\r", u"a\r\nb\r\n"},
      // A CR put before an LF that was there is a line end of its own.
      {u"a\nb", 1, 0, u"a\nb", 1, u"", {1, 2}, u"\r", u"a\r\n\nb"},
      {u"a\r\nb", 3, 0, u"a\r\nb", 3, u"", {2, 1}, u"\n", u"a\r\n\nb"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::PrintToString(String(c.In)));
    StringRichTextBox box;
    box.Locked = true;  // to the user alone
    box.SetText(c.In);
    EXPECT_EQ(*box.SharedText(), c.Text);
    EXPECT_EQ(box.TextLength(), c.Text.size());
    box.SetSelStart(c.Start);
    box.SetSelLength(c.Length);
    EXPECT_EQ(box.SelStart(), c.StandsAt);
    EXPECT_EQ(box.SelText(), c.Selected);
    EXPECT_EQ(box.Caret(), c.Caret);
    const std::size_t behind = c.Text.size() - c.StandsAt - c.Selected.size();
    box.SetSelText(c.Put);
    EXPECT_EQ(box.Text(), c.After);
    EXPECT_EQ(box.SelStart(), c.After.size() - behind);
    EXPECT_EQ(box.SelLength(), 0u);
  }
}

TEST(StringRichTextBox, EachChangeIsReportedOnceAndAfterTheMove) {
  StringRichTextBox box;
  std::string events;
  box.OnChange = [&] { events += 'c'; };
  box.OnSelChange = [&] { events += 's'; };
  const struct {
    const char* Name;
    std::function<void()> Act;
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
      {"another text", [&] { box.SetText(u"three"); }, "c"},
      {"all gone", [&] { box.SetSelLength(5), events.clear(), box.SetSelText(u""); }, "sc"},
  };
  for (const auto& step : steps) {
    step.Act();
    EXPECT_EQ(std::exchange(events, {}), step.Events) << step.Name;
  }
}

TEST(StringRichTextBox, AFileComesBackAsItWasOrTheTextStays) {
  const TestFolder folder;
  const std::string bytes = "\x93one\x94\rtwo\r\nthree\nfour";
  folder.Put("in", bytes);
  StringRichTextBox box;
  const TextFormat format = box.LoadFile(folder / "in");
  EXPECT_EQ(box.Text(), u"\u201Cone\u201D\r\ntwo\r\nthree\nfour");
  box.SaveFile(folder / "out", format);
  EXPECT_EQ(folder.Get("out"), bytes);
  box.SetSelStart(2);
  EXPECT_EQ(CodeOf([&] { box.LoadFile(folder / "missing"); }), kFileNotFound);
  EXPECT_EQ(box.TextLength(), 22u);
  EXPECT_EQ(box.SelStart(), 2u);
}

}  // namespace
