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
constexpr bool kKeepsLineEnds = true;

// Tools by what they are called with.
template <auto kTool>
struct Call;
template <void (*kTool)(ToolContext&)>
struct Call<kTool> {
  static void Run(ToolContext& context, const ToolSettings&) { kTool(context); }
};
template <class Kind, void (*kTool)(ToolContext&, const Kind&)>
struct Call<kTool> {
  static void Run(ToolContext& context, const ToolSettings& settings) {
    const Kind* own = std::get_if<Kind>(&settings);
    kTool(context, own != nullptr ? *own : Kind{});
  }
};
template <auto kTool>
constexpr auto Runs = Call<kTool>::Run;

template <class Kind>
ToolSettings Empty() {
  Kind values;
  for (const auto& field : kSettingFields<Kind>) {
    if (field.Text)
      (values.*field.Text).clear();
    else
      values.*field.Flag = false;
  }
  return values;
}

template <auto kForm>
SettingsForm& FormIn(ToolState& tools) {
  return tools.*kForm;
}

constexpr SettingKind kAdd{u"Add", true, Empty<AddSettings>, FormIn<&ToolState::AddCarriageForm>};
constexpr SettingKind kSearch{u"Search", true, Empty<SearchSettings>,
                              FormIn<&ToolState::SearchReplaceForm>};
constexpr SettingKind kHtml{u"HTML", true, Empty<HtmlSettings>, FormIn<&ToolState::HTML>};
constexpr SettingKind kProgram{u"RunProgram", false, Empty<RunSettings>,
                               FormIn<&ToolState::RunProgramSettings>};

constexpr Tool kTools[] = {
    {CarriageReturns, u"Remove Trailing Carriage &Returns", u"Remove Trailing Carriage Returns",
     Runs<RemoveCarriage>, nullptr, kStreams},
    {CarriageReturns, u"Add Trailing Carriage Returns", kAddCarriageReturns, Runs<AddCarriage2>,
     &kAdd},
    {Capitalization, u"All &Lower Case", u"All Lower Case", Runs<LowerCaseText>, nullptr, kStreams,
     kKeepsLineEnds},
    {Capitalization, u"All &Upper Case", u"All Upper Case", Runs<UpperCaseText>, nullptr, kStreams,
     kKeepsLineEnds},
    {Capitalization, u"&Capitalize 1st Letter on Every Line",
     u"Capitalize 1st Letter on Every Line", Runs<CapitalizeLines>, nullptr, kStreams},
    {Capitalization, u"Capitalize 1st Letter of Sentences", u"Capitalize 1st Letter of Sentences",
     Runs<CapitalizeSentences>, nullptr, kStreams},
    {Capitalization, u"", u"Capitalize Custom Words", Runs<CapitalizeCustom>},
    {LineSpacing, u"Add Double Spacing", u"Add Double Spacing", Runs<AddDoubleSpc>, nullptr,
     kStreams},
    {LineSpacing, u"Remove Double Spacing", u"Remove Double Spacing", Runs<RemoveDoubleSpc>,
     nullptr, kStreams},
    {LineSpacing, u"Remove Blank Lines at Beginning and End of Text",
     u"Remove Blank Lines at Beginning and End of Text", Runs<RemoveBlankLines>},
    {LineSpacing, u"Add Blank Line Before Indented Paragraph",
     u"Add Blank Line Before Indented Paragraph", Runs<AddBlankParag>, nullptr, kStreams},
    {AlterCharacters, u"&Remove Leading \">\" signs", u"Remove Leading \">\" Signs",
     Runs<RemoveLeadingSigns>, nullptr, kStreams},
    {AlterCharacters, u"Remove 1 Leading Space", u"Remove 1 Leading Space", Runs<RemoveOneSpace>,
     nullptr, kStreams},
    {AlterCharacters, u"Remove All Leading Spaces", u"Remove ALL Leading Spaces",
     Runs<RemoveALLSpace>, nullptr, kStreams},
    {AlterCharacters, u"Indent Paragraphs", u"Indent Paragraphs", Runs<IndentParag>},
    {AlterCharacters, u"Fix Odd-Looking Characters (upper->lower ASCII)",
     u"Fix Odd-Looking Characters (upper->lower ASCII)", Runs<FixUpperASCII>},
    {HtmlConversion, u"Convert to &HTML", kToHtml, Runs<ConvertToHTML>, &kHtml},
    {HtmlConversion, u"Convert from HTML", kFromHtml, Runs<ConvertFROMHTML>},
    {TopOfTools, u"Search and Replace", kSearchAndReplace, Runs<SearchReplace>, &kSearch},
    {TopOfTools, kEmailStandard, kEmailStandard, Runs<EmailCleanup>},
    {TopOfTools, kEmailPoem, kEmailPoem, Runs<EmailCleanupPoem>},
    {CustomAndBatchOnly, u"", kRunProgram, Runs<RunProgram>, &kProgram},
};

constexpr ToolMenuGroup kGroups[] = {
    {CarriageReturns, u"Carriage Returns"}, {Capitalization, u"Capitalization"},
    {LineSpacing, u"Line Spacing"},         {AlterCharacters, u"Alter Characters"},
    {HtmlConversion, u"HTML Conversion"},   {TopOfTools, u""},
};

}  // namespace

std::span<const Tool> Catalogue() { return kTools; }

std::vector<String> OfferedTools(ToolUse use) {
  std::vector<String> names{String(kNoTool)};
  for (const Tool& tool : kTools) {
    const bool forSteps = tool.Group == CustomAndBatchOnly && use == ToolUse::Step;
    if (forSteps || !tool.Caption.empty()) names.emplace_back(tool.StoredName);
  }
  return names;
}

const Tool* FindTool(StringView storedName) {
  for (const Tool& tool : kTools) {
    if (tool.StoredName == storedName) return &tool;
  }
  return nullptr;
}

ToolSettings SettingsInWindow(const Tool& tool, ToolState& tools) {
  return tool.Settings ? tool.Settings->Form(tools).Settings() : ToolSettings();
}

void RunFromMenu(ToolContext& context, const Tool& tool) {
  if (!tool.Settings) return tool.Run(context, {});
  if (IsBlank(*context.RichTextBox1.SharedText())) return;
  SettingsForm& form = tool.Settings->Form(context.Tools);
  form.TakeDefaults(context.Fields);
  if (const auto settings = form.Ask()) return tool.Run(context, *settings);
  context.Fields.ToolUndoPending = false;
}

std::span<const ToolMenuGroup> ToolMenuGroups() { return kGroups; }
