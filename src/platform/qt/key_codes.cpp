#include "platform/qt/key_codes.h"

namespace {

struct KeyPair {
  int Qt;
  int Code;
};

constexpr KeyPair kKeys[] = {
    {Qt::Key_Return, kKeyReturn}, {Qt::Key_Enter, kKeyReturn},      {Qt::Key_Escape, kKeyEscape},
    {Qt::Key_PageUp, kKeyPageUp}, {Qt::Key_PageDown, kKeyPageDown}, {Qt::Key_End, kKeyEnd},
    {Qt::Key_Home, kKeyHome},     {Qt::Key_Left, kKeyLeft},         {Qt::Key_Up, kKeyUp},
    {Qt::Key_Right, kKeyRight},   {Qt::Key_Down, kKeyDown},
};

int CodeOf(int key) {
  // Letters, digits and space have their ASCII codes in Qt, too.
  if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9) ||
      key == Qt::Key_Space)
    return key;
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return kKeyF1 + (key - Qt::Key_F1);
  for (const KeyPair& pair : kKeys)
    if (pair.Qt == key) return pair.Code;
  return 0;
}

}  // namespace

KeyEvent ToKeyEvent(const QKeyEvent& event) {
  KeyEvent key;
  key.Key = CodeOf(event.key());
  key.Shift = event.modifiers() & Qt::ShiftModifier;
  key.Control = event.modifiers() & Qt::ControlModifier;
  key.Alt = event.modifiers() & Qt::AltModifier;
  return key;
}
