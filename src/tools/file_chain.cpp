#include "tools/file_chain.h"

#include "platform/system/files.h"

void ChainStep(SharedFields& fields) {
  if (!fields.BatchMode) return;
  fields.InputFileNum.reset();
  CopyFileContent(fields.TempFile1, fields.TempFile4);
  ReadResult(fields, fields.TempFile4);
}

void ReadResult(SharedFields& fields, const String& copy) {
  fields.InputFileNum = fields.OutputFormat
                            ? std::make_unique<TextReader>(copy, *fields.OutputFormat)
                            : std::make_unique<TextReader>(copy);
}
