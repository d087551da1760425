#pragma once
// The Working window round a task on a long text.

#include "editor/messages.h"
#include "state/shared_fields.h"

class WindowSystem;

// Shows the Working window for a text of more than 45000 characters and hides it when the object
// goes.
class WorkingRun {
 public:
  static constexpr std::size_t kLongText = 45000;

  WorkingRun(SharedFields& fields, Messages& messages, WindowSystem& windows,
             std::size_t textLength);
  WorkingRun(const WorkingRun&) = delete;
  WorkingRun& operator=(const WorkingRun&) = delete;
  ~WorkingRun();

 private:
  SharedFields& fields_;
  Messages& messages_;
};
