#include "editor/question1.h"

Question1::Question1(WindowSystem& windows) : Form(windows) {
  Caption = u"WordFlurn";
  Image1.Icon = u"question";
  Label1.WordWrap = true;
  Command1.Caption = u"&Yes";
  Command2.Caption = u"&No";
  Command3.Caption = u"C&ancel";
  Command1.Default = true;
  Command3.Cancel = true;
  const auto answer = [this](::Answer value) {
    return [this, value] {
      Answer = value;
      Hide();
    };
  };
  Command1.OnClick = answer(::Answer::Yes);
  Command2.OnClick = answer(::Answer::No);
  Command3.OnClick = answer(::Answer::Cancel);
}

Layout Question1::Content() {
  return Column({Row({Image1, Label1}), Row({Stretch(), Command1, Command2, Command3, Stretch()})});
}

void Question1::Load() {
  Answer = ::Answer::Cancel;
  Label1.Caption = QuestionMessage;
}

void Question1::CloseByFrame() { Command3.Click(); }

String Question1::AnswerUnattended() {
  Command3.Click();
  return QuestionMessage + u" CANCEL";
}
