#pragma once
// One line of a run's history: what became of one path.

#include <string>
#include <string_view>

#include "text/text.h"

struct HistoryRecord {
  enum class Kind {
    Backup,   // the file at Path was copied to BackupName before the run changed it
    Removal,  // the run made the file at Path
    Unclear,  // holds both tokens; readers pass over it
    None,     // holds neither token
  };

  HistoryRecord::Kind Kind = Kind::None;
  String Path;
  // A name without a folder, unless the line was tampered with; see IsBackupName.
  String BackupName;
};

// Tokens are upper case; what restores files accepts any case.
enum class TokenCase { AsItStands, Any };

// Reads a line without its end. Paths are bytes of the file system.
HistoryRecord ParseRecord(std::string_view line, TokenCase tokenCase);
// The line with its CR LF.
std::string FormatRecord(const HistoryRecord& record);

// Whether a path, or the name of a run, can stand in a history and be read back: it has no line
// break and no token, in any case, in it.
bool IsRecordable(StringView text);
// RuntimeError 52 for a path that is not. `kind` counts too: readers trim the path of a removal.
void RequireRecordable(const String& path, enum HistoryRecord::Kind kind);
// Whether a backup name names an entry of the run's own folder.
bool IsBackupName(StringView name);
