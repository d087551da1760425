#pragma once
// A failure with a number. Callers that know what to do with a number test Code; what() is for a
// person and names the file and the cause.

#include <exception>
#include <stdexcept>
#include <string>

enum ErrorCode : int {
  kInvalidCall = 5,
  kOverflow = 6,
  kOutOfMemory = 7,
  kSubscriptOutOfRange = 9,
  kBadFileName = 52,
  kFileNotFound = 53,
  kDeviceIoError = 57,
  kDiskFull = 61,
  kInputPastEnd = 62,
  kPermissionDenied = 70,
  kPathFileAccess = 75,
  kPathNotFound = 76,
  kEncryptedFile = 249,
  kProgramDidNotReturn = 250,
  kNonAsciiRefused = 251,
  kOnlyReturns = 252,
  kBadCode = 253,
  kEmptyAlternative = 254,
  kNoBodyTag = 255,
  kDialogCancelled = 32755,
};

class RuntimeError : public std::runtime_error {
 public:
  RuntimeError(int code, const std::string& text) : std::runtime_error(text), Code(code) {}
  const int Code;
};

// The number that stands for a system error number (errno), the only such mapping. 75 where none
// fits better.
int CodeFromErrno(int error);
// A RuntimeError's own number, 7 for want of memory, 5 for any other exception.
int CodeFromException(const std::exception& error);
