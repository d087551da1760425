// Random runs over random trees against a plain model of the rules: a map from path to bytes, in
// which each tool is run alone on a copy. Then undone.

#include <random>

#include "batch/auto_convert.h"
#include "batch/batch_fixture.h"
#include "batch/undo_run.h"
#include "platform/system/files.h"
#include "platform/system/posix/sys.h"
#include "tools/file_run.h"

namespace {

namespace fs = std::filesystem;
using Bytes = std::map<std::string, std::string>;

const ToolSettings kGood = SearchSettings{.SearchFor = u"a", .ReplaceWith = u"bb"};
const ToolSettings kBad = SearchSettings{.SearchFor = u"a<OR>"};

const ToolStep kSteps[]{{u"All Upper Case", {}},
                        {u"Add Double Spacing", {}},
                        {u"Remove Blank Lines at Beginning and End of Text", {}},
                        {String(kSearchAndReplace), kGood},
                        {String(kToHtml), HtmlSettings{}},
                        {String(kFromHtml), {}},
                        {}};

struct Tree {
  // By path. Two paths of one node are hard links.
  std::map<std::string, int> Nodes;
  std::vector<std::string> Contents;
  std::set<std::string> ReadOnly;

  // Behind the links that the tree has.
  static std::string Resolve(std::string path) {
    if (path.starts_with("folder-link/")) path.replace(0, 11, "two words");
    return path == "link.txt" ? "a.txt" : path;
  }
  const std::string* Find(const std::string& path) const {
    const auto node = Nodes.find(Resolve(path));
    return node == Nodes.end() ? nullptr : &Contents[static_cast<std::size_t>(node->second)];
  }
  void Put(const std::string& path, const std::string& bytes) {
    const auto [node, isNew] = Nodes.try_emplace(Resolve(path), static_cast<int>(Contents.size()));
    if (isNew) Contents.emplace_back();
    Contents[static_cast<std::size_t>(node->second)] = bytes;
  }
  Bytes All() const {
    Bytes all;
    for (const auto& [path, node] : Nodes) all[path] = Contents[static_cast<std::size_t>(node)];
    return all;
  }
};

std::string NameOf(const std::string& path) { return path.substr(path.rfind('/') + 1); }
std::string In(const std::string& path, const std::string& name) {
  return path.substr(0, path.size() - NameOf(path).size()) + name;
}

class RandomRun : private BatchFixture {
 public:
  explicit RandomRun(unsigned seed) : random_(seed) {
    for (const char* folder : {"two words", "q\"<x.d", "out"})
      fs::create_directory(Files.Path / folder);
    for (const char* name :
         {"a.txt", "b.htm", "two words/c d.dat", "two words/a.txt", "q\"<x.d/README", "hard.log",
          "e\".txt", "h\xFF.txt", "b.txt", "out/a.txt", "out/README.html", "new-a.txt", ".rc"})
      if (Chance(2) || name == std::string("a.txt")) PutFile(name);
    fs::create_symlink("a.txt", Files.Path / "link.txt");
    fs::create_directory_symlink("two words", Files.Path / "folder-link");
    if (tree_.Nodes.contains("hard.log")) {
      fs::create_hard_link(Files.Path / "hard.log", Files.Path / "two words/other.log");
      tree_.Nodes["two words/other.log"] = tree_.Nodes["hard.log"];
      if (tree_.ReadOnly.contains("hard.log")) tree_.ReadOnly.insert("two words/other.log");
    }
    before_ = tree_;
    AddTools();
    MakeOrder();
  }

  void RunAndCompare() {
    Predict();
    ASSERT_EQ(NowBytes(), before_.All());
    const BatchEnd end = RunBatch(order_);
    EXPECT_EQ(end, end_);
    const Bytes after = NowBytes();
    Bytes expected = tree_.All();
    // Written in a fast run or not when the failure was met.
    if (end == BatchEnd::Aborted && order_.SuperFast)
      for (const std::string& path : stays_)
        if (!after.contains(path)) expected.erase(path);
    EXPECT_EQ(after, expected);
    // Of an aborted run only the file that ended it is told.
    EXPECT_EQ(Batch.State.FailedFiles.empty() ? u"" : Batch.State.FailedFiles.back(),
              failed_.empty() ? u"" : failed_.back());
    if (end == BatchEnd::Aborted) return;
    EXPECT_EQ(Batch.State.FailedFiles, failed_) << testing::PrintToString(ToldOf());
    std::string history = History();
    // Of files that were ready when Cancel came.
    if (end == BatchEnd::Cancelled && order_.SuperFast) history.resize(history_.size());
    EXPECT_EQ(history, history_);
    UndoAndCompare(after);
  }

