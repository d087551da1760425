#pragma once
// Search and Replace inside one line: one text that is searched for and one that takes its place.

#include <cstdint>
#include <optional>

#include "tools/lines/compared_text.h"
#include "tools/lines/search_settings.h"

// What a run of Search and Replace keeps from line to line, and the place from run to run.
struct ReplaceState {
  // The column, from 1, at which the search in the next line starts.
  std::size_t StartPos = 1;
  int ReplaceCount = 0;

  // RuntimeError 6 above 32767 replacements.
  void CountOne();
};

// Replaces first instance after first instance until none is left. Time is linear in the length of
// the line, though each instance is searched for in the line as it then stands.
class LineReplacer {
 public:
  // `search` is not empty.
  LineReplacer(ReplaceState& state, StringView search, StringView replacement,
               const SearchSettings& settings);

  // What the line becomes; nothing where all of it was deleted, and it goes itself. Holds as long
  // as the line, and until the next call.
  std::optional<StringView> Changed(StringView line);

 private:
  // What is left of the line: characters that are done with, and characters that are not.
  void StartLine(StringView line);
  std::size_t Length() const { return done_.size() + rest_.size(); }
  char16_t At(std::size_t index) const {
    return index < done_.size() ? done_[index] : rest_[index - done_.size()];
  }
  // The index of the next instance, or npos; the search begins at StartPos.
  std::size_t Find();
  std::size_t FindFrom(std::size_t index);
  bool StandsAlone(std::size_t index) const;
  // Characters in front of this index are done with.
  void PassTo(std::size_t index);
  void Drop(std::size_t count);
  void DeleteAt(std::size_t index);
  // Whether anything was changed; the line then is done_.
  bool ReplaceAll();
  // The same; nothing where all of the line was deleted.
  std::optional<bool> DeleteAll();

  ReplaceState& state_;
  ComparedText search_;
  String replacement_;
  bool wholeWord_;
  bool matchCase_;

  ComparedText line_;
  String done_;
  String doneCompared_;
  StringView rest_;
  StringView restCompared_;
  String seam_;
};
