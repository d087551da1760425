#include "tools/lines/replace_across_lines.h"

#include <optional>

namespace {

struct Match {
  // The index of the first piece in the first line.
  std::size_t Start = 0;
  // What stands behind the last piece in the last line.
  String Tail;
};

class MultiLineSearch {
 public:
  MultiLineSearch(const std::vector<String>& pieces, const SearchSettings& settings)
      : settings_(settings), pieces_(pieces.size()) {
    for (std::size_t k = 0; k < pieces.size(); ++k) pieces_[k].Set(pieces[k], settings.MatchCase);
  }

  std::optional<Match> At(const RowFilter& rows) {
    Match match;
    const ComparedText& first = pieces_.front();
    line_.Set(rows.Ahead(0), settings_.MatchCase);
    if (settings_.WholeWord) {
      if (line_.Compared() != first.Compared()) return std::nullopt;
    } else {
      const std::size_t place = InStr(line_.Compared(), first.Compared());
      if (place == 0) return std::nullopt;
      match.Start = place - 1;
    }
    const bool lastIsBlank = IsBlank(pieces_.back().Text());
    if (pieces_.size() == 2 && !settings_.WholeWord && lastIsBlank &&
        match.Start + first.Text().size() != line_.Text().size()) {
      return std::nullopt;
    }
    for (std::size_t k = 1; k < pieces_.size(); ++k) {
      const StringView line = rows.Ahead(k);
      const bool anywhere = k + 1 == pieces_.size() && !settings_.WholeWord && !lastIsBlank;
      if (!(anywhere ? Ends(line, match) : Equals(line, pieces_[k]))) return std::nullopt;
    }
    return match;
  }

 private:
  // Whether the line is this piece.
  bool Equals(StringView line, const ComparedText& piece) {
    if (line.size() != piece.Text().size()) return false;
    line_.Set(line, settings_.MatchCase);
    return line_.Compared() == piece.Compared();
  }
  // Whether the last piece stands in the line.
  bool Ends(StringView line, Match& match) {
    line_.Set(line, settings_.MatchCase);
    const std::size_t place = InStr(line_.Compared(), pieces_.back().Compared());
    if (place == 0) return false;
    match.Tail = line.substr(place - 1 + pieces_.back().Text().size());
    return true;
  }

  const SearchSettings& settings_;
  std::vector<ComparedText> pieces_;
  ComparedText line_;
};

// Deletes what matched. False: the first line goes as well.
bool Delete(String& line, const Match& match, const SearchSettings& settings) {
  if (settings.WholeWord) return false;
  if (match.Start == 0 && match.Tail.empty()) return false;
  line.resize(match.Start);
  return true;
}

}  // namespace

void ReplaceAcrossLines(Lines& lines, const std::vector<String>& pieces,
                        const SearchSettings& settings, ReplaceState& state) {
  MultiLineSearch search(pieces, settings);
  std::optional<LineReplacer> replacer;
  if (!settings.ReplaceWith.empty())
    replacer.emplace(state, pieces.front(), settings.ReplaceWith, settings);
  RowFilter rows(lines);
  while (String* row = rows.Next()) {
    const auto match = search.At(rows);
    if (!match) {
      rows.Keep();
      continue;
    }
    bool keep = true;
    if (replacer) {
      // Only a deletion leaves nothing of a line.
      *row = String(replacer->Changed(*row).value());
    } else {
      keep = Delete(*row, *match, settings);
      state.CountOne();
    }
    *row += match->Tail;
    if (keep) rows.Keep();
    rows.Drop(pieces.size() - 1);
    // The search goes on so many lines further down, not at the line behind the match.
    for (std::size_t i = 2; i < pieces.size() && rows.Next(); ++i) rows.Keep();
  }
}
