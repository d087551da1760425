#include "platform/window/rich_text_box.h"

#include "platform/system/text_file.h"

TextFormat RichTextBox::LoadFile(const String& path) {
  LoadedText loaded = ReadTextFile(path);
  SetText(loaded.Text);
  return std::move(loaded.Format);
}

void RichTextBox::SaveFile(const String& path, const TextFormat& format,
                           const String& model) const {
  WriteTextFile(path, *SharedText(), format, model);
}

std::shared_ptr<const String> RichTextBox::SharedText() const {
  if (!sharedTextHolds_) {
    sharedText_ = ReadText(sharedText_);
    sharedTextHolds_ = true;
  }
  return sharedText_;
}

RichTextBox::SharedString RichTextBox::ReadText(const SharedString&) const {
  return std::make_shared<const String>(Text());
}
