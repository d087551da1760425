#include "platform/rich_text_box.h"

#include "platform/text_file.h"

TextFormat RichTextBox::LoadFile(const String& path) {
  LoadedText loaded = ReadTextFile(path);
  SetText(loaded.Text);
  return std::move(loaded.Format);
}

void RichTextBox::SaveFile(const String& path, const TextFormat& format) const {
  WriteTextFile(path, Text(), format);
}
