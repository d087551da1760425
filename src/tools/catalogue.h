#pragma once
// The one list of all tools. Menus, the lists of stored steps and the dispatchers are made from it.

#include <span>
#include <vector>

#include "tools/tool_context.h"

enum class ToolGroup {
  CarriageReturns,
  Capitalization,
  LineSpacing,
  AlterCharacters,
  HtmlConversion,
  TopOfTools,
  CustomAndBatchOnly,
};

// A kind of settings: where its values stand.
struct SettingKind {
  // In the custom tool file, in front of the tool's number.
  StringView Key;
  // A step may have its window shown when it runs.
  bool CanShow;
  // No value is set.
  ToolSettings (*Empty)();
  SettingsForm& (*Form)(ToolState&);
};

struct Tool {
  ToolGroup Group;
  // On the menu; empty for a tool that has no entry of its own.
  StringView Caption;
  // In custom tools and batch settings; compared as it stands.
  StringView StoredName;
  // Runs the tool on what the context names. Settings of another kind count as the tool's defaults.
  void (*Run)(ToolContext&, const ToolSettings&);
  // Null for a tool without settings.
  const SettingKind* Settings = nullptr;
  // It takes a line at a time, and makes the same of a text on the editor and on a file: of one
  // that isn't blank and ends in a line end.
  bool Streams = false;
  // On the editor it leaves line ends, and a missing last one, as they are.
  bool KeepsLineEnds = false;
};

// An empty step of a custom tool or of the batch.
inline constexpr StringView kNoTool = u"None Selected";
// Stored names of the tools that other parts of the program name.
inline constexpr StringView kAddCarriageReturns = u"Add Trailing Carriage Returns";
inline constexpr StringView kToHtml = u"Convert TO HTML";
inline constexpr StringView kFromHtml = u"Convert FROM HTML";
inline constexpr StringView kSearchAndReplace = u"Search and Replace";
inline constexpr StringView kEmailStandard = u"Email Cleanup - Standard";
inline constexpr StringView kEmailPoem = u"Email Cleanup - Poem or List";
inline constexpr StringView kRunProgram = u"Run Program";

// In menu order.
std::span<const Tool> Catalogue();
// The stored names that a list of tools offers, kNoTool first and then in menu order: for a step of
// a custom tool, or for a pass of a batch.
enum class ToolUse { Step, Pass };
std::vector<String> OfferedTools(ToolUse use);
// Null when no tool has this stored name.
const Tool* FindTool(StringView storedName);

// What the tool's window holds; nothing for a tool without settings.
ToolSettings SettingsInWindow(const Tool& tool, ToolState& tools);
// Runs a tool on the editor as its menu entry does: with what the user sets in its window, where it
// has one. A blank text asks for nothing.
void RunFromMenu(ToolContext& context, const Tool& tool);

struct ToolMenuGroup {
  ToolGroup Group;
  // Of the submenu; empty where the entries stand in the Tools menu itself.
  StringView Caption;
};
// The parts of the Tools menu, in order.
std::span<const ToolMenuGroup> ToolMenuGroups();
