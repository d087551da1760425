#pragma once
// Asks the user a question.

#include "platform/window/form.h"

enum class Answer { Yes, No, Cancel };

class Question1 : public Form {
 public:
  explicit Question1(WindowSystem& windows);
  Layout Content() override;
  // Closing by the frame answers as Cancel does.
  void CloseByFrame() override;
  // Nobody there: Cancel.
  String AnswerUnattended() override;

  // What to ask; set it before the window is shown.
  String QuestionMessage;
  // Read it when the window is hidden, then unload the window.
  ::Answer Answer = ::Answer::Cancel;

  Image Image1;
  Label Label1;
  CommandButton Command1;
  CommandButton Command2;
  CommandButton Command3;

 protected:
  void Load() override;
};
