#include "editor/cls_undo.h"

#include <algorithm>

#include "editor/common_length.h"

namespace {

clsUndo::Kind KindAt(const std::vector<clsUndoElement>& records, std::ptrdiff_t index) {
  if (index < 0 || index >= std::ssize(records)) return clsUndo::kOutOfRange;
  const clsUndoElement& record = records[static_cast<std::size_t>(index)];
  if (record.Tool) return clsUndo::kTool;
  if (record.TextBlock_BeforeChange.empty()) return clsUndo::kInserted;
  if (record.TextBlock_AfterChange.empty()) return clsUndo::kDeleted;
  return clsUndo::kReplaced;
}

// Space, the keys that move the caret, Return and the function keys end a step of typing.
bool EndsStep(int key) {
  constexpr int kLastCaretKey = 44;
  return (key >= kKeySpace && key <= kLastCaretKey) || key == kKeyReturn ||
         (key >= kKeyF1 && key <= kKeyF12);
}

}  // namespace

clsUndo::clsUndo(WindowSystem& windows, SharedFields& fields)
    : fields_(fields), timer_(windows.CreateTimer()) {
  timer_->OnTimer = [this] {
    timer_->SetEnabled(false);
    if (tracking_) TakeUndoSnapShot();
  };
}

bool clsUndo::AttachRichTextBox(RichTextBox& box, int interval) {
  return Attach(UndoControlOf(box), interval);
}

bool clsUndo::AttachTextBox(TextBox& box, int interval) {
  return Attach(UndoControlOf(box), interval);
}

bool clsUndo::Attach(std::unique_ptr<UndoControl> control, int interval) {
  control_ = std::move(control);
  timer_->SetEnabled(false);
  timer_->SetInterval(interval);
  return Reset();
}

template <class Operation>
bool clsUndo::Guard(StringView name, Operation operation) {
  if (!control_) {
    failure_ = u"clUndo." + String(name) + u"() : Can't proceed. No textbox control assigned";
    return false;
  }
  if (fields_.UndoBroken) return false;
  try {
    return operation();
  } catch (const std::exception&) {
    control_->SetRedraw(true);
    fields_.UndoBroken = true;
    tracking_ = false;
    timer_->SetEnabled(false);
    Announce();
    return false;
  }
}

bool clsUndo::Reset() {
  return Guard(u"Reset", [this] {
    undo_.clear();
    redo_.clear();
    baseText_ = control_->Text();
    NoteSelection();
    tracking_ = true;
    const bool recorded = Snapshot();
    Announce();
    return recorded;
  });
}

bool clsUndo::TakeUndoSnapShot() {
  return Guard(u"TakeUndoSnapShot", [this] { return Snapshot(); });
}

bool clsUndo::Snapshot() {
  timer_->SetEnabled(false);
  std::shared_ptr<const String> text = control_->Text();
  const CommonLengths common = FindCommonLengths(*baseText_, *text);
  const bool same = common.Front == text->size() && common.Front == baseText_->size();
  if (same && !undo_.empty()) return false;

  const auto blockOf = [common](const String& whole) {
    return whole.substr(common.Front, whole.size() - common.Front - common.End);
  };
  clsUndoElement record;
  record.TextBlock_BeforeChange = blockOf(*baseText_);
  record.TextBlock_AfterChange = blockOf(*text);
  record.FrontLength = common.Front;
  record.EndLength = common.End;
  record.SelStartBefore = previous_.Start;
  record.SelLengthBefore = previous_.Length;
  record.SelStartAfter = control_->SelStart();
  record.SelLengthAfter = control_->SelLength();
  record.FirstVisibleLine = lineBeforeTool_.value_or(control_->FirstVisibleLine());
  record.Time = std::chrono::system_clock::now();
  record.Tool = fields_.ToolUndoPending;

  undo_.push_back(std::move(record));
  // From here on nothing can fail, so a failure above leaves the engine as it was.
  fields_.ToolUndoPending = false;
  redo_.clear();
  baseText_ = std::move(text);
  NoteSelection();
  Announce();
  return true;
}

bool clsUndo::Undo(int count) {
  return Guard(u"Undo", [this, count] {
    Snapshot();
    if (undo_.size() < 2 || count < 1) return false;
    return Travel(std::min(count, UndoCount()), Direction::Back);
  });
}

bool clsUndo::Redo(int count) {
  return Guard(u"Redo", [this, count] {
    Snapshot();
    if (redo_.empty() || count < 1) return false;
    return Travel(std::min(count, RedoCount()), Direction::Forth);
  });
}

bool clsUndo::Travel(int count, Direction direction) {
  auto& from = direction == Direction::Back ? undo_ : redo_;
  auto& to = direction == Direction::Back ? redo_ : undo_;
  tracking_ = false;
  control_->SetRedraw(false);
  for (int i = 0; i < count; ++i) {
    to.reserve(to.size() + 1);
    Apply(from.back(), direction);
    to.push_back(std::move(from.back()));
    from.pop_back();
  }
  const clsUndoElement& last = to.back();
  if (direction == Direction::Back)
    control_->Select(last.SelStartBefore, last.SelLengthBefore);
  else
    control_->Select(last.SelStartAfter, last.SelLengthAfter);
  control_->SetFirstVisibleLine(last.FirstVisibleLine);
  baseText_ = control_->Text();
  NoteSelection();
  control_->SetRedraw(true);
  tracking_ = true;
  Announce();
  return true;
}

void clsUndo::Apply(const clsUndoElement& record, Direction direction) {
  control_->ReplaceBlock(
      record.FrontLength, record.EndLength,
      direction == Direction::Back ? record.TextBlock_BeforeChange : record.TextBlock_AfterChange);
}

void clsUndo::Suspend(bool suspend) {
  if (!suspend && !tracking_) TakeUndoSnapShot();
  // What the user saw and had selected before a tool is what comes back with its undo.
  lineBeforeTool_.reset();
  if (suspend && control_) {
    previous_ = current_;
    lineBeforeTool_ = control_->FirstVisibleLine();
  }
  tracking_ = !suspend && !fields_.UndoBroken;
  Announce();
}

clsUndo::Kind clsUndo::UndoKind(int place) const {
  return place < 1 ? kOutOfRange : KindAt(undo_, place);
}

clsUndo::Kind clsUndo::RedoKind(int place) const { return KindAt(redo_, place - 1); }

void clsUndo::ControlChanged() { timer_->SetEnabled(tracking_); }

void clsUndo::SelectionChanged() {
  if (timer_->Enabled() || !control_ || !tracking_) return;
  previous_ = current_;
  current_ = {control_->SelStart(), control_->SelLength()};
}

void clsUndo::KeyDown(KeyEvent& key) {
  const bool controlAlone = key.Control && !key.Shift && !key.Alt;
  if (controlAlone && (key.Key == 'Z' || key.Key == 'Y')) {
    key.Handled = true;
    if (key.Key == 'Z')
      Undo(1);
    else
      Redo(1);
  } else if (EndsStep(key.Key)) {
    EndStep();
  }
}

void clsUndo::EndStep() {
  if (TypingPends()) TakeUndoSnapShot();
}

void clsUndo::NoteSelection() {
  current_ = {control_->SelStart(), control_->SelLength()};
  previous_ = current_;
}

void clsUndo::Announce() {
  if (StateChanged) StateChanged();
}
