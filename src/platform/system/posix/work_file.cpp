#include "platform/system/work_file.h"

#include "platform/system/files.h"
#include "platform/system/posix/scratch_file.h"
#include "platform/system/posix/sys.h"

WorkFile::WorkFile(const String& folder)
    : file_(OpenNameless(folder)), path_(JoinPath(folder, u"work file")) {
  if (!file_) sys::Throw(folder);
}

OutputFile WorkFile::Write() {
  if (Read().Size() > 0) sys::Check(sys::Truncate(file_->Get(), 0), path_);
  return {file_, path_};
}
