#include "tools/lines/capital_letters.h"

#include "tools/lines/forward_search.h"

namespace {

constexpr std::size_t kMostPassedOver = 10;
constexpr std::size_t kNone = String::npos;

bool IsLetter(char16_t c) {
  const char16_t upper = UCase(c);
  return upper >= u'A' && upper <= u'Z';
}

// "i'v" first, over all of the line; "i " only behind the last of those.
void RaisePronouns(String& line) {
  std::size_t from = 0;
  for (const StringView pronoun : {u"i'v", u"i "}) {
    for (std::size_t place; (place = line.find(pronoun, from)) != kNone; from = place + 1)
      line[place] = u'I';
  }
}

// The last character of the line is not looked at.
void RaiseFirstLetter(String& line) {
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    if (!IsLetter(line[i])) continue;
    line[i] = UCase(line[i]);
    return;
  }
}

bool IsBlankOrLineEnd(StringView line) {
  const StringView text = Trim(line);
  return text.empty() || text == u"\n" || text == u"\r" || text == kCrLf;
}

// The marks that end sentences, in the order in which the line is searched for them. All full stops
// come first; each other mark is searched for from the start of the line once, and then, like the
// full stops, behind the mark that was found last, whichever that was.
class SentenceEnds {
 public:
  explicit SentenceEnds(StringView line)
      : searches_{{line, Is{u'.'}}, {line, Is{u'?'}}, {line, Is{u'!'}}} {}

  // The index of the next mark, or npos.
  std::size_t Next() {
    std::size_t from = last_;
    for (int mark = 0; mark < 3; ++mark) {
      if (mark > restarted_) {
        restarted_ = mark;
        from = 0;
      }
      const std::size_t place = searches_[mark].Find(from);
      if (place == kNone) continue;
      last_ = place + 1;
      return place;
    }
    return kNone;
  }

 private:
  struct Is {
    char16_t Mark;
    bool operator()(char16_t c) const { return c == Mark; }
  };

  ForwardSearch<Is> searches_[3];
  // The marks up to this one have had their search from the start.
  int restarted_ = 0;
  // Behind the mark found last.
  std::size_t last_ = 0;
};

// Whether the line carries on into a new sentence on the next line.
bool RaiseSentences(String& line) {
  bool nextBegins = false;
  const StringView text = RTrim(line);
  const bool quoted = text.ends_with(u'"');
  SentenceEnds ends(line);
  ForwardSearch letters(line, IsLetter);
  for (std::size_t end; (end = ends.Next()) != kNone;) {
    if (end + 1 == text.size() || quoted) nextBegins = true;
    const std::size_t letter = letters.Find(end + 1);
    if (letter != kNone) line[letter] = UCase(line[letter]);
  }
  return nextBegins;
}

}  // namespace

void LineCapitals::Change(String& line) {
  for (std::size_t i = 0; i < line.size() && passedOver_ <= kMostPassedOver; ++i) {
    if (IsLetter(line[i])) {
      line[i] = UCase(line[i]);
      return;
    }
    ++passedOver_;
  }
  passedOver_ = 0;
}

void SentenceCapitals::Change(String& line) {
  RaisePronouns(line);
  if (firstLine_ || sentenceBegins_) RaiseFirstLetter(line);
  firstLine_ = sentenceBegins_ = false;
  if (IsBlankOrLineEnd(line)) sentenceBegins_ = true;
  if (RaiseSentences(line)) sentenceBegins_ = true;
}
