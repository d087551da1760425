#include "platform/system/text_file.h"

#include <random>

#include "platform/system/byte_blocks.h"
#include "platform/test_folder.h"
#include "text/encoding.h"

using namespace std::string_literals;

namespace {

class TextFile : public testing::Test {
 protected:
  String Path(const char* name = "file") const { return folder_ / name; }
  String Put(const std::string& bytes) const {
    folder_.Put("file", bytes);
    return Path();
  }
  std::string Get(const char* name = "file") const { return folder_.Get(name); }

  // Reading and writing gives the same bytes, and the reader finds the same lines.
  void ExpectIdentity(const std::string& bytes) {
    const LoadedText loaded = ReadTextFile(Put(bytes));
    TextReader reader(Path());
    String lines;
    while (!reader.AtEnd()) {
      const StringView line = reader.ReadLine();
      ASSERT_EQ(line.find(loaded.Format.LineEnds == LineEnds::Lf ? kLf : kCr), StringView::npos);
      lines.append(line).append(kCrLf);
    }
    const bool endsLine = loaded.Text.empty() || loaded.Text.ends_with(kCrLf);
    ASSERT_EQ(lines, endsLine ? loaded.Text : loaded.Text + String(kCrLf)) << Shown(bytes);

    ASSERT_EQ(FormatThatHolds(loaded.Text, loaded.Format), loaded.Format) << Shown(bytes);
    Put("");
    WriteTextFile(Path(), loaded.Text, loaded.Format);
    ASSERT_EQ(Get() == bytes, true) << Shown(bytes) << "\nbecame\n" << Shown(Get());
  }

  static std::string Shown(const std::string& bytes) {
    return testing::PrintToString(bytes.substr(0, 300));
  }

