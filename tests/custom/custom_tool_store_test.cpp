#include "custom/custom_tool_store.h"

#include <gtest/gtest.h>

#include "custom/custom_tool_names.h"
#include "platform/system/files.h"
#include "platform/system/posix/sys.h"
#include "state/data_files.h"
#include "support/temp_folder.h"
#include "text/runtime_error.h"

namespace {

CustomTool Named(StringView name) {
  CustomTool tool;
  tool.Name = name;
  return tool;
}

class StoreTest : public testing::Test {
 protected:
  TempFolder folder_;
  String path_ = folder_ / u"FLURNCUS.DAT";
  WorkFolder work_{folder_.Path(), IsTemporaryFile};
  CustomToolStore store_{work_, path_};

  std::string File() const { return BytesOf(path_); }
  void Fill() {
    CustomTool second = Named(u"My Two");
    second.Steps[0].Name = u"Add Trailing Carriage Returns";
    second.Steps[0].Settings = AddSettings{u"60", true};
    CustomTool third = Named(u"Custom Tool #3");
    third.Steps[0].Name = u"Search and Replace";
    third.Steps[0].Settings = SearchSettings{.SearchFor = u"a"};
    third.Steps[1].Name = u"Convert TO HTML";
    third.Steps[2].Name = u"Run Program";
    store_.Append(Named(u"One"), 0);
    store_.Append(second, 1);
    store_.Append(third, 2);
  }
};

const std::string kNoSteps =
    "None Selected\r\nNone Selected\r\nNone Selected\r\nNone Selected\r\nNone Selected\r\n";
const std::string kOne = "Tool1:\r\nOne\r\n" + kNoSteps;
const std::string kTwo =
    "Tool2:\r\nMy Two\r\nAdd Trailing Carriage Returns\r\nNone Selected\r\nNone Selected\r\n"
    "None Selected\r\nNone Selected\r\nAdd2-1:\r\n0\r\n60\r\n1\r\n";
std::string Three(const std::string& n) {
  return "Tool" + n + ":\r\nCustom Tool #" + n +
         "\r\nSearch and Replace\r\nConvert TO HTML\r\nRun Program\r\nNone Selected\r\n"
         "None Selected\r\nSearch" +
         n +
         "-1:\r\n0\r\n<<BEGINSEARCHTEXT>>a<<ENDSEARCHTEXT>>\r\n"
         "<<BEGINREPLACETEXT>><<ENDREPLACETEXT>>\r\n0\r\n0\r\n0\r\nHTML" +
         n + "-2:\r\n0\r\n\r\n\r\n0\r\n0\r\nRunProgram" + n + "-3:\r\n\r\n\r\n";
}

TEST_F(StoreTest, AppendsReplacesAndDeletes) {
  Fill();
  EXPECT_EQ(File(), kOne + kTwo + Three("3"));
  store_.Delete(2, 3);
  EXPECT_EQ(File(), kOne + Three("2"));
  store_.Replace(Named(u"Eins"), 1, 2);
  EXPECT_EQ(File(), "Tool1:\r\nEins\r\n" + kNoSteps + Three("2"));
  store_.Replace(Named(u"Zwei"), 2, 2);
  EXPECT_EQ(File(), "Tool1:\r\nEins\r\n" + kNoSteps + "Tool2:\r\nZwei\r\n" + kNoSteps);
  store_.Delete(2, 2);
  EXPECT_EQ(File(), "Tool1:\r\nEins\r\n" + kNoSteps);
  store_.Delete(1, 1);
  EXPECT_FALSE(FileExists(path_));
}

TEST_F(StoreTest, RenumbersWhateverLooksNumbered) {
  folder_.Put(u"FLURNCUS.DAT",
              "Tool1:\nTool2:\nmy Custom Tool #2\ncustom tool #9 x\nCustom Tool #4 x\nAddx-\n"
              "Add3 \nSearch10-1\nTool9:\nTool8:\n");
  store_.Delete(1, 2);
  EXPECT_EQ(File(),
            "Tool1:\r\nmy Custom Tool #2\r\ncustom tool #9 x\r\nCustom Tool #3 x\r\nAdd-1-\r\n"
            "Add3 \r\nSearch10-1\r\nTool9:\r\nTool7:\r\n");
}

TEST_F(StoreTest, DamagedFileStaysAsItIs) {
  const std::string damaged = "noise\r\nTool1:\r\nOne\r\n";
  folder_.Put(u"FLURNCUS.DAT", damaged);
  const std::function<void()> rewrites[] = {
      [&] { store_.Replace(Named(u"x"), 1, 2); },
      [&] { store_.Replace(Named(u"x"), 2, 2); },
      [&] { store_.Delete(1, 2); },
      [&] { store_.Delete(3, 3); },
  };
  for (const auto& rewrite : rewrites) {
    EXPECT_THROW(rewrite(), RuntimeError);
    EXPECT_EQ(File(), damaged);
  }
}

TEST_F(StoreTest, OneProgramAtATimeChangesTheFile) {
  Fill();
  const std::string old = File();
  const WorkFolder other(folder_.Path(), IsTemporaryFile);
  const CustomToolStore store(other, path_);
  {
    const DataLock held = work_.Lock();
    EXPECT_THROW(store.Append(Named(u"x"), 3), RuntimeError);
    EXPECT_THROW(store.Delete(1, 3), RuntimeError);
  }
  EXPECT_EQ(File(), old);
  // Nor with an old list in mind.
  store.Append(Named(u"x"), 3);
  const std::string changed = File();
  EXPECT_THROW(store_.Append(Named(u"y"), 3), RuntimeError);
  EXPECT_THROW(store_.Replace(Named(u"y"), 3, 3), RuntimeError);
  EXPECT_THROW(store_.Delete(3, 3), RuntimeError);
  EXPECT_EQ(File(), changed);
}

// Any system call of a rewrite may be the one that fails.
TEST_F(StoreTest, FailedRewriteLeavesTheOldFile) {
  Fill();
  const std::string old = File();
  store_.Delete(1, 3);
  const std::string renumbered = File();
  folder_.Put(u"FLURNCUS.DAT", old);
  bool failed = true;
  for (int failing = 0; failed; ++failing) {
    int calls = 0;
    sys::OnCall = [&](const char*) { return calls++ == failing ? ENOSPC : 0; };
    failed = false;
    try {
      store_.Delete(1, 3);
    } catch (const RuntimeError&) {
      failed = true;
    }
    sys::OnCall = nullptr;
    if (failed) {
      // Whole in any case: the flush behind the change may be what fails.
      EXPECT_TRUE(File() == old || File() == renumbered) << failing << ": " << File();
      folder_.Put(u"FLURNCUS.DAT", old);
    }
    // A call that is not needed for the result may fail without harm.
    if (!failed && calls > failing) {
      folder_.Put(u"FLURNCUS.DAT", old);
      failed = true;
    }
  }
}

}  // namespace
