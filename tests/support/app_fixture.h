#pragma once
// The application over a scripted window system and a data folder of its own.

#include <gtest/gtest.h>

#include "core/change_case.h"
#include "platform/system/files.h"
#include "support/scripted_window_system.h"
#include "support/temp_folder.h"

class AppTest : public testing::Test {
 protected:
  ScriptedWindowSystem Windows;
  TempFolder Data;
  TempFolder Files;

  // Starts the program with this command line.
  ChangeCase& Start(StringView commandLine = u"/NOSPLASH") {
    app_.reset();
    session_.reset();
    session_ = std::make_unique<Session>(Windows, Data.Path(), String(commandLine));
    app_ = std::make_unique<ChangeCase>(*session_);
    app_->Show();
    return *app_;
  }
  ChangeCase& App() { return *app_; }

  // Opens a file as the user does with the dialog.
  void Open(const String& path) {
    Windows.ChosenFile = path;
    app_->Menu.OpenMenu.Click();
  }

 private:
  std::unique_ptr<Session> session_;
  std::unique_ptr<ChangeCase> app_;
};
