#pragma once
// What the undo engine needs of a text control.

#include <memory>

#include "platform/window/rich_text_box.h"

class UndoControl {
 public:
  virtual ~UndoControl() = default;
  virtual std::shared_ptr<const String> Text() const = 0;
  virtual std::size_t SelStart() const = 0;
  virtual std::size_t SelLength() const = 0;
  virtual void Select(std::size_t start, std::size_t length) = 0;
  // Puts `block` in the place of everything but the first `front` and the last `end` characters.
  virtual void ReplaceBlock(std::size_t front, std::size_t end, StringView block) = 0;
  virtual std::size_t FirstVisibleLine() const = 0;
  virtual void SetFirstVisibleLine(std::size_t line) = 0;
  // While it is off, nothing is drawn.
  virtual void SetRedraw(bool on) = 0;
};

std::unique_ptr<UndoControl> UndoControlOf(RichTextBox& box);
std::unique_ptr<UndoControl> UndoControlOf(TextBox& box);
