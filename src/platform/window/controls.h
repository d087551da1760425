#pragma once
// The controls of windows, as plain data with handlers. The renderer of a window system shows them
// and writes back what the user does; a test does the same through the same members.

#include <functional>
#include <set>
#include <vector>

#include "platform/window/property.h"
#include "text/text.h"

class ControlVisitor;

class Control {
 public:
  Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;
  virtual void Accept(ControlVisitor& visitor) = 0;

  // Asks whoever shows the control to give it the keyboard.
  void SetFocus() { FocusRequested.Emit(); }

  Property<bool> Visible{true};
  Property<bool> Enabled{true};
  Property<String> ToolTipText;
  // What a screen reader calls the control; empty where its caption or label says enough.
  Property<String> AccessibleName;
  Signal FocusRequested;
};

// In captions, "&" marks the letter that works the control together with Alt.

struct Label : Control {
  void Accept(ControlVisitor& visitor) override;
  Property<String> Caption;
  // Long text breaks at words; the control grows downward.
  bool WordWrap = false;
  // Larger and bold.
  bool Heading = false;
};

// A picture by its name in the icon table of the window system.
struct Image : Control {
  void Accept(ControlVisitor& visitor) override;
  Property<String> Icon;
};

struct CommandButton : Control {
  void Accept(ControlVisitor& visitor) override;
  void Click() {
    if (Enabled && OnClick) OnClick();
  }
  Property<String> Caption;
  Property<String> Icon;
  // Return presses the default button, Escape the cancel button.
  bool Default = false;
  bool Cancel = false;
  std::function<void()> OnClick;
};

struct TextBox : Control {
  TextBox();
  void Accept(ControlVisitor& visitor) override;
  // A mouse click into the box.
  void Click() {
    if (OnClick) OnClick();
  }
  // The second click of a double click.
  void DblClick() {
    if (OnDblClick)
      OnDblClick();
    else
      Click();
  }
  void SelectAll() {
    SelStart = 0;
    SelLength = static_cast<int>(Text.Get().size());
  }
  String SelText() const;
  // Replaces the selection; the caret then stands behind the text put in.
  void SetSelText(StringView text);
  // Lines of a multi-line box are parted by CR LF.
  Property<String> Text;
  Property<int> SelStart{0};
  Property<int> SelLength{0};
  Property<bool> Locked{false};
  bool MultiLine = false;
  std::function<void()> OnChange;
  std::function<void()> OnClick;
  std::function<void()> OnDblClick;

 private:
  Signal::Subscription changed_;
};

struct CheckBox : Control {
  CheckBox();
  void Accept(ControlVisitor& visitor) override;
  void Click() { Value = Value == 1 ? 0 : 1; }
  Property<String> Caption;
  // 0 clear, 1 checked.
  Property<int> Value{0};
  // Runs whenever the value changes, whoever changed it.
  std::function<void()> OnClick;

 private:
  Signal::Subscription changed_;
};

// Option buttons in one group of the layout exclude each other.
struct OptionButton : Control {
  OptionButton();
  void Accept(ControlVisitor& visitor) override;
  void Click() { Value = true; }
  Property<String> Caption;
  Property<bool> Value{false};
  std::function<void()> OnClick;

 private:
  Signal::Subscription changed_;
};

// What list and combo boxes share. Indexes count from 0; -1 is no row.
struct ListControl : Control {
  // For a few; many rows come quicker by setting List.
  void AddItem(const String& text);
  void RemoveItem(int index);
  void Clear();
  int ListCount() const { return static_cast<int>(List.Get().size()); }
  Property<std::vector<String>> List;
  Property<int> ListIndex{-1};
};

struct ListBox : ListControl {
  enum class Marks { None, CheckBoxes, MultiSelect };

  ListBox();
  void Accept(ControlVisitor& visitor) override;
  void DblClick() {
    if (OnDblClick) OnDblClick();
  }
  bool IsSelected(int index) const { return Selected.Get().contains(index); }
  void Select(int index, bool selected);
  Marks Style = Marks::None;
  // The rows that are ticked or selected, when Style is not None.
  Property<std::set<int>> Selected;
  // A box of a row was ticked or cleared, by Select or the user; Selected has it already.
  std::function<void(int)> ItemChecked;
  std::function<void()> OnClick;
  std::function<void()> OnDblClick;

 private:
  Signal::Subscription changed_;
};

// Lines of text in the colours of a comparison. They can be selected and copied.
struct DiffList : Control {
  enum class Kind { Plain, Added, Removed, Heading };
  struct Row {
    Kind Style = Kind::Plain;
    String Text;
    bool operator==(const Row&) const = default;
  };

  void Accept(ControlVisitor& visitor) override;
  Property<std::vector<Row>> Rows;
};

struct ComboBox : ListControl {
  ComboBox();
  void Accept(ControlVisitor& visitor) override;
  // An editable box takes any text; another one only a text of its list, and passes over others.
  bool Editable = false;
  // Text and ListIndex follow each other.
  Property<String> Text;
  std::function<void()> OnClick;
  std::function<void()> OnChange;

 private:
  Signal::Subscription indexChanged_;
  Signal::Subscription textChanged_;
};

// The strip of an area with tabs; the areas themselves stand in the layout.
struct TabStrip : Control {
  void Accept(ControlVisitor& visitor) override;
  Property<int> SelectedItem{0};
};

struct ProgressBar : Control {
  void Accept(ControlVisitor& visitor) override;
  // 0 to Maximum; a Maximum of 0 shows that something goes on without telling how far.
  Property<int> Value{0};
  Property<int> Maximum{0};
  // On the bar; empty for the percentage.
  Property<String> Text;
};

class RichTextBox;
struct DriveListBox;
struct DirListBox;
struct FileListBox;
struct ToolBar;
struct StatusBar;

// One function per kind of control.
class ControlVisitor {
 public:
  virtual ~ControlVisitor() = default;
  virtual void Visit(Label&) = 0;
  virtual void Visit(Image&) = 0;
  virtual void Visit(CommandButton&) = 0;
  virtual void Visit(TextBox&) = 0;
  virtual void Visit(CheckBox&) = 0;
  virtual void Visit(OptionButton&) = 0;
  virtual void Visit(ListBox&) = 0;
  virtual void Visit(DiffList&) = 0;
  virtual void Visit(ComboBox&) = 0;
  virtual void Visit(TabStrip&) = 0;
  virtual void Visit(ProgressBar&) = 0;
  virtual void Visit(DriveListBox&) = 0;
  virtual void Visit(DirListBox&) = 0;
  virtual void Visit(FileListBox&) = 0;
  virtual void Visit(RichTextBox&) = 0;
  virtual void Visit(ToolBar&) = 0;
  virtual void Visit(StatusBar&) = 0;
};
