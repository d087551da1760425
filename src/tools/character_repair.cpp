#include "tools/character_repair.h"

#include "text/runtime_error.h"
#include "tools/carriage_returns.h"
#include "tools/leading_characters.h"
#include "tools/line_spacing.h"
#include "tools/lines/lines.h"
#include "tools/lines/text_lines.h"
#include "tools/search_replace.h"
#include "tools/tool_chain.h"
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
void CheckLength(ToolContext& context) {
  if (context.File != nullptr) return;
  const RichTextBox& editor = context.RichTextBox1;
  const String selected = editor.SelText();
  const auto whole = editor.SharedText();
  TextSource text(selected.empty() ? *whole : selected);
  for (BoundedSource lines(text); !lines.AtEnd();) lines.ReadLine();
}

// Runs tools as one, and the repair behind them.
void RunChain(ToolContext& context, std::initializer_list<Step> steps) {
  if (context.File == nullptr && IsBlank(*context.RichTextBox1.SharedText())) return;
  try {
    CheckLength(context);
    ToolChain chain(context);
    for (const Step step : steps) {
      step(chain.Context());
      if (!chain.Next()) return;
    }
    for (const Repair& repair : kRepairs) {
      if (&repair != kRepairs && !chain.Next()) return;
      SearchReplace(chain.Context(), {.SearchFor = String(repair.SearchFor),
                                      .ReplaceWith = String(repair.ReplaceWith),
                                      .ByCodes = true});
    }
  } catch (const RuntimeError& error) {
    Tell(context, error);
  }
}

}  // namespace

void FixUpperASCII(ToolContext& context) { RunChain(context, {}); }

void EmailCleanup(ToolContext& context) {
  RunChain(context, {RemoveLeadingSigns, RemoveBlankLines, RemoveALLSpace, RemoveCarriage});
}

void EmailCleanupPoem(ToolContext& context) {
  RunChain(context, {RemoveLeadingSigns, RemoveBlankLines, RemoveALLSpace});
}
