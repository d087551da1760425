#include "tools/character_repair.h"

#include "text/runtime_error.h"
#include "text/scoped_value.h"
#include "tools/carriage_returns.h"
#include "tools/file_chain.h"
#include "tools/leading_characters.h"
#include "tools/line_spacing.h"
#include "tools/lines/lines.h"
#include "tools/lines/text_lines.h"
#include "tools/search_replace.h"
#include "tools/selection.h"
#include "tools/tool_frame.h"

namespace {

// By character codes.
struct Repair {
  StringView SearchFor;
  StringView ReplaceWith;
};

constexpr Repair kRepairs[] = {
    {u"147<OR>148", u"34"},  // double quotation marks
    {u"145<OR>146", u"39"},  // single quotation marks
    {u"133", u"46 46 46"},   // ellipsis
    {u"150", u"45"},         // en dash
    {u"151", u"32 45 32"},   // em dash
};

using Step = void (*)(ToolContext&);

// Told once for all steps, and before the first of them. A file fails at the first that needs the
// table.
bool IsTooLong(ToolContext& context) {
  if (context.Fields.BatchMode) return false;
  const RichTextBox& editor = context.RichTextBox1;
  const String selected = editor.SelText();
  const auto whole = editor.SharedText();
  TextSource text(selected.empty() ? *whole : selected);
  try {
    for (BoundedSource lines(text); !lines.AtEnd();) lines.ReadLine();
    return false;
  } catch (const RuntimeError& error) {
    context.Messages.Notice(FromUtf8(error.what()));
    return true;
  }
}

void Clean(ToolContext& context, std::initializer_list<Step> steps) {
  if (IsTooLong(context)) return;
  const ChainSelection selection(context);
  for (const Step step : steps) {
    step(context);
    if (selection.IsGone()) return;
    ChainStep(context.Fields);
  }
  FixUpperASCII(context);
}

void RunKeeping(ToolContext& context, Step tool) {
  const auto text = context.RichTextBox1.SharedText();
  if (IsBlank(*text)) return;
  SearchReplaceForm& form = context.Tools.SearchReplaceForm;
  const SettingValues settings = form.Values();
  const ScopedValue running(context.Fields.CustomToolRunning, true);
  const auto restore = [&] {
    KeepForUndo(context.Fields, *text);
    form.SetValues(settings);
  };
  try {
    tool(context);
  } catch (...) {
    restore();
    throw;
  }
  restore();
}

}  // namespace

void FixUpperASCII(ToolContext& context) {
  if (IsTooLong(context)) return;
  const ChainSelection selection(context);
  for (const Repair& repair : kRepairs) {
    if (selection.IsGone()) return;
    if (&repair != kRepairs) ChainStep(context.Fields);
    context.Tools.SearchReplaceForm.Use({.SearchFor = String(repair.SearchFor),
                                         .ReplaceWith = String(repair.ReplaceWith),
                                         .ByCodes = true});
    SearchReplace(context);
  }
}

void EmailCleanup(ToolContext& context) {
  Clean(context, {RemoveLeadingSigns, RemoveBlankLines, RemoveALLSpace, RemoveCarriage});
}

void EmailCleanupPoem(ToolContext& context) {
  Clean(context, {RemoveLeadingSigns, RemoveBlankLines, RemoveALLSpace});
}

void FixUpperASCIIFromMenu(ToolContext& context) { RunKeeping(context, FixUpperASCII); }
void EmailCleanupFromMenu(ToolContext& context) { RunKeeping(context, EmailCleanup); }
void EmailCleanupPoemFromMenu(ToolContext& context) { RunKeeping(context, EmailCleanupPoem); }
