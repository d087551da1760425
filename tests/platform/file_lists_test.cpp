#include "platform/window/file_lists.h"

#include "platform/system/files.h"
#include "platform/test_folder.h"
#include "platform/window/natural_order.h"

namespace {

namespace fs = std::filesystem;
using Names = std::vector<String>;

TEST(DirList, ShowsTheWayDownAndWhatIsInside) {
  const TestFolder folder;
  fs::create_directories(folder.Path / "sub/two");
  fs::create_directories(folder.Path / "sub/One");
  fs::create_directories(folder.Path / "sub/.hidden");
  folder.Put("sub/file", "");
  DirListBox list;
  int changes = 0;
  list.OnChange = [&] { ++changes; };
  list.Go(folder / "sub/two/..");
  EXPECT_EQ(list.Path.Get(), folder / "sub");
  const auto rows = list.Rows.Get();
  EXPECT_EQ(rows.front(), (DirListBox::Row{u"/", u"/", 0}));
  const int depth = static_cast<int>(rows.size()) - 3;
  EXPECT_EQ(rows[rows.size() - 3], (DirListBox::Row{u"sub", folder / "sub", depth}));
  EXPECT_EQ(rows[rows.size() - 2], (DirListBox::Row{u"One", folder / "sub/One", depth + 1}));
  EXPECT_EQ(rows[rows.size() - 1], (DirListBox::Row{u"two", folder / "sub/two", depth + 1}));

  EXPECT_EQ(CodeOf([&] { list.Go(folder / "missing"); }), kPathNotFound);
  EXPECT_EQ(CodeOf([&] { list.Go(folder / "sub/file"); }), kPathNotFound);
  EXPECT_EQ(list.Rows.Get(), rows);
  EXPECT_EQ(list.Path.Get(), folder / "sub");
  EXPECT_EQ(changes, 1);
  list.Go(u"/");
  EXPECT_EQ(list.Rows.Get().front().Path, u"/");
  EXPECT_EQ(list.Rows.Get().at(1).Depth, 1);
}

TEST(DriveList, FindsTheVolumeOfAPath) {
  DriveListBox list;
  EXPECT_EQ(list.List.Get().front(), u"/");
  list.List = Names{u"/", u"/home/me", u"/mnt/disk"};
  int changes = 0;
  list.OnChange = [&] { ++changes; };
  const std::pair<String, String> cases[]{{u"/home/me/texts", u"/home/me"},
                                          {u"/mnt/disk", u"/mnt/disk"},
                                          {u"/mnt/disks/x", u"/"},
                                          {u"/mnt/disk/x", u"/mnt/disk"}};
  for (const auto& [path, volume] : cases) {
    list.Drive = path;
    EXPECT_EQ(list.Drive.Get(), volume);
  }
  EXPECT_EQ(changes, 4);
}

TEST(FileList, FollowsFolderAndPattern) {
  const TestFolder folder;
  for (const char* name : {"b.txt", "A.TXT", "c.html", ".d.txt"}) folder.Put(name, "");
  FileListBox list;
  list.Path = folder / "";
  EXPECT_EQ(list.List.Get(), (Names{u".d.txt", u"A.TXT", u"b.txt", u"c.html"}));
  list.Pattern = u"*.txt";
  EXPECT_EQ(list.List.Get(), (Names{u"A.TXT", u"b.txt"}));
  list.Selected = std::set<int>{1};
  list.Refresh();
  EXPECT_EQ(list.Selected.Get(), std::set<int>{1});
  folder.Put("0.txt", "");
  list.Refresh();
  EXPECT_EQ(list.ListCount(), 3);
  EXPECT_TRUE(list.Selected.Get().empty());
  list.Path = folder / "missing";
  EXPECT_EQ(list.ListCount(), 0);
}

TEST(FileList, NaturalOrderGoesByValueAndNotByCase) {
  const TestFolder folder;
  const Names sorted{u"1", u"02", u"2", u"10", u"a", u"A1", u"a2b", u"a02c", u"a10", u"B"};
  for (auto name = sorted.rbegin(); name != sorted.rend(); ++name) folder.Put(ToUtf8(*name), "");
  FileListBox list;
  list.NaturalOrder = true;
  list.Path = folder / "";
  EXPECT_EQ(list.List.Get(), sorted);
  // And fast.
  Names names;
  for (int i = 0; i < 50'000; ++i) names.push_back(u"Picture " + Str(i * 7919 % 50'000) + u".jpeg");
  const auto start = std::chrono::steady_clock::now();
  SortNaturally(names);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
  EXPECT_EQ(names[9'999], u"Picture 9999.jpeg");
}

}  // namespace
