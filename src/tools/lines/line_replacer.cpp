#include "tools/lines/line_replacer.h"

#include <algorithm>

#include "text/runtime_error.h"

namespace {

constexpr std::size_t kNone = StringView::npos;
constexpr int kMostReplacements = 32767;

// The index of `what` at or after `from`, or npos.
std::size_t FindIn(StringView text, StringView what, std::size_t from) {
  const std::size_t place = InStr(text, what, from + 1);
  return place == 0 ? kNone : place - 1;
}

}  // namespace

void ReplaceState::CountOne() {
  if (ReplaceCount == kMostReplacements) {
    // A run that is broken off in a line says nothing about the next one.
    StartPos = 1;
    throw RuntimeError(kOverflow,
                       "There are more than 32767 replacements.  The search and replace has been "
                       "cancelled and nothing has been changed.");
  }
  ++ReplaceCount;
}

LineReplacer::LineReplacer(ReplaceState& state, StringView search, StringView replacement,
                           const SearchSettings& settings)
    : state_(state),
      replacement_(replacement),
      wholeWord_(settings.WholeWord),
      // Saves a copy of each line in upper case.
      matchCase_(settings.MatchCase || HasNoCase(search)) {
  search_.Set(search, matchCase_);
}

std::optional<StringView> LineReplacer::Changed(StringView line) {
  StartLine(line);
  const std::optional<bool> changed = replacement_.empty() ? DeleteAll() : ReplaceAll();
  if (!changed) return std::nullopt;
  return *changed ? StringView(done_.append(rest_)) : line;
}

void LineReplacer::StartLine(StringView line) {
  line_.Set(line, matchCase_);
  rest_ = line_.Text();
  restCompared_ = line_.Compared();
  done_.clear();
  doneCompared_.clear();
}

bool LineReplacer::ReplaceAll() {
  bool changed = false;
  for (std::size_t place; (place = Find()) != kNone;) {
    const StringView found = rest_.substr(place - done_.size(), search_.Text().size());
    const bool same = found == replacement_;
    state_.CountOne();
    state_.StartPos = place + replacement_.size() + 1;
    // The same text in its place is no change, and ends the work on the line.
    if (same) break;
    changed = true;
    PassTo(place);
    done_ += replacement_;
    Drop(search_.Text().size());
  }
  return changed;
}

std::optional<bool> LineReplacer::DeleteAll() {
  bool changed = false;
  for (std::size_t place; (place = Find()) != kNone; changed = true) {
    state_.CountOne();
    if (Length() == search_.Text().size()) return std::nullopt;
    DeleteAt(place);
  }
  return changed;
}

std::size_t LineReplacer::Find() {
  while (true) {
    const std::size_t place = FindFrom(state_.StartPos - 1);
    if (place == kNone) {
      state_.StartPos = 1;
      return kNone;
    }
    if (!wholeWord_ || StandsAlone(place)) return place;
    state_.StartPos = place + 2;
  }
}

// Nothing that is done with holds an instance from StartPos on, so that one that begins there
// reaches into the rest.
std::size_t LineReplacer::FindFrom(std::size_t index) {
  const StringView what = search_.Compared();
  const std::size_t reach = what.size() - 1;
  // Replaced text is never searched, and StartPos stands behind it.
  if (index < done_.size() && reach > 0) {
    const std::size_t from =
        std::max(index, done_.size() > reach ? done_.size() - reach : std::size_t{0});
    seam_.assign(doneCompared_, from).append(restCompared_.substr(0, reach));
    const std::size_t place = FindIn(seam_, what, 0);
    if (place != kNone) return from + place;
  }
  const std::size_t from = index > done_.size() ? index - done_.size() : 0;
  const std::size_t place = FindIn(restCompared_, what, from);
  return place == kNone ? kNone : done_.size() + place;
}

bool LineReplacer::StandsAlone(std::size_t index) const {
  const std::size_t behind = index + search_.Text().size();
  return (index == 0 || BeginsWord(At(index - 1))) && (behind == Length() || EndsWord(At(behind)));
}

void LineReplacer::PassTo(std::size_t index) {
  if (index < done_.size()) return;
  // A long line is not copied time and again as it grows.
  if (done_.empty()) done_.reserve(rest_.size() + rest_.size() / 16);
  const std::size_t count = index - done_.size();
  done_ += rest_.substr(0, count);
  // Where text is replaced nothing that is done with is searched again.
  if (replacement_.empty()) doneCompared_ += restCompared_.substr(0, count);
  Drop(count);
}

void LineReplacer::Drop(std::size_t count) {
  rest_.remove_prefix(count);
  restCompared_.remove_prefix(count);
}

void LineReplacer::DeleteAt(std::size_t index) {
  const std::size_t size = search_.Text().size();
  const std::size_t behind = index + size;
  bool spaceBefore = index > 0 && At(index - 1) == u' ';
  bool spaceAfter = behind < Length() && At(behind) == u' ';
  if (size == 1) {
    spaceAfter = spaceAfter && spaceBefore;
    spaceBefore = false;
  }
  PassTo(index);
  // An instance that begins in what is done with reaches into the rest.
  const std::size_t inDone = done_.size() - index;
  Drop(size - inDone + (spaceAfter && !spaceBefore ? 1 : 0));
  done_.resize(index - (spaceBefore ? 1 : 0));
  doneCompared_.resize(done_.size());
}
