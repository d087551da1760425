#include "platform/system/files.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include "platform/system/posix/mounts.h"
#include "platform/system/posix/sys.h"
#include "platform/system/signals.h"
#include "platform/system/text_file.h"
#include "platform/system/work_file.h"
#include "platform/test_folder.h"

namespace {

namespace fs = std::filesystem;

std::string ReadAll(const String& path) {
  InputFile file(path);
  std::string content(file.Size(), '\0');
  EXPECT_EQ(file.Read(content.data(), content.size() + 1), content.size());
  return content;
}

TEST(Errors, HaveTheirNumbers) {
  const std::pair<int, int> cases[]{{ENOENT, 53}, {ENOTDIR, 76},      {EACCES, 70}, {EROFS, 70},
                                    {ENOSPC, 61}, {EDQUOT, 61},       {EIO, 57},    {EINVAL, 52},
                                    {ENOMEM, 7},  {ENAMETOOLONG, 52}, {EISDIR, 75}, {EMFILE, 75}};
  for (const auto& [error, code] : cases) EXPECT_EQ(CodeFromErrno(error), code) << error;
  EXPECT_EQ(CodeFromException(std::bad_alloc()), 7);
  EXPECT_EQ(CodeFromException(RuntimeError(62, "end")), 62);
}

// What can't be read as a file, and the error that says so. None of them may wait.
TEST(ByteFile, RefusesWhatIsNoFile) {
  const TestFolder folder;
  folder.Put("file", "text");
  ASSERT_EQ(mkfifo((folder.Path / "pipe").c_str(), 0600), 0);
  sockaddr_un address{AF_UNIX, {}};
  (folder.Path / "socket").native().copy(address.sun_path, sizeof address.sun_path - 1);
  const sys::Descriptor socketFile(socket(AF_UNIX, SOCK_STREAM, 0));
  ASSERT_EQ(bind(socketFile.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);

  const struct {
    String Path;
    int ReadCode;
    int WriteCode;
    std::string Cause;
  } cases[]{
      {folder / "", 75, 75, "is a folder"},
      {folder / "pipe", 75, 75, "is not a regular file"},
      {folder / "socket", 75, 75, "is not a regular file"},
      {u"/dev/null", 75, 75, "is not a regular file"},
      {folder / "missing/name", 76, 76, "No such file"},
      {folder / "missing", 53, 0, "No such file"},
      {folder / "file/name", 76, 76, "Not a directory"},
      {folder / std::string(300, 'n'), 52, 52, "too long"},
      {(folder / "file") + String(1, u'\0') + u"x", 52, 52, "Invalid argument"},
      {u"", 53, 53, "No such file"},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(ToUtf8(each.Path));
    try {
      TestReadable(each.Path);
      ADD_FAILURE();
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Code, each.ReadCode);
      EXPECT_NE(std::string(error.what()).find(each.Cause), std::string::npos) << error.what();
      EXPECT_NE(std::string(error.what()).find(ToUtf8(each.Path).c_str()), std::string::npos);
    }
    EXPECT_EQ(CodeOf([&] { OutputFile(each.Path).Write("x"); }), each.WriteCode);
  }
  EXPECT_EQ(folder.Get("file"), "text");
}

TEST(WorkFile, IsReadAsItWasWrittenAndHasNoName) {
  // The second time on a file system that knows no nameless files.
  for (const int error : {0, EOPNOTSUPP}) {
    const TestFolder folder;
    int opened = 0;
    sys::OnCall = [&](const char* call) {
      return call == std::string("open") && ++opened % 2 == 1 ? error : 0;
    };
    WorkFile work = WorkFile(folder / "");
    const auto read = [](InputFile file) {
      std::string content;
      file.ReadRest([&](std::string_view bytes) { content += bytes; });
      return content;
    };
    const std::string content(300'001, 'c');
    for (const std::string& round : {content, std::string("shorter"), std::string()}) {
      OutputFile output = work.Write();
      output.Write(round.substr(0, round.size() / 2));
      output.Write(round.substr(round.size() / 2));
      output.Close();
      InputFile first = work.Read();
      char byte;
      EXPECT_EQ(first.Read(&byte, 1), round.empty() ? 0u : 1u);
      EXPECT_TRUE(read(work.Read()) == round) << "each has its own place";
      EXPECT_TRUE(read(std::move(first)) == (round.empty() ? "" : round.substr(1)));
    }
    TextWriter writer(work.Write(), {});
    writer.Print(u"\u0416");
    writer.Print(u"\xD800");
    writer.Close();
    EXPECT_EQ(writer.Format().Encoding, Encoding::Utf16Le);
    WorkFile moved = std::move(work);
    EXPECT_EQ(TextReader(moved.Read()).ReadLine(), u"\u0416");
    EXPECT_TRUE(folder.Names().empty());
    sys::OnCall = nullptr;
  }
}

// What stands by the name of a work file may be somebody else's trap.
TEST(ByteFile, IsNeverWrittenWhereOthersCanReadOrChangeIt) {
  const std::pair<const char*, std::function<void(const fs::path&)>> traps[]{
      {"link", [](const fs::path& path) { fs::create_symlink("precious", path); }},
      {"dangling link", [](const fs::path& path) { fs::create_symlink("nowhere", path); }},
      {"hard link",
       [](const fs::path& path) { fs::create_hard_link(path.parent_path() / "precious", path); }},
      {"readable", [](const fs::path& path) { std::ofstream(path) << "text"; }},
      {"foreign", [](const fs::path& path) {
         std::ofstream(path) << "text";
         fs::permissions(path, fs::perms(0600));
         EXPECT_EQ(chown(path.c_str(), geteuid() == 0 ? 65534 : geteuid(), getegid()), 0);
       }}};
  for (const auto& [name, plant] : traps) {
    SCOPED_TRACE(name);
    const TestFolder folder;
    folder.Put("precious", "precious");
    fs::permissions(folder.Path / "precious", fs::perms(0600));
    plant(folder.Path / "work");
    OutputFile(folder / "work").Write("new");
    EXPECT_EQ(folder.Get("precious"), "precious");
    EXPECT_EQ(folder.Get("work"), "new");
    struct stat status;
    ASSERT_EQ(lstat((folder.Path / "work").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode, S_IFREG | 0600u);
    EXPECT_EQ(status.st_uid, geteuid());
    EXPECT_EQ(folder.Names(), (std::set<std::string>{"precious", "work"}));
  }
}

TEST(ByteFile, AWriteCutShortByTheSystemFails) {
  // The limit makes the kernel write a part first and refuse the rest.
  EXPECT_EQ(InChild([] {
              const TestFolder folder;
              PrepareProcess();
              const rlimit limit{1000, 1000};
              setrlimit(RLIMIT_FSIZE, &limit);
              OutputFile file(folder / "file");
              EXPECT_EQ(CodeOf([&] { file.Write(std::string(3000, 'x')); }), kDiskFull);
              EXPECT_EQ(folder.Get("file").size(), 1000u);
            }),
            0);
}

TEST(Files, NamesThatAreNotUtf8Survive) {
  const TestFolder folder;
  const std::string odd = "a\xFF\xC3(\xED\xA0\x80.txt";
  folder.Put(odd, "text");
  const auto names = FilesIn(folder / "");
  ASSERT_EQ(names.size(), 1u);
  EXPECT_EQ(ReadAll(folder / ToUtf8(names[0])), "text");
  DeleteFile(folder / odd);
  EXPECT_TRUE(folder.Names().empty());
  EXPECT_EQ(CodeOf([&] { DeleteFile(folder / odd); }), kFileNotFound);
  DeleteFileQuietly(folder / odd);
}

TEST(Files, ListsSortWithoutCaseAndFollowLinks) {
  const TestFolder folder;
  for (const char* name : {"b.txt", "A.txt", "C.txt", ".hidden"}) folder.Put(name, "");
  fs::create_directory(folder.Path / "sub");
  fs::create_directory_symlink("sub", folder.Path / "Link");
  fs::create_symlink("b.txt", folder.Path / "d.txt");
  fs::create_symlink("nowhere", folder.Path / "dangling");
  ASSERT_EQ(mkfifo((folder.Path / "pipe").c_str(), 0600), 0);
  using Names = std::vector<String>;
  EXPECT_EQ(FilesIn(folder / ""), (Names{u".hidden", u"A.txt", u"b.txt", u"C.txt", u"d.txt"}));
  EXPECT_EQ(SubFolders(folder / ""), (Names{u"Link", u"sub"}));
  EXPECT_EQ(CodeOf([&] { FilesIn(folder / "missing"); }), kPathNotFound);
  EXPECT_EQ(CodeOf([&] { SubFolders(folder / "b.txt"); }), kPathNotFound);
  EXPECT_TRUE(FileExists(folder / "d.txt"));
  EXPECT_FALSE(FileExists(folder / "dangling"));
  EXPECT_FALSE(FileExists(folder / "sub"));
  EXPECT_TRUE(FolderExists(folder / "Link"));
}

TEST(Files, ReadOnlyIsTheWriteBits) {
  const TestFolder folder;
  folder.Put("file", "");
  const auto mode = [&] { return fs::status(folder.Path / "file").permissions(); };
  const struct {
    int Before, ReadOnly, Writable;
  } cases[]{{0666, 0444, 0644}, {0755, 0555, 0755}, {0420, 0400, 0600}};
  for (const auto& each : cases) {
    fs::permissions(folder.Path / "file", fs::perms(each.Before));
    EXPECT_FALSE(IsReadOnly(folder / "file"));
    SetReadOnly(folder / "file", true);
    EXPECT_EQ(mode(), fs::perms(each.ReadOnly));
    EXPECT_TRUE(IsReadOnly(folder / "file"));
    SetReadOnly(folder / "file", false);
    EXPECT_EQ(mode(), fs::perms(each.Writable));
  }
  EXPECT_EQ(CodeOf([&] { IsReadOnly(folder / "missing"); }), kFileNotFound);
}

TEST(Files, CopyTakesTheContentOnly) {
  const TestFolder folder;
  const std::string content(300'001, 'c');
  folder.Put("from", content);
  folder.Put("longer", content + content);
  fs::create_symlink("from", folder.Path / "same");
  CopyFileContent(folder / "from", folder / "longer");
  CopyFileContent(folder / "from", folder / "new");
  CopyFileContent(folder / "from", folder / "same");
  FlushFile(folder / "new");
  for (const char* name : {"from", "longer", "new"}) EXPECT_EQ(folder.Get(name), content) << name;
  EXPECT_EQ(fs::status(folder.Path / "new").permissions(), fs::perms(0600));
  EXPECT_EQ(CodeOf([&] { CopyFileContent(folder / "missing", folder / "new"); }), kFileNotFound);
  EXPECT_EQ(folder.Get("new"), content);
}

TEST(Files, MakesFolders) {
  const TestFolder folder;
  EXPECT_EQ(CodeOf([&] { MakeFolder(folder / "a/b", 0700); }), kPathNotFound);
  MakeFolders(folder / "a/b/c", 0700);
  MakeFolders(folder / "a/b/c/", 0700);
  EXPECT_EQ(fs::status(folder.Path / "a/b").permissions(), fs::perms(0700));
  EXPECT_TRUE(CanWriteIn(folder / "a/b/c"));
  EXPECT_EQ(CodeOf([&] { MakeFolder(folder / "a", 0700); }), kPathFileAccess);
  folder.Put("file", "");
  EXPECT_FALSE(CanWriteIn(folder / "file"));
  EXPECT_NE(CodeOf([&] { MakeFolders(folder / "file/b", 0700); }), 0);
}

TEST(Paths, ComeApartAndTogether) {
  EXPECT_EQ(JoinPath(u"/a", u"b"), u"/a/b");
  EXPECT_EQ(JoinPath(u"/a/", u"/b"), u"/a/b");
  EXPECT_EQ(JoinPath(u"/", u"b"), u"/b");
  EXPECT_EQ(JoinPath(u"", u"b"), u"b");
  const struct {
    String Path, Folder, Name;
  } cases[]{{u"/a/b", u"/a", u"b"}, {u"/a", u"/", u"a"},   {u"a", u".", u"a"},
            {u"/a/", u"/a", u""},   {u"a//b", u"a", u"b"}, {u"/", u"/", u""}};
  for (const auto& each : cases) {
    EXPECT_EQ(FolderOf(each.Path), each.Folder);
    EXPECT_EQ(FileNameOf(each.Path), each.Name);
  }
}

TEST(Paths, AreMadeAbsolute) {
  const TestFolder folder;
  fs::create_directories(folder.Path / "deep/er");
  fs::create_directory_symlink("deep/er", folder.Path / "link");
  const String before = CurrentFolder();
  SetCurrentFolder(folder / "deep");
  const std::pair<String, String> cases[]{{u"x", folder / "deep/x"},
                                          {u"./x//y/.", folder / "deep/x/y"},
                                          {u"../x", folder / "x"},
                                          {u"", folder / "deep"},
                                          {u"/../x/", u"/x"},
                                          {folder / "link/f", folder / "link/f"},
                                          // Above the folder that the link leads to.
                                          {folder / "link/../f", folder / "deep/f"}};
  for (const auto& [path, absolute] : cases) EXPECT_EQ(AbsolutePath(path), absolute);
  SetCurrentFolder(before);
  EXPECT_EQ(CodeOf([&] { SetCurrentFolder(folder / "missing"); }), kPathNotFound);
  EXPECT_TRUE(FileExists(JoinPath(ProgramFolder(), u"test_platform")));
}

TEST(Mounts, AreThoseOfUsers) {
  const std::string table =
      "proc /proc proc rw 0 0\n"
      "/dev/sda1 / ext4 rw 0 0\n"
      "/dev/sda2 /boot/efi vfat rw 0 0\n"
      "tmpfs /mnt/memory tmpfs rw 0 0\n"
      "/dev/sdb1 /media/me/My\\040Stick\\134 vfat rw 0 0\n"
      "/dev/sdc1 /mnt ext4 rw 0 0\n"
      "/dev/sdd1 /mnted ext4 rw 0 0\n"
      "server:/home /srv/home nfs4 rw 0 0\n"
      "server:/home /srv/home nfs4 rw 0 0\n"
      "broken line\n"
      "/dev/sr0 /run/media/me/CD\\04 iso9660 ro 0 0";
  EXPECT_EQ(UserMounts(table), (std::vector<std::string>{"/media/me/My Stick\\", "/mnt",
                                                         "/srv/home", "/run/media/me/CD\\04"}));
  EXPECT_EQ(Volumes().front(), u"/");
  EXPECT_FALSE(SystemMounts().empty());
}

}  // namespace
