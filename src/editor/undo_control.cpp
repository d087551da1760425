#include "editor/undo_control.h"

namespace {

class RichTextBoxControl : public UndoControl {
 public:
  explicit RichTextBoxControl(RichTextBox& box) : box_(box) {}
  std::shared_ptr<const String> Text() const override { return box_.SharedText(); }
  std::size_t SelStart() const override { return box_.SelStart(); }
  std::size_t SelLength() const override { return box_.SelLength(); }
  void Select(std::size_t start, std::size_t length) override {
    box_.SetSelStart(start);
    box_.SetSelLength(length);
  }
  void ReplaceBlock(std::size_t front, std::size_t end, StringView block) override;
  std::size_t FirstVisibleLine() const override { return box_.FirstVisibleLine(); }
  void SetFirstVisibleLine(std::size_t line) override { box_.SetFirstVisibleLine(line); }
  void SetRedraw(bool on) override { box_.SetRedraw(on); }

 private:
  RichTextBox& box_;
};

void RichTextBoxControl::ReplaceBlock(std::size_t front, std::size_t end, StringView block) {
  const std::size_t length = box_.TextLength();
  box_.SetSelStart(front);
  box_.SetSelLength(length - front - end);
  // Only the block goes through the control, however long the text is. A block that ends inside a
  // line end can't be selected, and a CR put in front of an LF would not join it.
  const bool wholeBlock = box_.SelStart() == front && box_.SelLength() == length - front - end;
  if (wholeBlock && !block.ends_with(kCr)) {
    box_.SetSelText(block);
    return;
  }
  const std::shared_ptr<const String> text = box_.SharedText();
  const StringView view = *text;
  box_.SetText(String(view.substr(0, front)) + String(block) + String(view.substr(length - end)));
}

class TextBoxControl : public UndoControl {
 public:
  explicit TextBoxControl(TextBox& box) : box_(box) {}
  std::shared_ptr<const String> Text() const override {
    return std::make_shared<const String>(box_.Text.Get());
  }
  std::size_t SelStart() const override { return static_cast<std::size_t>(box_.SelStart.Get()); }
  std::size_t SelLength() const override { return static_cast<std::size_t>(box_.SelLength.Get()); }
  void Select(std::size_t start, std::size_t length) override {
    box_.SelStart = static_cast<int>(start);
    box_.SelLength = static_cast<int>(length);
  }
  void ReplaceBlock(std::size_t front, std::size_t end, StringView block) override {
    String text = box_.Text;
    text.replace(front, text.size() - front - end, block);
    box_.Text = std::move(text);
  }
  // A box of a dialog is small: it scrolls with its caret.
  std::size_t FirstVisibleLine() const override { return 0; }
  void SetFirstVisibleLine(std::size_t) override {}
  void SetRedraw(bool) override {}

 private:
  TextBox& box_;
};

}  // namespace

std::unique_ptr<UndoControl> UndoControlOf(RichTextBox& box) {
  return std::make_unique<RichTextBoxControl>(box);
}

std::unique_ptr<UndoControl> UndoControlOf(TextBox& box) {
  return std::make_unique<TextBoxControl>(box);
}
