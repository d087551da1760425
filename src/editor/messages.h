#pragma once
// How every part of the program speaks to the user.

#include "editor/help_window.h"
#include "editor/notice1.h"
#include "editor/question1.h"
#include "editor/working.h"

class Messages {
 public:
  explicit Messages(WindowSystem& windows);

  // Shows a message and returns when the user has read it.
  void Notice(StringView message);
  // How often that was done.
  int NoticeCount() const { return noticeCount_; }
  Answer Ask(StringView question);
  // Shows a page of the help, above the window that asks for it.
  void Help(int topic);

  ::Notice1 Notice1;
  ::Question1 Question1;
  ::Working Working;
  ::HelpWindow HelpWindow;

 private:
  int noticeCount_ = 0;
};
