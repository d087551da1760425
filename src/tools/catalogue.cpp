#include "tools/catalogue.h"

#include "tools/capitalization.h"
#include "tools/carriage_returns.h"
#include "tools/character_repair.h"
#include "tools/html_from.h"
#include "tools/html_to.h"
#include "tools/leading_characters.h"
#include "tools/line_spacing.h"
#include "tools/run_program.h"
#include "tools/search_replace.h"

namespace {

using enum ToolGroup;

constexpr bool kStreams = true;

constexpr Tool kTools[] = {
    {CarriageReturns, u"Remove Trailing Carriage &Returns", u"Remove Trailing Carriage Returns",
     RemoveCarriage, nullptr, kStreams},
    {CarriageReturns, u"Add Trailing Carriage Returns", kAddCarriageReturns, AddCarriage2,
     LoadCarriageForm},
    {Capitalization, u"All &Lower Case", u"All Lower Case", LowerCaseText, nullptr, kStreams},
    {Capitalization, u"All &Upper Case", u"All Upper Case", UpperCaseText, nullptr, kStreams},
    {Capitalization, u"&Capitalize 1st Letter on Every Line",
     u"Capitalize 1st Letter on Every Line", CapitalizeLines, nullptr, kStreams},
    {Capitalization, u"Capitalize 1st Letter of Sentences", u"Capitalize 1st Letter of Sentences",
     CapitalizeSentences, nullptr, kStreams},
    {Capitalization, u"", u"Capitalize Custom Words", CapitalizeCustom},
    {LineSpacing, u"Add Double Spacing", u"Add Double Spacing", AddDoubleSpc, nullptr, kStreams},
    {LineSpacing, u"Remove Double Spacing", u"Remove Double Spacing", RemoveDoubleSpc, nullptr,
     kStreams},
    {LineSpacing, u"Remove Blank Lines at Beginning and End of Text",
     u"Remove Blank Lines at Beginning and End of Text", RemoveBlankLines},
    {LineSpacing, u"Add Blank Line Before Indented Paragraph",
     u"Add Blank Line Before Indented Paragraph", AddBlankParag, nullptr, kStreams},
    {AlterCharacters, u"&Remove Leading \">\" signs", u"Remove Leading \">\" Signs",
     RemoveLeadingSigns, nullptr, kStreams},
    {AlterCharacters, u"Remove 1 Leading Space", u"Remove 1 Leading Space", RemoveOneSpace, nullptr,
     kStreams},
    {AlterCharacters, u"Remove All Leading Spaces", u"Remove ALL Leading Spaces", RemoveALLSpace,
     nullptr, kStreams},
    {AlterCharacters, u"Indent Paragraphs", u"Indent Paragraphs", IndentParag},
    {AlterCharacters, u"Fix Odd-Looking Characters (upper->lower ASCII)",
     u"Fix Odd-Looking Characters (upper->lower ASCII)", FixUpperASCII, FixUpperASCIIFromMenu},
    {HtmlConversion, u"Convert to &HTML", kToHtml, ConvertToHTML, LoadHTMLOptionForm},
    {HtmlConversion, u"Convert from HTML", kFromHtml, ConvertFROMHTML},
    {TopOfTools, u"Search and Replace", kSearchAndReplace, SearchReplace, LoadSearchReplaceForm},
    {TopOfTools, kEmailStandard, kEmailStandard, EmailCleanup, EmailCleanupFromMenu},
    {TopOfTools, kEmailPoem, kEmailPoem, EmailCleanupPoem, EmailCleanupPoemFromMenu},
    {CustomAndBatchOnly, u"", kRunProgram, RunProgramAsSet},
};

constexpr ToolMenuGroup kGroups[] = {
    {CarriageReturns, u"Carriage Returns"}, {Capitalization, u"Capitalization"},
    {LineSpacing, u"Line Spacing"},         {AlterCharacters, u"Alter Characters"},
    {HtmlConversion, u"HTML Conversion"},   {TopOfTools, u""},
};

}  // namespace

std::span<const Tool> Catalogue() { return kTools; }

const Tool* FindTool(StringView storedName) {
  for (const Tool& tool : kTools) {
    if (tool.StoredName == storedName) return &tool;
  }
  return nullptr;
}

std::span<const ToolMenuGroup> ToolMenuGroups() { return kGroups; }
