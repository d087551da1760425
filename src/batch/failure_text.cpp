#include "batch/failure_text.h"

#include "text/runtime_error.h"

namespace {

#define RESTORED                                                                                 \
  u"The Multiple File Flurn has been aborted and any files changed have been restored from the " \
  u"backup."

struct Row {
  int Code;
  StringView Log;
  StringView Abort = {};
  bool CheckingRunProgram = false;
};

constexpr Row kRows[] = {
    {kOutOfMemory, u"Out of Memory - File too large to process"},
    {kInvalidCall,
     u"#5 - Something unexpected happened - you might want to try restarting the program and just "
     u"converting this file alone.  There may be a bug in the programming."},
    {kSubscriptOutOfRange,
     u"Unknown - but likely you are trying to change too many files or the file is too large to "
     u"process."},
    {kNoBodyTag,
     u"No <BODY> tag found.  In order to convert from an HTML file to a text file, there must be a "
     u"<BODY> tag in the file."},
    {kEmptyAlternative,
     u"One of your <OR> statements results to nothing - meaning that there's nothing to search "
     u"for.  The search and replace on this file was not completed.",
     u"Error: One of your <OR> statements results to nothing - meaning that there's nothing to "
     u"search for.  " RESTORED},
    {kBadCode,
     u"One or more of your ASCII codes is invalid.  They can only be between 0-255.  Make sure you "
     u"separate each code by a space.",
     u"Error: One or more of your ASCII codes is invalid.  They can only be between 0-255.  Make "
     u"sure you separate each code by a space.  " RESTORED},
    {kOnlyReturns, u"You cannot search using only carriage returns.",
     u"Error: You cannot search using only carriage returns. " RESTORED},
    {kNonAsciiRefused,
     u"Appears not to be an ASCII file.  User cancelled flurn operation on this file and file was "
     u"not changed."},
    {kProgramDidNotReturn,
     u"Control has not returned from the program specified in Run Program. The Multiple File Flurn "
     u"has been aborted.",
     u"Error: Control has not returned from the program specified in Run Program. " RESTORED},
    {kEncryptedFile, u"File is encrypted and cannot be flurned."},
    {kFileNotFound,
     u"The program specified in the Run Program tool does not exist or cannot be accessed. The "
     u"Multiple File Flurn has been aborted.",
     u"The program specified in the Run Program tool does not exist or cannot be "
     u"accessed. " RESTORED,
     true},
};
#undef RESTORED

// The cause without the path in front of it, which stands in the report already.
String CauseOf(const std::exception& error, const String& file) {
  String text = FromUtf8(error.what());
  if (text.starts_with(file + u": ")) text.erase(0, file.size() + 2);
  return text;
}

}  // namespace

BatchFailure FailureOf(const std::exception& error, const String& file, bool checkingRunProgram) {
  BatchFailure failure{.Code = CodeFromException(error),
                       .File = file,
                       .LogText = {},
                       .AbortText = {},
                       .StatusText = {}};
  failure.StatusText =
      failure.Code == kNonAsciiRefused
          ? u"Skipping file: " + file + String(kCrLf) + u"File appears to be non-ASCII."
          : u"Error encountered with: " + file + String(kCrLf) + u"Skipping File.";
  for (const Row& row : kRows) {
    if (row.Code != failure.Code || (row.CheckingRunProgram && !checkingRunProgram)) continue;
    failure.LogText = row.Log;
    failure.AbortText = row.Abort;
    return failure;
  }
  failure.LogText = CauseOf(error, file);
  return failure;
}
