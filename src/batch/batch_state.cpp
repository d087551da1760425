#include "batch/batch_state.h"

void BatchState::ClearFailedFiles() {
  FailedFiles.clear();
  errorText_.clear();
}

void BatchState::NoteFailedFile(const String& listRow, const String& file, StringView cause) {
  FailedFiles.push_back(listRow);
  if (FailedFiles.size() > kMostErrorTexts) return;
  errorText_.append(file).append(u"......Error: ").append(cause).append(kCrLf);
}

String BatchState::BatchErrorText() const {
  if (FailedFiles.size() <= kMostErrorTexts) return errorText_;
  const std::size_t more = FailedFiles.size() - kMostErrorTexts;
  return errorText_ + u"and " + Str(static_cast<long long>(more)) +
         (more == 1 ? u" more file." : u" more files.") + String(kCrLf);
}

WhileLocked LockOf(const WorkFolder& folder) {
  return [&folder](const std::function<void()>& action) { folder.WhileLocked(action); };
}
