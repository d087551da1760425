#include "editor/messages.h"

Messages::Messages(WindowSystem& windows)
    : Notice1(windows), Question1(windows), Working(windows) {}

void Messages::Notice(StringView message) {
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
