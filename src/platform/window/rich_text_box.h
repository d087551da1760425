#pragma once
// The edit control of plain text.
//
// Text has CR LF as its line end and positions count both, from 0. A position between a CR and its
// LF counts as the one before the CR. CR and CR LF put in become a line end, an LF alone stays
// inside the line; every other character, NUL and lone surrogates included, comes back as it went
// in. A position past the end counts as the end.

#include <cstddef>
#include <functional>
#include <memory>

#include "platform/window/bars.h"
#include "platform/window/controls.h"
#include "platform/window/key_event.h"
#include "text/text_format.h"

struct MenuItem;

struct TextFont {
  String Name;
  // Points.
  double Size = 12;
  bool Bold = false;
  bool operator==(const TextFont&) const = default;
};

// Line and column, counted from 1.
struct TextPlace {
  std::size_t Line = 1;
  std::size_t Column = 1;
  bool operator==(const TextPlace&) const = default;
};

class RichTextBox : public Control {
 public:
  void Accept(ControlVisitor& visitor) override;

  virtual String Text() const = 0;
  virtual std::size_t TextLength() const = 0;
  // The caret goes to the start. A text equal to the one there is no change.
  virtual void SetText(StringView text) = 0;

  virtual std::size_t SelStart() const = 0;
  virtual std::size_t SelLength() const = 0;
  // Ends the selection and puts the caret there.
  virtual void SetSelStart(std::size_t position) = 0;
  virtual void SetSelLength(std::size_t length) = 0;
  virtual String SelText() const = 0;
  // Replaces the selection; the caret then stands behind the text put in.
  virtual void SetSelText(StringView text) = 0;

  // Where the caret is: the end of the selection that moves.
  virtual TextPlace Caret() const = 0;
  // The line at the top, counted from 0 as drawn: a wrapped line counts as several.
  virtual std::size_t FirstVisibleLine() const = 0;
  virtual void SetFirstVisibleLine(std::size_t line) = 0;
  // While it is off, changes are not drawn.
  virtual void SetRedraw(bool on) = 0;
  virtual void Refresh() = 0;

  // The text, read once after each change however often it is asked for. Holds for as long as the
  // caller keeps it.
  std::shared_ptr<const String> SharedText() const;

  // Puts in the text of a file and returns how the file holds it. RuntimeError, and the text stays.
  TextFormat LoadFile(const String& path);
  // Writes the text; the file keeps what it holds if that fails. RuntimeError.
  void SaveFile(const String& path, const TextFormat& format, const String& model = {}) const;

  // The user may not change the text; the program may.
  Property<bool> Locked{false};
  // 0 wraps at the edge of the window, any other value not at all.
  Property<int> RightMargin{0};
  Property<TextFont> Font;

  // The menu that the right mouse button opens; null for none.
  MenuItem* ContextMenu = nullptr;

  // Any change of the text, by the user or the program. A change that moves the caret is told by
  // OnSelChange first.
  std::function<void()> OnChange;
  std::function<void()> OnSelChange;
  // A key or a mouse button goes down in the control, before it has any effect.
  std::function<void(KeyEvent&)> OnKeyDown;
  std::function<void()> OnMouseDown;
  // The user has pasted or dropped text.
  std::function<void()> OnPaste;

 protected:
  using SharedString = std::shared_ptr<const String>;

  // For implementations: the text has changed just now.
  void TextIsAnother() { sharedTextHolds_ = false; }
  // The text, made of the one that was read before (may be null) where that is quicker.
  virtual SharedString ReadText(const SharedString& before) const;

 private:
  mutable SharedString sharedText_;
  mutable bool sharedTextHolds_ = false;
};
