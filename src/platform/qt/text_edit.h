#pragma once
// The widget of the edit control: a plain text editor that keeps every character as it came, also
// from the keyboard, the clipboard and a drop.

#include <QApplication>
#include <QPlainTextEdit>
#include <functional>

#include "platform/qt/document_text.h"
#include "platform/window/key_event.h"

// Wrapping at words takes a time that grows with the square of a line without blanks: 15 s for
// 1 MB. From this length on (UTF-16 units) lines wrap anywhere, which is linear. The caret stands
// still then, since each blink would draw the whole line.
inline constexpr int kLongLine = 20000;

class TextEdit : public QPlainTextEdit {
 public:
  TextEdit();
  ~TextEdit() override;

  String Text() const;
  // Between two positions of the text that do not part a line end.
  String TextBetween(std::size_t from, std::size_t to) const;

  // How many characters at the front and at the end of the text are the same as at the last call of
  // this function; together never more than either text has.
  struct Untouched {
    std::size_t Front = 0;
    std::size_t End = 0;
  };
  Untouched TakeUntouched();

  // Puts the caret at the start. RuntimeError when there are no stand-ins for this text, and the
  // text stays.
  void SetText(StringView text);
  String SelectedText() const;
  // Replaces the selection and puts the caret behind. RuntimeError as above.
  void Insert(StringView text);
  // Positions in the document.
  void Select(int anchor, int caret);
  // The user may not change the text, yet sees and moves the caret.
  void SetLocked(bool locked);

  // The line at the top, as drawn.
  int FirstVisibleLine() const;
  void SetFirstVisibleLine(int line);

  // At once when the text is touched; nothing may be asked of the widget yet.
  std::function<void()> OnTouch;
  // After each move of caret or selection, then after each change of the text.
  std::function<void()> OnMove;
  std::function<void()> OnEdit;
  std::function<void(KeyEvent&)> OnKey;
  std::function<void()> OnMouse;
  std::function<void()> OnPasted;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  QMimeData* createMimeDataFromSelection() const override;
  bool canInsertFromMimeData(const QMimeData* source) const override;
  void insertFromMimeData(const QMimeData* source) override;

 private:
  // Between these two nothing is reported; the second one reports.
  class Hold;
  struct Selection {
    int Anchor = 0;
    int Caret = 0;
    bool operator==(const Selection&) const = default;
  };

  void NoteChange(int position, int removed, int added);
  void Report();
  void NoteLongLine(bool held);
  void InsertWithOtherStandIns(StringView text);
  // A text that can't be taken gives a beep.
  void InsertByUser(StringView text);
  Selection CurrentSelection() const;

  DocumentText conversion_;
  Untouched untouched_;
  Selection reported_;
  int changedAt_ = 0;
  int held_ = 0;
  const int flashTime_ = QApplication::cursorFlashTime();
  bool holdsLongLine_ = false;
  bool edited_ = false;
  bool composing_ = false;
};
