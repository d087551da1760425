#pragma once
// Where a tool's lines come from and go to.

#include "text/text.h"

class LineSource {
 public:
  virtual ~LineSource() = default;
  virtual bool AtEnd() const = 0;
  // The next line without its end; an LF alone stays inside the line. The view holds until the next
  // call. RuntimeError 62 at the end.
  virtual StringView ReadLine() = 0;
  // The same line as a text of the caller's own.
  virtual String TakeLine() { return String(ReadLine()); }
  // At the end: gives up the memory that reading took. The last line's view holds no longer.
  virtual void Release() {}
};

class LineSink {
 public:
  virtual ~LineSink() = default;
  // The line and its end. A CR LF inside it is a line end as well.
  virtual void Print(StringView line) = 0;
  // Part of a line. A CR and its LF, and the halves of a surrogate pair, come in the same call.
  virtual void Write(StringView text) = 0;
};