  // One system call, or all from there on, fail in the run.
  void RunWithFailures() {
    Predict();
    const bool once = Chance(2);
    const int error = std::array{ENOSPC, EIO, EACCES}[random_() % 3];
    int left = static_cast<int>(random_() % 400);
    sys::OnCall = [&](const char*) { return (once ? --left == 0 : --left <= 0) ? error : 0; };
    BatchEnd end = BatchEnd::NotBegun;
    CodeOf([&] { end = RunBatch(order_); });
    sys::OnCall = nullptr;
    if (end == BatchEnd::Done && Batch.State.FailedFiles.empty()) {
      EXPECT_EQ(NowBytes(), tree_.All());
    }
    UndoOutcome outcome;
    if (fs::exists(Data.Path / "MFF-Backups/1/WFMFFDIR.DAT"))
      CodeOf([&] { outcome = UndoRun(Data / "MFF-Backups/1", {}); });
    EXPECT_EQ(outcome.Failures, std::vector<String>{});
    Bytes undone = NowBytes();
    for (const std::string& path : stays_) undone.erase(path);
    EXPECT_EQ(undone, before_.All());
  }

 private:
  bool Chance(unsigned of) { return random_() % of == 0; }
  template <class Items>
  auto& AnyOf(Items& items) {
    return items[random_() % std::size(items)];
  }

  void PutFile(const std::string& name) {
    std::string content = Chance(3) ? "<body>a text</body>\n" : "a line\n  second a\n";
    if (Chance(4)) content = "\n\nmore\r\n" + content;
    if (Chance(8)) content += "caf\xC3\xA9\n";
    if (Chance(6)) content = "\x95 bullet\n" + content;
    if (Chance(10)) content += "**This file has been encrypted with WordFlurn**\n";
    if (Chance(10)) content.clear();
    tree_.Put(name, content);
    Files.Put(name, content);
    if (!Chance(10)) return;
    tree_.ReadOnly.insert(name);
    fs::permissions(Files.Path / name, fs::perms(0444));
  }

  void AddTools() {
    for (const char16_t* name : {u"One", u"Two"}) {
      CustomTool tool;
      tool.Name = name;
      for (ToolStep& step : tool.Steps)
        if (Chance(2)) step = AnyOf(kSteps);
      AddCustomTool(tool);
      tools_[String(kCustomToolPrefix) + name] = tool;
    }
  }

  void MakeOrder() {
    const char* const rows[]{"a.txt",
                             "b.htm",
                             "two words/c d.dat",
                             "two words/a.txt",
                             "link.txt",
                             "q\"<x.d/README",
                             "hard.log",
                             "two words/other.log",
                             "e\".txt",
                             "h\xFF.txt",
                             "b.txt",
                             "folder-link/a.txt",
                             "missing.x",
                             ".rc",
                             "b.html",
                             "a.html"};
    for (unsigned row = 0; row < 1 + random_() % 8; ++row) {
      rows_.emplace_back(AnyOf(rows));
      order_.Files.push_back(Files / rows_.back());
    }
    order_.SuperFast = Chance(2);
    AnyFileIsText = Chance(2);
    if (Chance(4)) Progress.CancelAtFile = static_cast<int>(1 + random_() % rows_.size());
    for (BatchPass& pass : order_.Passes) {
      if (Chance(3)) continue;
      const ToolStep& step = AnyOf(kSteps);
      pass = {step.Name, step.Settings};
      if (Chance(3)) pass = {Chance(2) ? u"Custom Tool: One" : u"Custom Tool: Two", {}};
      // In a fast run it may be met before Cancel is looked for.
      const bool mayAbort = !order_.SuperFast || Progress.CancelAtFile == 0;
      if (mayAbort && Chance(25)) pass = {String(kSearchAndReplace), kBad};
    }
    if (Chance(4)) order_.AddPrefix = u"new-";
    if (Chance(4)) order_.SaveToLocation = Files / "out";
  }

  // ----- the rules

  struct Failed {
    bool Aborts = false;
  };

  void Predict() {
    for (std::size_t row = 0; row < rows_.size(); ++row) {
      // A file is written when all of its passes are known to be done, or one has failed.
      results_.clear();
      try {
        Work(rows_[row]);
      } catch (const Failed& failure) {
        failed_.push_back(order_.Files[row]);
        if (failure.Aborts) {
          tree_ = before_;
          for (const std::string& path : stays_)
            if (written_.contains(path)) tree_.Put(path, written_.at(path));
          end_ = BatchEnd::Aborted;
          return;
        }
      }
      for (const auto& [path, bytes] : results_) {
        tree_.Put(path, bytes);
        written_[Tree::Resolve(path)] = bytes;
      }
      if (static_cast<int>(row) + 1 != Progress.CancelAtFile) continue;
      end_ = BatchEnd::Cancelled;
      return;
    }
  }

