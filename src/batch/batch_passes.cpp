#include "batch/batch_passes.h"

#include <algorithm>
#include <exception>

#include "batch/ascii_test.h"
#include "batch/new_names.h"
#include "custom/custom_tool_record.h"
#include "editor/encryption_marker.h"
#include "platform/system/file_copy.h"
#include "platform/system/files.h"
#include "text/runtime_error.h"

namespace {

// By the name of the menu entry; 0 where there is none.
int NumberOf(StringView name, const std::map<int, String>& names) {
  for (const auto& [number, known] : names) {
    if (known == name) return number;
  }
  return 0;
}

bool HoldsText(StringView extension) {
  static constexpr StringView kText[] = {u"HTML", u"HTM", u"TXT", u""};
  return std::find(std::begin(kText), std::end(kText), UCase(extension)) != std::end(kText);
}

}  // namespace

// The path that the result of a pass goes to, from pass to pass.
class BatchPasses::Names {
 public:
  Names(const String& file, const BatchOrder& order) : file_(file), order_(order) {}

  void BeginPass(std::size_t pass) {
    if (Renamed) return;
    Current = order_.AddPrefix.empty() ? file_ : WithPrefix(file_, order_.AddPrefix);
    if (pass == 0 && !order_.SaveToLocation.empty())
      Current = JoinPath(order_.SaveToLocation, FileNameOf(file_));
  }
  // What a pass reads.
  const String& Source() const { return Renamed ? Current : file_; }
  void RenameTo(StringView extension) {
    Current = WithExtension(Current, extension);
    Renamed = true;
  }

  String Current;
  bool Renamed = false;

 private:
  const String& file_;
  const BatchOrder& order_;
};

BatchPasses::BatchPasses(const ToolContext& context, CustomToolRunner& runner,
                         const BatchOrder& order, const std::map<int, String>& customToolNames)
    : context_(context), runner_(runner), order_(order) {
  std::map<const SettingKind*, ToolSettings> given;
  for (std::size_t i = 0; i < kPasses; ++i) {
    const BatchPass& wanted = order.Passes[i];
    Pass& pass = passes_[i];
    pass.Single = FindTool(wanted.Tool);
    if (pass.Single != nullptr) {
      // Settings once given stand in the window for the passes behind.
      if (const SettingKind* kind = pass.Single->Settings) {
        if (wanted.Settings) given.insert_or_assign(kind, *wanted.Settings);
        const auto known = given.find(kind);
        pass.Settings =
            known != given.end() ? known->second : kind->Form(context_.Tools).Settings();
      }
    } else if (wanted.Tool.starts_with(kCustomToolPrefix)) {
      const String name = wanted.Tool.substr(kCustomToolPrefix.size());
      const int number = NumberOf(name, customToolNames);
      if (number == 0)
        throw RuntimeError(kInvalidCall, "There is no custom tool named " + ToUtf8(name));
      pass.Custom.emplace();
      pass.Custom->Tool = ReadCustomTool(context.Fields.CustomToolFile, number);
      pass.Custom->Number = static_cast<int>(i) + 1;
    }
  }
  const SharedFields& fields = context.Fields;
  for (const StringView name :
       {u"FLURNOPT.DAT", u"FLURNCUS.DAT", u"WFPRINTSET.DAT", u"WFOPTDFA.DAT"})
    ownFiles_.insert(ResolvedPath(JoinPath(fields.AppFolder, name)));
  ownFolder_ = ResolvedPath(JoinPath(fields.AppFolder, u"MFF-Backups")) + kPathSeparator;
}

void BatchPasses::TestNotOwn(const String& path, const String& resolved) const {
  if (ownFiles_.contains(resolved) || resolved.starts_with(ownFolder_))
    throw RuntimeError(kPermissionDenied, ToUtf8(path) + ": one of the program's own files");
}