  const TestFolder folder_{kMemory};
};

// The parts of a text between bars.
std::vector<std::string> Parts(const std::string& text) {
  std::vector<std::string> parts;
  std::istringstream stream(text);
  for (std::string part; std::getline(stream, part, '|');) parts.push_back(part);
  return parts;
}

TEST_F(TextFile, FindsEncodingAndLineEnds) {
  struct {
    std::string Bytes;
    String Text;
    String Encoding, Ends;
  } const kCases[] = {
      {"", u"", u"UTF-8", u"CR LF"},
      {"abc", u"abc", u"UTF-8", u"CR LF"},
      {"a\nb\n", u"a\r\nb\r\n", u"UTF-8", u"LF"},
      {"a\r\nb\nc\r\n", u"a\r\nb\nc\r\n", u"UTF-8", u"mixed"},
      {"a\rb\r", u"a\r\nb\r\n", u"UTF-8", u"CR"},
      {"a\r\r\n\nb\r", u"a\r\n\r\n\nb\r\n", u"UTF-8", u"mixed"},
      {"caf\xC3\xA9\r\n", u"caf\u00E9\r\n", u"UTF-8", u"CR LF"},
      {"caf\xE9\x93.\x81", u"caf\u00E9\u201C.\u0081", u"Windows-1252", u"CR LF"},
      {"\xEF\xBB\xBFx\xE9", u"x\xDCE9", u"UTF-8 with BOM", u"CR LF"},
      {"\xFF\xFE\x0D\x0A\x0A\x00"s, u"\u0A0D\r\n", u"UTF-16 LE", u"LF"},
      {"\xFE\xFF\x00\x0D\x00\x0A\x00\x41\x00"s, u"\r\nA", u"UTF-16 BE", u"CR LF"},
      {"\xFF\xFE\x00\xD8\x0D\x00\x0D\x0A"s, u"\xD800\r\n\u0A0D", u"UTF-16 LE", u"CR"},
      {"\xED\xA0\x80", u"\u00ED\u00A0\u20AC", u"Windows-1252", u"CR LF"},
      {"a\0b"s, u"a\0b"s, u"UTF-8", u"CR LF"},
  };
  for (const auto& [bytes, text, encoding, ends] : kCases) {
    const LoadedText loaded = ReadTextFile(Put(bytes));
    EXPECT_EQ(loaded.Text, text) << Shown(bytes);
    EXPECT_EQ(EncodingName(loaded.Format), encoding) << Shown(bytes);
    EXPECT_EQ(LineEndsName(loaded.Format), ends) << Shown(bytes);
    ExpectIdentity(bytes);
  }
}

// Texts made of what goes wrong: marks, line ends, half and forbidden sequences, of all encodings.
TEST_F(TextFile, BringsBackAnyBytes) {
  const std::vector<std::string> kNasty = Parts(
      "\r|\n|\r\n|\n\r|\0|abc|\xC3\xA9|\xE2\x82\xAC|\xF0\x9F\x98\x80|\xEF\xBB\xBF|\xFF\xFE|"
      "\xFE\xFF|"
      "\xC3|\x80|\xE2\x82|\xF0\x9F\x98|\xC0\x80|\xED\xA0\x80|\xED\xB0\x80|\xF4\x90\x80\x80|"
      "\xEF\xBF\xBF|"
      "\x0D\x00|\x00\x0D|\x0A\x00|\x00\x0A|\x00\xD8|\x81\x8D|xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx"s);
  const std::string kBegin[] = {"", "", "\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"};
  std::mt19937 random(3);
  for (int round = 0; round < 1000; ++round) {
    std::string bytes = kBegin[random() % std::size(kBegin)];
    // Few kinds at once, so that files of one kind of line end come up as well.
    const std::size_t kinds = 1 + random() % 6;
    const std::size_t first = random();
    for (std::size_t count = random() % 30; count > 0; --count)
      bytes += kNasty[(first + (random() % kinds) * 7) % kNasty.size()];
    if (random() % 4 == 0) bytes += static_cast<char>(random());
    ASSERT_NO_FATAL_FAILURE(ExpectIdentity(bytes));
  }
}

TEST_F(TextFile, BringsBackWhatLiesAcrossABlock) {
  const std::vector<std::string> kAcross = Parts(
      "\r\n|\r|\n|\r\r\n|\xF0\x9F\x98\x80|\xE2\x82\xAC\r|\xE9|\x80\x80\x80\x80\x80|\x0D\x00\x0A\x00"s);
  // What is read at a time, and what is written.
  for (const std::size_t block : {kBlockSize, kBlockSize / kMaxCharacterBytes})
    for (const std::string begin : {"", "\xEF\xBB\xBF", "\xFF\xFE"})
      for (const std::string& across : kAcross)
        for (std::size_t before = 0; before < 5; ++before) {
          std::string bytes = begin;
          bytes.resize(block - before, 'x');
          ASSERT_NO_FATAL_FAILURE(ExpectIdentity(bytes + across));
          ASSERT_NO_FATAL_FAILURE(ExpectIdentity(bytes + across + std::string(kBlockSize, 'y')));
        }
}

// Whatever format is wanted, what is written is read as the same text.
TEST_F(TextFile, LosesNoCharacter) {
  const StringView kPieces[] = {u"a",      u"é",      u"Ã©",     u"€",      u"Ж",  u"\uFEFF",
                                u"\xDC80", u"\xDCC3", u"\xDCA9", u"\xD800", u"ÿþ", u"\U0001F600",
                                u"\r\n",   u"\x81",   u"ï»¿",    u"abc"};
  std::mt19937 random(4);
  for (int round = 0; round < 1000; ++round) {
    TextFormat format;
    format.Encoding = static_cast<Encoding>(random() % 4);
    format.Mark = random() % 2;
    format.LineEnds = static_cast<LineEnds>(random() % 2);
    const std::size_t kinds = 1 + random() % 5;
    const std::size_t first = random();
    String text;
    TextWriter writer(Path("lines"), format);
    for (std::size_t count = random() % 12; count > 0; --count) {
      const StringView piece = kPieces[(first + (random() % kinds) * 5) % std::size(kPieces)];
      text += piece;
      writer.Write(piece);
    }
    writer.Close();
    WriteTextFile(Path(), text, format);
    // Halves that come together in the text are a pair there, but two pieces for the writer.
    ASSERT_EQ(ReadTextFile(Path()).Text, text) << round;
    ASSERT_EQ(ReadTextFile(Path("lines")).Text, text) << round;
  }
}

TEST_F(TextFile, WriterKeepsTheFormatOfTheFile) {
  struct {
    std::string Bytes, Copy;
  } const kCases[] = {
      {"a\nb", "A\nB\n"},
      {"a\rb\r\nc\nd", "A\r\nB\r\nC\nD\r\n"},
      {"\xEF\xBB\xBF\xC3\xA9", "\xEF\xBB\xBF\xC3\x89\r\n"},
      {"\xE9 \xB5\x83\n", "\xC9 \xB5\x83\n"},
      {"\xFF\xFE\x61\x00\x0A\x00\x7F"s, "\xFF\xFE\x41\x00\x0A\x00\x7F"s},
      {"\xFE\xFF\x00\x61\x00\x0D"s, "\xFE\xFF\x00\x41\x00\x0D\x00\x0A"s},
      {"", ""},
  };
  for (const auto& [bytes, copy] : kCases) {
    TextReader reader(Put(bytes));
    TextWriter writer(Path("copy"), reader.Format());
    String upper;
    while (!reader.AtEnd()) {
      UCaseInto(reader.ReadLine(), upper);
      writer.Print(upper);
    }
    writer.Close();
    EXPECT_EQ(Get("copy"), copy) << Shown(bytes);
    // Who knows the format reads the same.
    TextReader probing(Path("copy"));
    TextReader knowing(Path("copy"), writer.Format());
    for (int round = 0; round < 2; ++round) {
      while (!probing.AtEnd()) EXPECT_EQ(knowing.TakeLine(), probing.ReadLine()) << Shown(bytes);
      EXPECT_TRUE(knowing.AtEnd());
      knowing.Release();
      probing.Rewind();
      knowing.Rewind();
    }
  }
  TextWriter unixWriter(Path("copy"), ReadTextFile(Put("a\n")).Format);
  unixWriter.Write(u"a\r\nb\rc\nd");
  unixWriter.Close();
  EXPECT_EQ(Get("copy"), "a\nb\nc\nd");
}

TEST_F(TextFile, WriterChangesTheEncodingOfTheWholeFile) {
  const LoadedText loaded = ReadTextFile(Put("caf\xE9\r\nlone \n\r\n"));
  String expected;
  TextWriter writer(Path("out"), loaded.Format);
  for (int i = 0; i < 30000; ++i) {
    writer.Print(u"café\n!");
    expected += u"café\n!\r\n";
  }
  for (const StringView line : {u"Ж", u"\xD800"}) {
    writer.Print(line);
    expected.append(line).append(kCrLf);
  }
  writer.Close();
  EXPECT_TRUE(ReadTextFile(Path("out")).Text == expected);
  EXPECT_EQ(EncodingName(writer.Format()), u"UTF-16 LE");
  TextReader knowing(Path("out"), writer.Format());
  String lines;
  while (!knowing.AtEnd()) lines.append(knowing.ReadLine()).append(kCrLf);
  EXPECT_TRUE(lines == expected);
  EXPECT_EQ(folder_.Names(), (std::set<std::string>{"file", "out"}));
}

TEST_F(TextFile, ReaderStopsAtTheEndAndRewinds) {
  TextReader reader(
      Put("\xEF\xBB\xBF"
          "one\r\n\r\nthree"));
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(reader.ReadLine(), u"one");
    EXPECT_EQ(reader.ReadLine(), u"");
    EXPECT_FALSE(reader.AtEnd());
    EXPECT_EQ(reader.ReadLine(), u"three");
    EXPECT_TRUE(reader.AtEnd());
    EXPECT_EQ(CodeOf([&] { reader.ReadLine(); }), kInputPastEnd);
    reader.Rewind();
  }
  EXPECT_THROW(TextReader(Path("none")), RuntimeError);
  // Cut short behind the reader's back: the lines that are left, and no endless loop.
  Put("");
  EXPECT_LE(reader.ReadLine().size(), 3u);
}

