#pragma once
// A key pressed in a window, on its way to the control that has the keyboard.

struct KeyEvent {
  // Letters and digits by their upper-case ASCII code, other keys by the numbers of KeyCode; 0 for
  // keys that no command uses.
  int Key = 0;
  bool Shift = false;
  bool Control = false;
  bool Alt = false;
  // Swallowed: the control does not see the key.
  bool Handled = false;
};

enum KeyCode : int {
  kKeyReturn = 13,
  kKeyEscape = 27,
  kKeySpace = 32,
  kKeyPageUp = 33,
  kKeyPageDown = 34,
  kKeyEnd = 35,
  kKeyHome = 36,
  kKeyLeft = 37,
  kKeyUp = 38,
  kKeyRight = 39,
  kKeyDown = 40,
  kKeyF1 = 112,
  kKeyF12 = 123,
};
