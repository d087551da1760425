#include "tools/file_run.h"

#include <utility>

FileRun::FileRun(const String& path, const String& workFolder)
    : path_(path), workFolder_(workFolder) {
  InputFile file(path);
  size_ = file.Size();
  input_.emplace(std::move(file));
}

InputFile FileRun::Source() const { return source_ ? source_->Read() : InputFile(path_); }

void FileRun::Write(const std::function<void(TextWriter&)>& write) {
  hasResult_ = false;
  result_.reset();
  if (!destination_) result_.emplace(workFolder_, size_);
  TextWriter writer(destination_ ? *std::exchange(destination_, std::nullopt) : result_->Write(),
                    input_->Format());
  write(writer);
  writer.Close();
  resultFormat_ = writer.Format();
  hasResult_ = true;
  ++resultCount_;
}

void FileRun::Take(InputFile file) {
  hasResult_ = false;
  result_.emplace(workFolder_, file.Size());
  OutputFile out = result_->Write();
  file.ReadRest([&out](std::string_view bytes) { out.Write(bytes); });
  out.Close();
  resultFormat_.reset();
  hasResult_ = true;
  ++resultCount_;
}

void FileRun::Next() {
  if (!std::exchange(hasResult_, false)) return;
  source_ = std::exchange(result_, std::nullopt);
  if (resultFormat_)
    input_.emplace(source_->Read(), *resultFormat_);
  else
    input_.emplace(source_->Read());
}
