#include "editor/messages.h"

Messages::Messages(WindowSystem& windows)
    : Notice1(windows), Question1(windows), Working(windows), HelpWindow(windows) {}

void Messages::Notice(StringView message) {
  ++noticeCount_;
  Notice1.NoticeMessage = message;
  Notice1.ShowModal();
}

Answer Messages::Ask(StringView question) {
  Question1.QuestionMessage = question;
  Question1.ShowModal();
  const Answer answer = Question1.Answer;
  Question1.Unload();
  return answer;
}

void Messages::Help(int topic) {
  // It may be open beside the main window, out of reach now.
  HelpWindow.Unload();
  HelpWindow.Choose(topic);
  HelpWindow.ShowModal();
}
