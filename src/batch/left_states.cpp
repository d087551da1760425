#include "batch/left_states.h"

#include <bit>
#include <charconv>
#include <cstring>

#include "platform/system/byte_blocks.h"
#include "platform/system/files.h"
#include "text/runtime_error.h"

namespace {

constexpr std::string_view kNoFile = "-";

// Cuts a number and the blank behind it off the front.
template <class Number>
bool TakeNumber(std::string_view& line, Number& number, int base = 10) {
  const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), number, base);
  const std::size_t size = static_cast<std::size_t>(end - line.data());
  if (error != std::errc() || size == line.size() || *end != ' ') return false;
  line.remove_prefix(size + 1);
  return true;
}

void TakeEntry(std::string_view line, LeftStates& states) {
  std::optional<LeftState> state;
  if (line.starts_with(kNoFile) && line.substr(kNoFile.size()).starts_with(' ')) {
    line.remove_prefix(kNoFile.size() + 1);
  } else {
    state.emplace();
    if (!TakeNumber(line, state->Stamp.Size) || !TakeNumber(line, state->Stamp.Time) ||
        !TakeNumber(line, state->Checksum, 16))
      return;
  }
  states.ByPath.insert_or_assign(FromUtf8(line), LeftStates::Entry{state, states.Count++});
}

std::uint64_t ChecksumOf(const String& path) {
  Checksum sum;
  InputFile(path).ReadRest([&](std::string_view bytes) { sum.Add(bytes); });
  return sum.Value();
}

}  // namespace

void Checksum::AddWord(std::uint64_t word) {
  constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15;
  sum_ = std::rotl(sum_ ^ word, 27) * kOdd;
}

void Checksum::Add(std::string_view bytes) {
  constexpr std::size_t kWord = sizeof(std::uint64_t);
  size_ += bytes.size();
  const auto wordAt = [](const char* from) {
    std::uint64_t word;
    std::memcpy(&word, from, kWord);
    return word;
  };
  if (!rest_.empty()) {
    const std::size_t missing = std::min(kWord - rest_.size(), bytes.size());
    rest_ += bytes.substr(0, missing);
    bytes.remove_prefix(missing);
    if (rest_.size() < kWord) return;
    AddWord(wordAt(rest_.data()));
    rest_.clear();
  }
  for (; bytes.size() >= kWord; bytes.remove_prefix(kWord)) AddWord(wordAt(bytes.data()));
  rest_ = bytes;
}

std::uint64_t Checksum::Value() const {
  Checksum last = *this;
  for (const char byte : rest_) last.AddWord(static_cast<unsigned char>(byte));
  last.AddWord(size_);
  return last.sum_ ^ (last.sum_ >> 31);
}

std::optional<LeftState> StateOf(const String& path) {
  const std::optional<FileStamp> stamp = StampOf(path);
  if (!stamp) return {};
  return LeftState{*stamp, ChecksumOf(path)};
}

std::string FormatLeftState(const String& path, const std::optional<LeftState>& state) {
  std::string line(kNoFile);
  if (state) {
    char sum[17];
    const auto end = std::to_chars(sum, sum + sizeof sum, state->Checksum, 16).ptr;
    line = std::to_string(state->Stamp.Size) + ' ' + std::to_string(state->Stamp.Time) + ' ' +
           std::string(sum, end);
  }
  return line + ' ' + ToUtf8(path) + "\r\n";
}

LeftStates ReadLeftStates(const String& folder) {
  LeftStates states;
  try {
    InputFile file(JoinPath(folder, kLeftStatesName));
    states.Kept = true;
    ReadBlocks(file, [&](std::string_view bytes, bool) {
      std::size_t at = 0;
      for (std::size_t end; (end = bytes.find("\r\n", at)) != std::string_view::npos; at = end + 2)
        TakeEntry(bytes.substr(at, end - at), states);
      // A line longer than any that was written: nothing more is worth reading.
      return bytes.size() - at > kBlockSize / 4 ? bytes.size() : at;
    });
  } catch (const RuntimeError&) {
    // What can't be read was not kept.
  }
  return states;
}

bool IsAsLeft(const String& path, const std::optional<LeftState>& left) {
  const std::optional<FileStamp> stamp = StampOf(path);
  if (!stamp || !left) return !stamp && !left;
  if (stamp->Size != left->Stamp.Size) return false;
  return stamp->Time == left->Stamp.Time || ChecksumOf(path) == left->Checksum;
}
