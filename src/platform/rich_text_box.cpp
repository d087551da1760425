#include "platform/rich_text_box.h"

#include "platform/text_file.h"

TextFormat RichTextBox::LoadFile(const String& path) {
  LoadedText loaded = ReadTextFile(path);
  SetText(loaded.Text);
  return std::move(loaded.Format);
}

void RichTextBox::SaveFile(const String& path, const TextFormat& format) const {
  WriteTextFile(path, *SharedText(), format);
}

std::shared_ptr<const String> RichTextBox::SharedText() const {
  if (!sharedText_) sharedText_ = std::make_shared<const String>(Text());
  return sharedText_;
}
