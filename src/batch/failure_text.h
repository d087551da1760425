#pragma once
// What a batch says of a file that has failed.

#include <exception>

#include "text/text.h"

struct BatchFailure {
  int Code = 0;
  // What was worked on, a new name perhaps.
  String File;
  // In the report behind the file's name.
  String LogText;
  // The run ends and is taken back, after this message; empty where it goes on.
  String AbortText;
  // In the window, while the run goes on.
  String StatusText;

  bool Aborts() const { return !AbortText.empty(); }
};

// checkingRunProgram: the failure is one of the program that a
// step names.
BatchFailure FailureOf(const std::exception& error, const String& file, bool checkingRunProgram);
