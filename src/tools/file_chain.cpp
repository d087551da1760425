#include "tools/file_chain.h"

#include "platform/files.h"

void ChainStep(SharedFields& fields) {
  if (!fields.BatchMode) return;
  fields.InputFileNum.reset();
  CopyFileContent(fields.TempFile1, fields.TempFile4);
  fields.InputFileNum = std::make_unique<TextReader>(fields.TempFile4);
}