TEST_F(TextFile, UnchangedBareCrsStayAndChangedOnesGo) {
  LoadedText loaded = ReadTextFile(Put("a\rb\r\nc\r"));
  EXPECT_EQ(loaded.Format.BareCrs, (std::vector<bool>{true, false, true}));
  loaded.Format.BareCrs.clear();
  WriteTextFile(Path(), loaded.Text + u"d", loaded.Format);
  EXPECT_EQ(Get(), "a\r\nb\r\nc\r\nd");
}

TEST_F(TextFile, WorkFilesAreExact) {
  String nasty;
  for (int unit = 0; unit < 0x10000; ++unit) nasty += static_cast<char16_t>(unit);
  for (int unit = 0xFFFF; unit >= 0; --unit) nasty += static_cast<char16_t>(unit);
  nasty += u"\r\n\n\r\xDCC3\xDCA9\xD83D\xDE00";
  for (std::size_t shift = 0; shift < 4; ++shift) {
    WriteWorkFile(Path(), String(shift, u'x') + nasty);
    EXPECT_TRUE(ReadWorkFile(Path()) == String(shift, u'x') + nasty);
  }
}

TEST_F(TextFile, ADataFileOfAnySizeIsRefusedBeforeItIsRead) {
  std::filesystem::resize_file(ToUtf8(Put("")), std::uintmax_t{1} << 40);
  EXPECT_EQ(CodeOf([&] { ReadDataFile(Path()); }), kOutOfMemory);
}

TEST_F(TextFile, DataFilesKeepTheirLines) {
  EXPECT_EQ(ReadDataFile(Put("a\r\n\nb\rc\n")), (std::vector<String>{u"a", u"", u"b", u"c"}));
  struct {
    std::vector<String> Lines;
    std::string Bytes;
  } const kCases[] = {{{}, ""},
                      {{u"", u"x", u""}, "\r\nx\r\n\r\n"},
                      {{u"é\u201C"}, "\xE9\x93\r\n"},
                      {{u"Ã©"}, "\xC3\x83\xC2\xA9\r\n"},
                      {{u"Ж"}, "\xD0\x96\r\n"},
                      {{u"/home/\xDCE9"}, "\xEF\xBB\xBF/home/\xE9\r\n"}};
  for (const auto& [lines, bytes] : kCases) {
    WriteDataFile(Path(), lines);
    EXPECT_EQ(Get(), bytes);
    EXPECT_EQ(ReadDataFile(Path()), lines);
  }
}

}  // namespace
