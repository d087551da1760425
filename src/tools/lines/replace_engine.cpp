#include "tools/lines/replace_engine.h"

#include <algorithm>

#include "text/runtime_error.h"
#include "tools/lines/replace_across_lines.h"
#include "tools/lines/search_syntax.h"

namespace {

constexpr StringView kEmptyAlternativeText =
    u"Error: One of your <OR> statements results to nothing - meaning that there's nothing to "
    u"search for.  The search and replace has been cancelled and nothing has been changed.";
constexpr StringView kOnlyReturnsText = u"You cannot search using only carriage returns.";
constexpr StringView kBadCodeText =
    u"One or more of your ASCII codes is invalid.  They can only be between 0-255.  Make sure you "
    u"separate each code by a space.";

// Text within one line.
void ReplaceWithinLines(Lines& lines, StringView search, StringView replacement,
                        const SearchSettings& settings, ReplaceState& state) {
  if (search.empty()) return;
  LineReplacer replacer(state, search, replacement, settings);
  RowFilter rows(lines);
  while (String* row = rows.Next()) {
    const auto changed = replacer.Changed(*row);
    if (!changed) continue;
    if (changed->data() != row->data()) *row = *changed;
    rows.Keep();
  }
}

void ReplaceByCodes(Lines& lines, StringView alternative, const SearchSettings& settings,
                    ReplaceState& state, const SettingsProblem& tell) {
  const auto search = DecodeCodes(alternative);
  const auto replacement = search ? DecodeCodes(settings.ReplaceWith) : std::nullopt;
  if (!replacement) return tell(kBadCode, kBadCodeText);
  ReplaceWithinLines(lines, *search, *replacement, settings, state);
}

void ReplaceAlternative(Lines& lines, const String& alternative, const SearchSettings& settings,
                        ReplaceState& state, const SettingsProblem& tell) {
  if (settings.ByCodes) return ReplaceByCodes(lines, alternative, settings, state, tell);
  const std::vector<String> pieces = SplitAtReturns(alternative);
  if (pieces.size() == 1)
    return ReplaceWithinLines(lines, alternative, settings.ReplaceWith, settings, state);
  if (std::all_of(pieces.begin(), pieces.end(), IsBlank))
    return tell(kOnlyReturns, kOnlyReturnsText);
  if (!pieces.front().empty()) ReplaceAcrossLines(lines, pieces, settings, state);
}

}  // namespace

void ReplaceInLines(Lines& lines, const SearchSettings& settings, ReplaceState& state,
                    const SettingsProblem& tell) {
  state.ReplaceCount = 0;
  const std::vector<String> alternatives = SplitAlternatives(settings.SearchFor);
  const bool anyEmpty = std::any_of(alternatives.begin(), alternatives.end(),
                                    [](const String& text) { return text.empty(); });
  if (anyEmpty) return tell(kEmptyAlternative, kEmptyAlternativeText);
  for (const String& alternative : alternatives)
    ReplaceAlternative(lines, alternative, settings, state, tell);
}

bool ReplaceLineByLine(LineSource& in, LineSink& out, const SearchSettings& settings,
                       ReplaceState& state) {
  if (Contains(settings.SearchFor, kOr)) return false;
  std::optional<String> search = settings.SearchFor;
  std::optional<String> replacement = settings.ReplaceWith;
  if (settings.ByCodes) {
    search = DecodeCodes(settings.SearchFor);
    replacement = DecodeCodes(settings.ReplaceWith);
    if (!search || !replacement) return false;
  } else if (Contains(*search, u"\r")) {
    return false;
  }
  if (search->empty()) return false;
  state.ReplaceCount = 0;
  LineReplacer replacer(state, *search, *replacement, settings);
  BoundedSource rows(in);
  try {
    while (!rows.AtEnd()) {
      if (const auto line = replacer.Changed(rows.ReadLine())) out.Print(*line);
    }
  } catch (const RuntimeError& error) {
    // A text that is too long is told of first.
    while (error.Code == kOverflow && !rows.AtEnd()) rows.ReadLine();
    throw;
  }
  return true;
}
