#pragma once
// Undo and redo of typing and of tools, in as many steps as memory holds.
//
// The engine watches a text control, takes a snapshot when typing pauses, and keeps of each change
// only the block that changed. Whoever owns the control passes its events on.

#include <memory>
#include <optional>
#include <vector>

#include "editor/cls_undo_element.h"
#include "editor/undo_control.h"
#include "platform/window/key_event.h"
#include "platform/window/window_system.h"
#include "state/shared_fields.h"

class clsUndo {
 public:
  enum Kind { kInserted = 0, kReplaced = 1, kDeleted = 2, kOutOfRange = 3, kTool = 4 };

  clsUndo(WindowSystem& windows, SharedFields& fields);

  // Watch a control; typing pauses after `interval` milliseconds.
  bool AttachRichTextBox(RichTextBox& box, int interval);
  bool AttachTextBox(TextBox& box, int interval);

  // Forgets all steps and begins with the text as it stands.
  bool Reset();
  // Up to `count` steps back, or forth again; the steps are drawn as one.
  bool Undo(int count);
  bool Redo(int count);
  // Records what has changed since the last record. False when nothing has.
  bool TakeUndoSnapShot();
  // While suspended, nothing is recorded; resuming records the whole change as one step.
  void Suspend(bool suspend);

  // Whether something has been typed since the last record, so that the next undo takes that back.
  bool TypingPends() const { return timer_->Enabled(); }
  bool CanUndo() const { return tracking_ && undo_.size() >= 2; }
  bool CanRedo() const { return tracking_ && !redo_.empty(); }
  // Without the base record at the bottom.
  int UndoCount() const { return undo_.empty() ? 0 : static_cast<int>(undo_.size()) - 1; }
  int RedoCount() const { return static_cast<int>(redo_.size()); }
  // What the step at a place does; places count from 1, the newest step is last.
  Kind UndoKind(int place) const;
  Kind RedoKind(int place) const;
  // Steps kept for undo, the base record first.
  const std::vector<clsUndoElement>& UndoRecords() const { return undo_; }

  // Events of the control.
  void ControlChanged();
  void SelectionChanged();
  void KeyDown(KeyEvent& key);
  void MouseDown() { EndStep(); }
  // Typing that pends is a step of its own.
  void EndStep();

  // The steps or the tracking have changed.
  std::function<void()> StateChanged;
  // Why the last operation without a control failed.
  const String& Failure() const { return failure_; }

 private:
  struct Selection {
    std::size_t Start = 0;
    std::size_t Length = 0;
  };
  enum class Direction { Back, Forth };

  bool Attach(std::unique_ptr<UndoControl> control, int interval);
  // Runs an operation on the control. A failure inside it breaks the engine, never the text.
  template <class Operation>
  bool Guard(StringView name, Operation operation);
  bool Snapshot();
  bool Travel(int count, Direction direction);
  void Apply(const clsUndoElement& record, Direction direction);
  void NoteSelection();
  void Announce();

  SharedFields& fields_;
  std::unique_ptr<Timer> timer_;
  std::unique_ptr<UndoControl> control_;
  std::vector<clsUndoElement> undo_;
  std::vector<clsUndoElement> redo_;
  bool tracking_ = false;
  // The text as last recorded.
  std::shared_ptr<const String> baseText_;
  Selection previous_;
  Selection current_;
  // The line at the top when a tool began, until its change is recorded.
  std::optional<std::size_t> lineBeforeTool_;
  String failure_;
};
