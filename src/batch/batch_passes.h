#pragma once
// The passes of a batch over one file: what is to be written where.

#include <map>
#include <unordered_set>
#include <vector>

#include "batch/ascii_warn.h"
#include "batch/batch_order.h"
#include "custom/custom_tool_runner.h"
#include "tools/file_run.h"

// The new content of a path.
struct BatchResult {
  String Path;
  // A conversion to or from HTML has given it that name.
  bool Renamed = false;
  InputFile Content;
};

class BatchPasses {
 public:
  // Reads the custom tools of the order. RuntimeError where one can't be read, or is not there.
  BatchPasses(const ToolContext& context, CustomToolRunner& runner, const BatchOrder& order,
              const std::map<int, String>& customToolNames);

  // Whether a batch may work on this file at all; resolved: behind all links. RuntimeError: 62 for
  // an empty one, 249 for encrypted text, 70 for one without write permission or of the program
  // itself.
  void Test(const String& file, const String& resolved);
  // Whether a file that looks like no text is to be left alone.
  void AskAboutText(const String& file, ASCIIWarn& warn) const;

  // Runs the passes on a file and adds what each has made to `results`; a later pass that writes
  // the same path takes the place of the earlier one. After a RuntimeError the results of the
  // passes and steps before are there.
  void Run(const String& file, std::vector<BatchResult>& results);

  // Where the result of the first pass goes, as far as it is known before it runs.
  String FirstTarget(const String& file) const;
  // What the last pass has read: the file, or a new name of it.
  const String& Source() const { return source_; }
  // The failure of the last file is one of the program that a step names.
  bool CheckingRunProgram() const { return checkingRunProgram_; }

 private:
  struct Pass {
    // One of the two, or neither.
    const Tool* Single = nullptr;
    std::optional<CustomToolPass> Custom;
    ToolSettings Settings;
  };
  class Names;

  void RunPass(Pass& pass, FileRun& run, Names& names, std::vector<BatchResult>& results);
  // In place of an earlier result of the same path. RuntimeError 70 where it may not be written.
  void Put(std::vector<BatchResult>& results, BatchResult result) const;
  bool WritesInPlace() const { return order_.SaveToLocation.empty() && order_.AddPrefix.empty(); }
  // RuntimeError 70 for a path that holds the program's own data; for a file without write
  // permission.
  void TestNotOwn(const String& path, const String& resolved) const;
  void TestMayBeWritten(const String& path) const;

  ToolContext context_;
  CustomToolRunner& runner_;
  const BatchOrder& order_;
  std::array<Pass, kPasses> passes_;
  // Of the program itself.
  std::unordered_set<String> ownFiles_;
  String ownFolder_;
  String file_;
  String source_;
  bool checkingRunProgram_ = false;
};
