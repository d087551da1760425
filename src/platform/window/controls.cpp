#include "platform/window/controls.h"

#include "platform/window/bars.h"
#include "platform/window/file_lists.h"
#include "platform/window/rich_text_box.h"

void Label::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void Image::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void CommandButton::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void TextBox::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void CheckBox::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void OptionButton::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void ListBox::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void DiffList::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void ComboBox::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void TabStrip::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void ProgressBar::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void DriveListBox::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void DirListBox::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void FileListBox::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void RichTextBox::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void ToolBar::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }
void StatusBar::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }

namespace {

// Runs a handler that the window may set later, or never.
Signal::Observer Run(const std::function<void()>& handler) {
  return [&handler] {
    if (handler) handler();
  };
}

}  // namespace

TextBox::TextBox() : changed_(Text.Observe(Run(OnChange))) {}

String TextBox::SelText() const {
  const StringView text = Text.Get();
  return String(text.substr(std::min(static_cast<std::size_t>(SelStart.Get()), text.size()),
                            static_cast<std::size_t>(SelLength.Get())));
}

void TextBox::SetSelText(StringView put) {
  String text = Text;
  const std::size_t start = std::min(static_cast<std::size_t>(SelStart.Get()), text.size());
  text.replace(start, static_cast<std::size_t>(SelLength.Get()), put);
  Text = std::move(text);
  SelLength = 0;
  SelStart = static_cast<int>(start + put.size());
}

CheckBox::CheckBox() : changed_(Value.Observe(Run(OnClick))) {}

OptionButton::OptionButton()
    : changed_(Value.Observe([this] {
        if (Value && OnClick) OnClick();
      })) {}

void ListControl::AddItem(const String& text) {
  List.Change([&](auto& list) { list.push_back(text); });
}

void ListControl::RemoveItem(int index) {
  if (ListIndex >= index) ListIndex = -1;
  List.Change([&](auto& list) { list.erase(list.begin() + index); });
}

void ListControl::Clear() {
  ListIndex = -1;
  List = std::vector<String>{};
}

ListBox::ListBox() : changed_(ListIndex.Observe(Run(OnClick))) {}

void ListBox::Select(int index, bool selected) {
  if (IsSelected(index) == selected) return;
  Selected.Change([&](auto& rows) {
    if (selected)
      rows.insert(index);
    else
      rows.erase(index);
  });
  if (Style == Marks::CheckBoxes && ItemChecked) ItemChecked(index);
}

ComboBox::ComboBox() {
  indexChanged_ = ListIndex.Observe([this] {
    const int index = ListIndex;
    if (index < 0) return;
    Text = List.Get().at(static_cast<std::size_t>(index));
    if (OnClick) OnClick();
  });
  textChanged_ = Text.Observe([this] {
    const auto& list = List.Get();
    const auto found = std::find(list.begin(), list.end(), Text.Get());
    const int index = found == list.end() ? -1 : static_cast<int>(found - list.begin());
    const int old = ListIndex;
    if (index < 0 && !Editable && old >= 0) {
      Text = list.at(static_cast<std::size_t>(old));
      return;
    }
    // Two rows may hold the same text: the row that was chosen stays.
    if (old < 0 || old >= ListCount() || list[static_cast<std::size_t>(old)] != Text.Get())
      ListIndex = index;
    if (OnChange) OnChange();
  });
}
