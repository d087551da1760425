#include "batch/undo_on_terminal.h"

#include <algorithm>
#include <ostream>
#include <unordered_map>
#include <unordered_set>

#include "batch/history.h"
#include "batch/undo_run.h"
#include "platform/system/file_copy.h"
#include "platform/system/files.h"
#include "text/runtime_error.h"

namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kFilesLeft = 2;

constexpr StringView kNoRuns = u"No Multiple File Flurn operations found.";

// With this system's line ends; what would move the cursor is a question mark.
std::string ForTerminal(String text) {
  std::erase(text, kCr);
  for (char16_t& c : text)
    if ((c < u' ' && c != kLf) || c == 0x7F) c = u'?';
  return ToUtf8(text);
}

void Complain(std::ostream& errors, const String& text) {
  errors << "wordflurn: " << ForTerminal(text) << '\n';
}

std::vector<BatchRun> NewestFirst(const BackupRing& ring) {
  std::vector<BatchRun> runs = ring.Runs();
  std::reverse(runs.begin(), runs.end());
  return runs;
}

std::size_t FilesOf(const BatchRun& run) {
  const History history = ReadHistory(run.Folder, TokenCase::Any);
  std::unordered_set<StringView> paths;
  for (const HistoryRecord& record : history.Records)
    if (record.Kind != HistoryRecord::Kind::Unclear) paths.insert(record.Path);
  return paths.size();
}

struct Request {
  std::size_t Number = 0;
  bool Force = false;
  std::vector<String> Files;
};

[[noreturn]] void Refuse(const String& text) { throw RuntimeError(kInvalidCall, ToUtf8(text)); }

Request Parse(std::span<const String> arguments) {
  Request request;
  bool filesOnly = false;
  for (const String& argument : arguments) {
    if (!filesOnly && argument == u"--force") {
      request.Force = true;
    } else if (!filesOnly && argument == u"--") {
      filesOnly = true;
    } else if (!filesOnly && argument.starts_with(u"--")) {
      Refuse(u"unknown option " + argument + u"; see wordflurn --help");
    } else if (request.Number == 0) {
      const bool isNumber = argument.find_first_not_of(u"0123456789") == String::npos;
      const double number = isNumber && argument.size() < 4 ? Val(argument) : 0;
      if (number < 1) Refuse(u"--undo needs the number of a run; see wordflurn --runs");
      request.Number = static_cast<std::size_t>(number);
    } else {
      request.Files.push_back(argument);
    }
  }
  if (request.Number == 0) Refuse(u"--undo needs the number of a run; see wordflurn --runs");
  return request;
}

// The paths in the history that the files stand under, under whatever names they are given.
std::unordered_set<String> PathsOf(const BatchRun& run, const std::vector<String>& files) {
  const History history = ReadHistory(run.Folder, TokenCase::Any);
  std::unordered_map<String, const HistoryRecord*> byKey;
  for (const HistoryRecord& record : history.Records)
    if (record.Kind != HistoryRecord::Kind::Unclear) byKey.emplace(FileKey(record.Path), &record);
  std::unordered_set<String> paths;
  for (const String& file : files) {
    const auto found = byKey.find(FileKey(file));
    if (found == byKey.end()) Refuse(file + u" is no file of this run");
    if (found->second->Kind == HistoryRecord::Kind::Removal)
      Refuse(file + u" was made by this run; it goes when the whole run is undone");
    paths.insert(found->second->Path);
  }
  return paths;
}

int Undo(BackupRing& ring, const Request& request, std::ostream& out, std::ostream& errors) {
  ring.FinishRotation();
  const std::vector<BatchRun> runs = NewestFirst(ring);
  if (runs.empty()) Refuse(String(kNoRuns));
  if (request.Number > runs.size())
    Refuse(u"There is no run " + Str(static_cast<long long>(request.Number)) +
           u"; see wordflurn --runs");
  const BatchRun& run = runs[request.Number - 1];
  UndoOrder order;
  if (!request.Files.empty()) order.Selected = PathsOf(run, request.Files);
  order.AskChanged = [&](const auto&) {
    return request.Force ? ChangedFiles::Restore : ChangedFiles::Leave;
  };
  const UndoOutcome outcome = UndoRun(run.Folder, order);
  const String report = UndoReport(outcome, order.Selected.has_value(), String::npos);
  if (!outcome.Failures.empty() || outcome.BadRecord) {
    Complain(errors, report);
    return kFailed;
  }
  if (!outcome.Left.empty()) {
    Complain(errors, report + String(kCrLf) + u"--force restores them, too.");
    return kFilesLeft;
  }
  return out << ForTerminal(report) << '\n' << std::flush ? kDone : kFailed;
}

}  // namespace

int ListRunsOnTerminal(const String& appFolder, const WhileLocked& whileLocked, std::ostream& out,
                       std::ostream& errors) {
  BackupRing ring(appFolder);
  try {
    whileLocked([&] { ring.FinishRotation(); });
  } catch (const RuntimeError&) {
    // Another program rotates just now, or the folders can't be moved: what is there is listed.
  }
  const std::vector<BatchRun> runs = NewestFirst(ring);
  if (runs.empty()) Complain(errors, String(kNoRuns));
  int status = kDone;
  for (std::size_t row = 0; row < runs.size(); ++row) try {
      const std::size_t files = FilesOf(runs[row]);
      out << (row < 9 ? " " : "") << row + 1 << "  " << ForTerminal(runs[row].Label) << "  "
          << files << (files == 1 ? " file\n" : " files\n");
    } catch (const RuntimeError& error) {
      Complain(errors, FromUtf8(error.what()));
      status = kFailed;
    }
  return out << std::flush ? status : kFailed;
}

int UndoOnTerminal(const String& appFolder, const WhileLocked& whileLocked,
                   std::span<const String> arguments, std::ostream& out, std::ostream& errors) {
  int status = kFailed;
  try {
    const Request request = Parse(arguments);
    BackupRing ring(appFolder);
    whileLocked([&] { status = Undo(ring, request, out, errors); });
  } catch (const std::exception& error) {
    Complain(errors, FromUtf8(error.what()));
    return kFailed;
  }
  return status;
}
