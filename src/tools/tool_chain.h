#pragma once
// Several tools run one after the other as one tool.

#include "tools/tool_context.h"

// On a file each tool reads what the one before it wrote. On the editor each works on the selection
// that the one before it left; when the object goes, the plain undo has the text from before the
// first, and what is selected is chosen as after a single tool. A chain in a chain is part of it.
class ToolChain {
 public:
  explicit ToolChain(ToolContext& context);
  ToolChain(const ToolChain&) = delete;
  ToolChain& operator=(const ToolChain&) = delete;
  ~ToolChain();

  // For the tools of the chain: they report nothing, and a failure comes as RuntimeError.
  ToolContext& Context() { return inner_; }
  // After a tool. False where it has left nothing of the selection: the rest of the text was not
  // meant.
  bool Next();

 private:
  ToolContext inner_;
  // Of the outermost chain on the editor.
  std::shared_ptr<const String> textBefore_;
};
