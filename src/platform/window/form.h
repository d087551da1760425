#pragma once
// A window: public members are its controls, methods its handlers, Content() its layout. No window
// system code stands in one.

#include <vector>

#include "platform/window/bars.h"
#include "platform/window/key_event.h"
#include "platform/window/layout.h"

class WindowSystem;

class Form {
 public:
  enum class Frame {
    Dialog,    // title and close button
    Main,      // menu bar, may be resized
    Progress,  // title, no close button
    Splash,    // no frame, above all other windows
  };

  explicit Form(WindowSystem& windows) : windows_(windows) {}
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form();

  // Asked once after each load, when the window is first shown.
  virtual Layout Content() = 0;
  virtual Frame Style() const { return Frame::Dialog; }
  // Whether all other windows wait while it is there, though Show returns at once.
  virtual bool BlocksOthers() const { return false; }
  // Menus of a main window.
  virtual std::vector<MenuItem*> Menus() { return {}; }

  // Prepares the window without showing it, unless that was done already.
  void LoadOnce();
  // Shows the window and returns at once.
  void Show();
  // Shows the window and returns when it is hidden or unloaded; other windows wait meanwhile.
  void ShowModal();
  // The controls keep their values.
  void Hide();
  // Takes the window away; the next showing runs Load again.
  void Unload();

  // The user closes the window by its frame, or presses Escape where no button answers to it.
  virtual void CloseByFrame() { Unload(); }
  // Does what is done where nobody can answer the window, and returns what to tell on standard
  // error, empty for nothing.
  virtual String AnswerUnattended() {
    CloseByFrame();
    return {};
  }
  // A key on its way to a control of the window. Swallowed when it is set to handled.
  virtual void KeyDown(KeyEvent& key) { (void)key; }
  // The window got the keyboard from another one, of this program or not.
  virtual void Activated() {}
  virtual bool TakesDrops() const { return Style() == Frame::Main; }
  // Files dropped on the window.
  virtual void DropFiles(const std::vector<String>& paths) { (void)paths; }

  bool Loaded() const { return loaded_; }

  Property<String> Caption;
  // Read it; Show, Hide and Unload write it.
  Property<bool> Visible{false};
  // The control that has the keyboard; null when none has.
  Property<Control*> ActiveControl{nullptr};
  // The mouse pointer over the window asks for patience.
  Property<bool> Busy{false};
  // Wished width and height of the inner area in characters and lines of the system font; 0 is as
  // small as the controls allow.
  int Columns = 0;
  int Lines = 0;

 protected:
  // Before the first showing, and again after an unload.
  virtual void Load() {}
  WindowSystem& Windows() { return windows_; }

 private:
  WindowSystem& windows_;
  bool loaded_ = false;
};
