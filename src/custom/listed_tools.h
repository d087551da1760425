#pragma once
// The custom tools as they were listed, for windows that change them: what another program has made
// of them since is never written over unseen.

#include <functional>
#include <vector>

#include "custom/custom_tool_names.h"
#include "custom/custom_tool_store.h"

class ListedTools {
 public:
  // path: of the custom tool file. Both must outlive the object.
  ListedTools(const WorkFolder& folder, const String& path);

  // Reads the file; one that can't be read lists no tools.
  void ListAnew();
  const CustomToolList& List() const { return list_; }
  // Whether the file holds what was listed. RuntimeError when it can't be read.
  bool AreAsListed() const;

  // The tool of this number and, in proper case, name, out of what was listed. RuntimeError where
  // it is not in the place that a change of it would replace.
  CustomTool Read(int number, const String& name) const;

  // Each lists anew. RuntimeError, and the file is as it was.
  //
  // Adds a tool behind those that are there now. Gets its number, 1 to kMostCustomTools + 1, and
  // makes it; one too many is not added and false.
  bool Append(const std::function<CustomTool(int number)>& make);
  // False, and the file is as it was, where it no longer holds what was listed before.
  bool Replace(const CustomTool& tool, int number, const String& name);
  bool Delete(int number, const String& name);

  // The list is another.
  std::function<void()> OnListed;
  // A tool was added, replaced or deleted here.
  std::function<void()> OnChanged;

 private:
  void List(std::vector<String> lines, CustomToolList list);
  bool Change(int number, const String& name, const std::function<void()>& change);

  const WorkFolder& folder_;
  const String& path_;
  CustomToolStore store_;
  std::vector<String> lines_;
  CustomToolList list_;
};
