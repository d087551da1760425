#include "batch/history_record.h"

#include "platform/system/files.h"
#include "text/runtime_error.h"

namespace {

constexpr StringView kTo = u"<TO>";
constexpr StringView kRemoveFile = u"<REMOVEFILE>";

}  // namespace

HistoryRecord ParseRecord(std::string_view bytes, TokenCase tokenCase) {
  const String line = FromUtf8(bytes);
  const String& searched = tokenCase == TokenCase::Any ? UCase(line) : line;
  const std::size_t to = searched.find(kTo);
  const std::size_t remove = searched.find(kRemoveFile);
  using Kind = enum HistoryRecord::Kind;
  if (to == String::npos && remove == String::npos) return {Kind::None, {}, {}};
  if (to != String::npos && remove != String::npos) return {Kind::Unclear, {}, {}};
  if (to != String::npos) return {Kind::Backup, line.substr(0, to), line.substr(to + kTo.size())};
  return {Kind::Removal, String(Trim(line.substr(remove + kRemoveFile.size()))), {}};
}

std::string FormatRecord(const HistoryRecord& record) {
  String line;
  if (record.Kind == HistoryRecord::Kind::Removal)
    line.append(kRemoveFile).append(record.Path);
  else
    line.append(record.Path).append(kTo).append(record.BackupName);
  return ToUtf8(line) + "\r\n";
}

bool IsRecordable(StringView text) {
  if (text.find_first_of(u"\r\n") != StringView::npos) return false;
  const String upper = UCase(text);
  return !Contains(upper, kTo) && !Contains(upper, kRemoveFile);
}

void RequireRecordable(const String& path, enum HistoryRecord::Kind kind) {
  const bool trimmed = kind == HistoryRecord::Kind::Removal && Trim(path).size() != path.size();
  if (IsRecordable(path) && !trimmed) return;
  throw RuntimeError(kBadFileName,
                     ToUtf8(path) + ": a file of this name can't be recorded for undo");
}

bool IsBackupName(StringView name) {
  return !name.empty() && name != u"." && name != u".." && !Contains(name, u"/") &&
         name.find(u'\0') == StringView::npos;
}
