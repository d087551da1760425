#include "platform/window/form.h"

#include "platform/window/window_system.h"

Form::~Form() { windows_.Forget(*this); }

void Form::LoadOnce() {
  if (loaded_) return;
  loaded_ = true;
  try {
    Load();
  } catch (...) {
    loaded_ = false;
    throw;
  }
}

void Form::Show() {
  LoadOnce();
  Visible = true;
  windows_.Show(*this);
}

void Form::ShowModal() {
  LoadOnce();
  Visible = true;
  windows_.RunModal(*this);
}

void Form::Hide() { Visible = false; }

void Form::Unload() {
  Visible = false;
  if (!loaded_) return;
  loaded_ = false;
  windows_.Forget(*this);
}
