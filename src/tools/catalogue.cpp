#include "tools/catalogue.h"

#include "tools/capitalization.h"
#include "tools/carriage_returns.h"

namespace {

using enum ToolGroup;

constexpr Tool kTools[] = {
    {CarriageReturns, u"Remove Trailing Carriage &Returns", u"Remove Trailing Carriage Returns",
     RemoveCarriage},
    {CarriageReturns, u"Add Trailing Carriage Returns", u"Add Trailing Carriage Returns",
     AddCarriage2, LoadCarriageForm},
    {Capitalization, u"All &Lower Case", u"All Lower Case", LowerCaseText},
    {Capitalization, u"All &Upper Case", u"All Upper Case", UpperCaseText},
    {Capitalization, u"&Capitalize 1st Letter on Every Line",
     u"Capitalize 1st Letter on Every Line", nullptr},
    {Capitalization, u"Capitalize 1st Letter of Sentences", u"Capitalize 1st Letter of Sentences",
     nullptr},
    {Capitalization, u"", u"Capitalize Custom Words", nullptr},
    {LineSpacing, u"Add Double Spacing", u"Add Double Spacing", nullptr},
    {LineSpacing, u"Remove Double Spacing", u"Remove Double Spacing", nullptr},
    {LineSpacing, u"Remove Blank Lines at Beginning and End of Text",
     u"Remove Blank Lines at Beginning and End of Text", nullptr},
    {LineSpacing, u"Add Blank Line Before Indented Paragraph",
     u"Add Blank Line Before Indented Paragraph", nullptr},
    {AlterCharacters, u"&Remove Leading \">\" signs", u"Remove Leading \">\" Signs", nullptr},
    {AlterCharacters, u"Remove 1 Leading Space", u"Remove 1 Leading Space", nullptr},
    {AlterCharacters, u"Remove All Leading Spaces", u"Remove ALL Leading Spaces", nullptr},
    {AlterCharacters, u"Indent Paragraphs", u"Indent Paragraphs", nullptr},
    {AlterCharacters, u"Fix Odd-Looking Characters (upper->lower ASCII)",
     u"Fix Odd-Looking Characters (upper->lower ASCII)", nullptr},
    {HtmlConversion, u"Convert to &HTML", u"Convert TO HTML", nullptr},
    {HtmlConversion, u"Convert from HTML", u"Convert FROM HTML", nullptr},
    {TopOfTools, u"Search and Replace", u"Search and Replace", nullptr},
    {TopOfTools, u"Email Cleanup - Standard", u"Email Cleanup - Standard", nullptr},
    {TopOfTools, u"Email Cleanup - Poem or List", u"Email Cleanup - Poem or List", nullptr},
    {CustomAndBatchOnly, u"", u"Run Program", nullptr},
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
