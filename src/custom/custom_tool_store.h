#pragma once

#include "custom/custom_tool.h"
#include "platform/system/work_folder.h"

// Changes the custom tool file. It holds either its old or its new content at every moment, and one
// program at a time changes it.
//
// `number` is 1 to `count`, the number of tools in the file. RuntimeError, and the file is as it
// was: also where a record that has to be found is not in it, and 70 while another program may
// change it.
class CustomToolStore {
 public:
  // folder: the one that the file is in; it must outlive the store.
  CustomToolStore(const WorkFolder& folder, String path)
      : folder_(folder), path_(std::move(path)) {}

  // Adds a tool behind the `count` that are there, fewer than kMostCustomTools. A missing file is
  // made.
  void Append(const CustomTool& tool, int count) const;
  void Replace(const CustomTool& tool, int number, int count) const;
  // The tools behind it move up by one. The file goes with the last tool.
  void Delete(int number, int count) const;

 private:
  const WorkFolder& folder_;
  String path_;
};
