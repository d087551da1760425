#pragma once
// The edit control without a display: its text is a String.

#include "platform/window/rich_text_box.h"

class StringRichTextBox : public RichTextBox {
 public:
  String Text() const override { return *text_; }
  std::size_t TextLength() const override { return text_->size(); }
  void SetText(StringView text) override;

  std::size_t SelStart() const override { return std::min(anchor_, caret_); }
  std::size_t SelLength() const override { return std::max(anchor_, caret_) - SelStart(); }
  void SetSelStart(std::size_t position) override;
  void SetSelLength(std::size_t length) override;
  String SelText() const override { return text_->substr(SelStart(), SelLength()); }
  void SetSelText(StringView text) override;

  // Reads the text up to the caret.
  TextPlace Caret() const override;
  // Remembered only: nothing is drawn.
  std::size_t FirstVisibleLine() const override { return firstVisibleLine_; }
  void SetFirstVisibleLine(std::size_t line) override { firstVisibleLine_ = line; }
  void SetRedraw(bool) override {}
  void Refresh() override {}

 protected:
  SharedString ReadText(const SharedString&) const override { return text_; }

 private:
  // The place nearest to `position` where a caret can stand.
  std::size_t CaretPlace(std::size_t position) const;
  void Report(bool changed, bool moved);
  void Select(std::size_t anchor, std::size_t caret);

  // Whoever has been given it keeps it as it was.
  SharedString text_ = std::make_shared<const String>();
  std::size_t anchor_ = 0;
  std::size_t caret_ = 0;
  std::size_t firstVisibleLine_ = 0;
};