void BatchPasses::Test(const String& file, const String& resolved) {
  file_ = source_ = file;
  checkingRunProgram_ = false;
  InputFile input(file);
  if (input.Size() == 0) throw RuntimeError(kInputPastEnd, ToUtf8(file) + ": the file is empty");
  if (HoldsEncryptionMarker(input))
    throw RuntimeError(kEncryptedFile, ToUtf8(file) + ": the file is encrypted");
  TestNotOwn(file, resolved);
  if (WritesInPlace()) TestMayBeWritten(file);
}

void BatchPasses::TestMayBeWritten(const String& path) const {
  if (StampOf(path) && IsReadOnly(path))
    throw RuntimeError(kPermissionDenied, ToUtf8(path) + ": the file is read-only");
}

void BatchPasses::AskAboutText(const String& file, ASCIIWarn& warn) const {
  if (HoldsText(BatchFileExt(FirstTarget(file)))) return;
  TextReader reader(file);
  if (LooksLikeAscii(reader) || (order_.AnyText && IsUnicodeText(reader))) return;
  if (!warn.Proceeds(file))
    throw RuntimeError(kNonAsciiRefused, ToUtf8(file) + ": the file appears not to be text");
}

String BatchPasses::FirstTarget(const String& file) const {
  Names names(file, order_);
  names.BeginPass(0);
  return names.Current;
}

void BatchPasses::RunPass(Pass& pass, FileRun& run, Names& names,
                          std::vector<BatchResult>& results) {
  context_.File = &run;
  if (pass.Custom) {
    const auto rename = [&, before = run.ResultCount()](StringView extension) {
      // What the steps in front have made stays under the name so far.
      const bool anyInFront = run.ResultCount() > before + 1;
      if (anyInFront) Put(results, {names.Current, names.Renamed, run.Source()});
      names.RenameTo(extension);
    };
    pass.Custom->RenameToTxt = [&rename] { rename(u".txt"); };
    pass.Custom->RenameToHtml = [&rename] { rename(u".html"); };
    runner_.RunOnFile(context_, *pass.Custom);
    return;
  }
  pass.Single->Run(context_, pass.Settings);
  if (pass.Single->StoredName == kFromHtml) names.RenameTo(u".txt");
  if (pass.Single->StoredName == kToHtml) names.RenameTo(u".html");
}

void BatchPasses::Put(std::vector<BatchResult>& results, BatchResult result) const {
  // The file itself has been tested.
  const bool isFile = result.Path == file_;
  if (!isFile) TestNotOwn(result.Path, ResolvedPath(result.Path));
  if (!isFile || !WritesInPlace()) TestMayBeWritten(result.Path);
  std::erase_if(results, [&](const BatchResult& old) { return old.Path == result.Path; });
  results.push_back(std::move(result));
}

void BatchPasses::Run(const String& file, std::vector<BatchResult>& results) {
  // What a file before has left there is no business of this one.
  context_.Tools.Replacing = {};
  Names names(file, order_);
  std::optional<FileRun> run;
  // What the input of `run` would be, if it went on.
  String read;
  for (std::size_t i = 0; i < kPasses; ++i) {
    names.BeginPass(i);
    Pass& pass = passes_[i];
    if (!pass.Single && !pass.Custom) continue;
    source_ = names.Source();
    if (run && read == source_)
      run->Next();
    else
      run.emplace(file, context_.Fields.WorkFolder);
    const int before = run->ResultCount();
    std::exception_ptr failure;
    try {
      RunPass(pass, *run, names, results);
      if (run->ResultCount() == before)
        throw RuntimeError(kFileNotFound, ToUtf8(source_) + ": the tools have made no result");
    } catch (...) {
      failure = std::current_exception();
      checkingRunProgram_ = run->CheckingRunProgram;
    }
    read = names.Current;
    // The steps in front of one that fails have done their work.
    if (run->ResultCount() > before) Put(results, {read, names.Renamed, run->Result()});
    if (failure) std::rethrow_exception(failure);
  }
}
