#pragma once
// The edit control in a window.

#include <QPointer>

#include "platform/qt/text_edit.h"
#include "platform/window/rich_text_box.h"

class QtRichTextBox : public RichTextBox {
 public:
  QtRichTextBox();
  ~QtRichTextBox() override;

  // The box owns its widget, which holds the text. Whoever puts it into a window takes it out
  // before that window is destroyed.
  QWidget* Widget() const { return edit_; }

  String Text() const override;
  std::size_t TextLength() const override;
  void SetText(StringView text) override;
  std::size_t SelStart() const override;
  std::size_t SelLength() const override;
  void SetSelStart(std::size_t position) override;
  void SetSelLength(std::size_t length) override;
  String SelText() const override;
  void SetSelText(StringView text) override;
  TextPlace Caret() const override;
  std::size_t FirstVisibleLine() const override;
  void SetFirstVisibleLine(std::size_t line) override;
  void SetRedraw(bool on) override;
  void Refresh() override;

 protected:
  SharedString ReadText(const SharedString& before) const override;

 private:
  void ApplyFont();
  void ApplyWrap();

  QPointer<TextEdit> edit_;
  Signal::Subscription lockedChanged_;
  Signal::Subscription rightMarginChanged_;
  Signal::Subscription fontChanged_;
};