  void Work(const std::string& row) {
    const std::string* content = tree_.Find(row);
    if (content == nullptr || content->empty()) throw Failed();
    if (content->find("encrypted with WordFlurn") != std::string::npos) throw Failed();
    const bool inPlace = order_.AddPrefix.empty() && order_.SaveToLocation.empty();
    if (inPlace && tree_.ReadOnly.contains(Tree::Resolve(row))) throw Failed();
    const std::string key = Tree::Resolve(row);
    if (writers_.contains(key) && writers_[key] != key) throw Failed();

    std::exception_ptr failure;
    try {
      TestText(row, *content);
      Passes(row, *content);
    } catch (const Failed&) {
      failure = std::current_exception();
    }
    for (const auto& [path, bytes] : results_) {
      const auto writer = writers_.find(Tree::Resolve(path));
      if (writer == writers_.end() || writer->second == key) continue;
      results_.clear();
      throw Failed();
    }
    Record(row);
    for (const std::string& path : names_) RecordTarget(path, row);
    for (const auto& [path, bytes] : results_) writers_.emplace(Tree::Resolve(path), key);
    if (failure) std::rethrow_exception(failure);
  }

  void TestText(const std::string& row, const std::string& content) {
    const std::string target = Target(row, 0);
    const std::string whole = target.starts_with('/') ? target : Files.Path.native() + "/" + target;
    const std::size_t dot = whole.rfind('.');
    const std::string extension = dot == std::string::npos ? "" : whole.substr(dot + 1);
    if (extension == "txt" || extension == "htm" || extension == "html" || extension.empty())
      return;
    // All that is no ASCII here is the bullet, or the letter behind the first four lines or in
    // them.
    // Where any line ends in CR, an LF alone ends none.
    const char end = content.find('\r') == std::string::npos ? '\n' : '\r';
    std::istringstream lines(content);
    std::string line;
    for (int i = 0; i < 4 && std::getline(lines, line, end); ++i)
      for (const char byte : line)
        if (static_cast<unsigned char>(byte) > 127 && !AnyFileIsText) throw Failed();
  }

  std::string Target(const std::string& row, std::size_t pass) {
    if (pass == 0 && !order_.SaveToLocation.empty()) return "out/" + NameOf(row);
    return In(row, ToUtf8(order_.AddPrefix) + NameOf(row));
  }

  void Passes(const std::string& row, const std::string& content) {
    names_.clear();
    std::optional<FileRun> run;
    std::string target;
    std::string readBy;
    bool renamed = false;
    context_.emplace(App.Context());
    context_->Tools.Replacing = {};
    for (std::size_t i = 0; i < order_.Passes.size(); ++i) {
      const BatchPass& pass = order_.Passes[i];
      if (!renamed) target = Target(row, i);
      if (pass.Tool == kNoTool) continue;
      const std::string source = renamed ? target : row;
      if (run && readBy == source) {
        run->Next();
      } else {
        Data.Put("alone", content);
        run.emplace(Data / "alone", Data / "");
      }
      context_->File = &*run;
      const std::vector<ToolStep> steps = StepsOf(pass);
      std::optional<Failed> failed;
      int made = 0;
      std::string inFront;
      for (const ToolStep& step : steps) {
        if (made > 0) {
          inFront = BytesOf(*run);
          run->Next();
        }
        try {
          FindTool(step.Name)->Run(*context_, step.Settings);
        } catch (const RuntimeError& error) {
          failed = Failed{error.Code == kEmptyAlternative};
          break;
        }
        ++made;
        if (step.Name != kToHtml && step.Name != kFromHtml) continue;
        if (made > 1) Result(target, renamed, inFront);
        const std::string name = NameOf(target);
        const std::size_t dot = name.rfind('.');
        target = In(target, name.substr(0, dot == 0 ? std::string::npos : dot) +
                                (step.Name == kToHtml ? ".html" : ".txt"));
        renamed = true;
      }
      if (made == 0 && !failed) failed.emplace();
      readBy = target;
      if (made > 0) Result(target, renamed, BytesOf(*run));
      if (failed) throw *failed;
    }
  }

