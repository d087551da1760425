#include "core/command_words.h"

namespace {

constexpr CommandWord kWords[] = {
    {Word::NoSplash, u"/NOSPLASH", ValueKind::None, u"", Job::Window,
     u"start without the splash window"},
    {Word::Eof, u"/EOF", ValueKind::None, u"", Job::Window,
     u"put the caret behind the last character"},
    {Word::ViewHtml, u"/VIEWHTML"},
    {Word::Auto, u"/AUTO:", ValueKind::Text, u"NAME", Job::CustomTool,
     u"run the custom tool NAME on FILE, save the file, and exit"},
    {Word::SaveToLocation, u"/SAVETOLOCATION:", ValueKind::Folder, u"FOLDER", Job::CustomTool,
     u"save the result in FOLDER"},
    {Word::AddPrefix, u"/ADDPREFIX:", ValueKind::OneWord, u"TEXT", Job::CustomTool,
     u"put TEXT in front of the result's name"},
    {Word::SaveAsHtmlFile, u"/SAVEASHTMLFILE", ValueKind::None, u"", Job::CustomTool,
     u"let the result's name end in .html"},
    {Word::NoHtmlHeaderFooter, u"/NOHTMLHEADERFOOTER", ValueKind::None, u"", Job::CustomTool,
     u"let Convert to HTML write no page frame"},
    {Word::Mff, u"/MFF", ValueKind::None, u"", Job::Batch,
     u"with /AUTO:, run the custom tool on the files that the list FILE names, with a backup of "
     u"each"},
    {Word::UseAll, u"/USEALL:", ValueKind::Folder, u"FOLDER", Job::Batch,
     u"with /MFF, take all text and HTML files of FOLDER in place of a list"},
    {Word::EmailStd, u"/EMAILSTD", ValueKind::None, u"", Job::Clipboard,
     u"run Email Cleanup - Standard"},
    {Word::EmailPoem, u"/EMAILPOEM", ValueKind::None, u"", Job::Clipboard,
     u"run Email Cleanup - Poem or List"},
    {Word::AnyText, u"--any-text", ValueKind::None, u"", Job::Batch,
     u"change files that are Unicode text but no ASCII, too"},
    {Word::Tool, u"--tool", ValueKind::Arguments, u"NAME FILE...", Job::Option,
     u"run one tool on each FILE without a window, for example wordflurn --tool \"All Upper "
     u"Case\" notes.txt"},
    {Word::Runs, u"--runs", ValueKind::None, u"", Job::Option,
     u"list the last runs over many files, newest first"},
    {Word::Undo, u"--undo", ValueKind::Arguments, u"N [FILE...]", Job::Option,
     u"bring back what run N of that list has changed, or only each FILE; files that were changed "
     u"since are left alone without --force"},
    {Word::Help, u"--help", ValueKind::None, u"", Job::Option, u"show this help and exit"},
    {Word::Version, u"--version", ValueKind::None, u"", Job::Option, u"show the version and exit"},
};

constexpr bool InOrderOfTheirIds() {
  std::size_t place = 0;
  for (const CommandWord& word : kWords) {
    if (static_cast<std::size_t>(word.Id) != place++) return false;
  }
  return true;
}
static_assert(InOrderOfTheirIds());

constexpr Combination kRefused[] = {
    {Word::Mff, Word::Auto, false,
     u"You must use the /AUTO: switch to specify a custom tool to use with the /MFF switch."},
    {Word::Mff, Word::SaveAsHtmlFile, true,
     u"You cannot use the /SAVEASHTMLFILE switch with the /MFF switch."},
};

struct Section {
  Job With;
  StringView Title;
};

constexpr Section kSections[] = {
    {Job::Window, u"In a window:"},
    {Job::CustomTool, u"A custom tool on FILE, without a window:"},
    {Job::Batch, u"Many files, without a window:"},
    {Job::Clipboard, u"On the clipboard's text, which is left there:"},
    {Job::Option, u"Options:"},
};

constexpr StringView kAboutSwitches =
    u"Switches stand behind FILE, in any case. A value ends at the next switch; one in double "
    u"quotes is taken whole.";
constexpr StringView kAboutTheRest =
    u"WORDFLURN_HOME names the folder of the program's data.\n"
    u"Exit status: 0 done, 1 refused or impossible, 2 some files failed.\n";

constexpr std::size_t kWidth = 80;
constexpr std::size_t kTextColumn = 26;

// Adds a text that begins at the column where the page stands, in lines with this indentation.
void AddWrapped(String& page, StringView text, std::size_t indentation) {
  std::size_t column = page.size() - (page.rfind(u'\n') + 1);
  bool lineIsEmpty = true;
  while (!text.empty()) {
    const StringView word = text.substr(0, text.find(u' '));
    text.remove_prefix(std::min(text.size(), word.size() + 1));
    if (!lineIsEmpty && column + 1 + word.size() > kWidth) {
      page += u'\n' + String(indentation, u' ');
      column = indentation;
      lineIsEmpty = true;
    }
    if (!lineIsEmpty) page += u' ', ++column;
    page += word;
    column += word.size();
    lineIsEmpty = false;
  }
  page += u'\n';
}

String NameWithValue(const CommandWord& word) {
  String name(word.Name);
  if (!word.IsSwitch() && !word.ValueName.empty()) name += u' ';
  return name += word.ValueName;
}

// Calls for each section that has any word to show, and for each of these words.
template <class OnSection, class OnWord>
void ForEachShown(OnSection onSection, OnWord onWord) {
  for (const Section& section : kSections) {
    bool begun = false;
    for (const CommandWord& word : kWords) {
      if (word.With != section.With || word.Help.empty()) continue;
      if (!begun) onSection(section.Title);
      begun = true;
      onWord(word);
    }
  }
}

}  // namespace

std::span<const CommandWord> CommandWords() { return kWords; }

const CommandWord& RowOf(Word word) { return kWords[static_cast<std::size_t>(word)]; }

const CommandWord* FindOption(StringView name) {
  for (const CommandWord& word : kWords) {
    if (!word.IsSwitch() && word.Name == name) return &word;
  }
  return nullptr;
}

std::span<const Combination> RefusedCombinations() { return kRefused; }

String CommandLineHelp() {
  String page =
      u"Usage: wordflurn [FILE] [SWITCHES]\n"
      u"       wordflurn LIST /MFF /AUTO:NAME\n"
      u"       wordflurn --tool NAME FILE...\n\n"
      u"Edits plain text in a window. FILE need not exist yet.\n\n";
  AddWrapped(page, kAboutSwitches, 0);
  ForEachShown(
      [&page](StringView title) {
        page += u'\n';
        page += title;
        page += u'\n';
      },
      [&page](const CommandWord& word) {
        String head = u"  " + NameWithValue(word);
        if (head.size() + 2 > kTextColumn)
          head += u'\n' + String(kTextColumn, u' ');
        else
          head.resize(kTextColumn, u' ');
        page += head;
        AddWrapped(page, word.Help, kTextColumn);
      });
  page += u'\n';
  return page += kAboutTheRest;
}

String CommandLineHelpPage() {
  String page =
      u"From the command line\n\n"
      u"wordflurn FILE opens a file, which need not exist yet.\n";
  page += kAboutSwitches;
  page += u"\n\n";
  ForEachShown(
      [&page](StringView title) { page += UCase(title.substr(0, title.size() - 1)) + u"\n\n"; },
      [&page](const CommandWord& word) {
        page += NameWithValue(word) + u'\n' + UCase(word.Help.front());
        page += word.Help.substr(1);
        page += u".\n\n";
      });
  return page += kAboutTheRest;
}
