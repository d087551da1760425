#pragma once
// The words of the command line: switches and options. One table feeds the parser, the refusals
// and the help.

#include <array>
#include <span>

#include "text/text.h"

enum class Word {
  NoSplash,
  Eof,
  ViewHtml,
  Auto,
  SaveToLocation,
  AddPrefix,
  SaveAsHtmlFile,
  NoHtmlHeaderFooter,
  Mff,
  UseAll,
  EmailStd,
  EmailPoem,
  AnyText,
  Tool,
  Runs,
  Undo,
  Help,
  Version,
};

// What the program is started for.
enum class Job { Window, CustomTool, Batch, Clipboard, Option };

enum class ValueKind {
  None,
  Text,       // up to the next switch
  Folder,     // the same, a path
  OneWord,    // up to the next blank
  Arguments,  // of an option: those behind it
};

struct CommandWord {
  Word Id;
  // Of a switch "/NAME" in capitals, with a colon where a value follows; of an option "--name".
  StringView Name;
  ValueKind Value = ValueKind::None;
  // What the help calls the value.
  StringView ValueName = {};
  // The job that it belongs to.
  Job With = Job::Window;
  // Empty: not in the help.
  StringView Help = {};

  bool IsSwitch() const { return Name.front() == u'/'; }
};

std::span<const CommandWord> CommandWords();
const CommandWord& RowOf(Word word);
// The option of this name; null for none.
const CommandWord* FindOption(StringView name);

// Switches that can't stand together, or not without each other, in the order of the test.
struct Combination {
  Word Present;
  Word Other;
  bool Together;  // false: `Other` is missing
  StringView Refusal;
};
std::span<const Combination> RefusedCombinations();

// What --help prints: 80 columns, each line with its LF.
String CommandLineHelp();
// The same for the help window, with a title: a paragraph a line.
String CommandLineHelpPage();