  std::vector<ToolStep> StepsOf(const BatchPass& pass) {
    std::vector<ToolStep> steps;
    const auto custom = tools_.find(pass.Tool);
    if (custom == tools_.end()) return {{pass.Tool, *pass.Settings}};
    for (const ToolStep& step : custom->second.Steps)
      if (step.Name != kNoTool) steps.push_back(step);
    return steps;
  }

  static std::string BytesOf(const FileRun& run) {
    std::string bytes;
    run.Result().ReadRest([&](std::string_view block) { bytes += block; });
    return bytes;
  }

  void Result(const std::string& path, bool renamed, std::string bytes) {
    if (tree_.ReadOnly.contains(Tree::Resolve(path))) throw Failed();
    std::erase_if(results_, [&](const auto& old) { return old.first == path; });
    std::erase(names_, path);
    results_.emplace_back(path, std::move(bytes));
    names_.push_back(path);
    if (renamed) renamed_.insert(path);
  }

  void Record(const std::string& path) {
    if (!tree_.Find(path)) return;
    int& number = numbers_[NameOf(path)];
    const std::string backup = (number ? std::to_string(number) + "---" : "") + NameOf(path);
    ++number;
    history_ += path + "<TO>" + backup + "\r\n";
    recorded_.insert(Tree::Resolve(path));
  }

  void RecordTarget(const std::string& path, const std::string& row) {
    const std::string file = Tree::Resolve(path);
    if (path == row || recorded_.contains(file) || stays_.contains(file)) return;
    if (tree_.Find(path)) return Record(path);
    if (!renamed_.contains(path)) return void(stays_.insert(Tree::Resolve(path)));
    history_ += "<REMOVEFILE>" + path + "\r\n";
    recorded_.insert(Tree::Resolve(path));
  }

  // -----

  // Where even the removal of a work file has failed.
  static bool IsLeftover(const std::string& path) {
    return NameOf(path).starts_with(".wordflurn-") || path.find(".old-") != std::string::npos;
  }

  Bytes NowBytes() const {
    Bytes now;
    for (const auto& entry : fs::recursive_directory_iterator(Files.Path)) {
      const std::string path = fs::relative(entry.path(), Files.Path);
      if (entry.is_regular_file() && !entry.is_symlink() && !IsLeftover(path))
        now[path] = Files.Get(path);
    }
    EXPECT_TRUE(fs::is_symlink(Files.Path / "link.txt"));
    if (tree_.Nodes.contains("hard.log")) {
      EXPECT_EQ(fs::hard_link_count(Files.Path / "hard.log"), 2u);
    }
    return now;
  }

  void UndoAndCompare(const Bytes& after) {
    const String folder = Data / "MFF-Backups/1";
    Bytes expected = before_.All();
    for (const std::string& path : stays_)
      if (after.contains(path)) expected[path] = after.at(path);
    if (!recorded_.empty() && Chance(2)) {
      const auto place = std::next(recorded_.begin(), random_() % recorded_.size());
      if (!before_.Nodes.contains(*place)) return;
      Bytes partly = after;
      for (const auto& [path, node] : before_.Nodes)
        if (node == before_.Nodes.at(*place)) partly[path] = expected.at(path);
      UndoOrder order;
      order.Selected = {Files / *place};
      if (("\n" + history_).find("\n" + *place + "<TO>") == std::string::npos) return;
      UndoRun(folder, order);
      EXPECT_EQ(NowBytes(), partly) << *place;
    }
    EXPECT_EQ(UndoRun(folder, {}).Failures, std::vector<String>{});
    EXPECT_EQ(NowBytes(), expected);
  }

  std::mt19937 random_;
  Tree tree_, before_;
  std::map<String, CustomTool> tools_;
  std::vector<std::string> rows_;
  BatchOrder order_;
  std::optional<ToolContext> context_;

  // Predicted.
  BatchEnd end_ = BatchEnd::Done;
  std::string history_;
  std::vector<String> failed_;
  std::vector<std::pair<std::string, std::string>> results_;
  std::vector<std::string> names_;
  std::map<std::string, std::string> writers_, written_;
  std::map<std::string, int> numbers_;
  std::set<std::string> recorded_, renamed_, stays_;
};

TEST(AutoConvertModel, RandomRunsDoWhatTheRulesSay) {
  for (unsigned seed = 1; seed <= 300; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomRun(seed).RunAndCompare();
    if (testing::Test::HasFailure()) return;
  }
}

TEST(AutoConvertModel, NothingIsLostWhereTheSystemFails) {
  for (unsigned seed = 1; seed <= 300; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomRun(seed).RunWithFailures();
    if (testing::Test::HasFailure()) return;
  }
}

}  // namespace
