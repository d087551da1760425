#include "state/data_files.h"

#include <algorithm>
#include <array>

#include "platform/system/files.h"

namespace {

struct DataFile {
  String SharedFields::*Path;
  StringView Name;
};

constexpr std::array kTemporary{
    DataFile{&SharedFields::TempFile1, u"WFTEMP1.DAT"},
    DataFile{&SharedFields::TempFile2, u"WFTEMP2.DAT"},
    DataFile{&SharedFields::TempFile3, u"WFTEMP3.DAT"},
    DataFile{&SharedFields::TempFile4, u"WFTEMP4.DAT"},
    DataFile{&SharedFields::TempFile5, u"WFTEMP5.DAT"},
    DataFile{&SharedFields::HtmlTempFile, u"WFHTMLTEMP.html"},
};

constexpr std::array kLasting{
    DataFile{&SharedFields::OptionsFile, u"FLURNOPT.DAT"},
    DataFile{&SharedFields::CustomToolFile, u"FLURNCUS.DAT"},
};

bool IsInstalledBinFolder(StringView folder) {
  const StringView name = FileNameOf(folder);
  return name == u"bin" || name == u"sbin" || name == u"games";
}

}  // namespace

String FindAppFolder() {
  if (const String home = Environment("WORDFLURN_HOME"); !home.empty()) return AbsolutePath(home);
  const String program = ProgramFolder();
  if (!IsInstalledBinFolder(program) && CanWriteIn(program)) return program;
  String data = Environment("XDG_DATA_HOME");
  if (data.empty() || data.front() != kPathSeparator)
    data = JoinPath(HomeFolder(), u".local/share");
  return JoinPath(data, u"wordflurn");
}

void SetDataPaths(SharedFields& fields, const String& appFolder, const String& workFolder) {
  fields.AppFolder = appFolder;
  fields.WorkFolder = workFolder;
  for (const DataFile& file : kTemporary) fields.*file.Path = JoinPath(workFolder, file.Name);
  for (const DataFile& file : kLasting) fields.*file.Path = JoinPath(appFolder, file.Name);
}

bool IsTemporaryFile(StringView name) {
  return std::any_of(kTemporary.begin(), kTemporary.end(),
                     [&](const DataFile& file) { return file.Name == name; });
}

void DeleteTemporaryFiles(const SharedFields& fields) {
  for (const DataFile& file : kTemporary) DeleteFileQuietly(fields.*file.Path);
}
