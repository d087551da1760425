#pragma once
// The one list of all tools. Menus, the lists of stored steps and the dispatchers are made from it.

#include <span>

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

struct Tool {
  ToolGroup Group;
  // On the menu; empty for a tool that has no entry of its own.
  StringView Caption;
  // In custom tools and batch settings; compared as it stands.
  StringView StoredName;
  // Runs the tool with the settings that its window holds, on what BatchMode selects; null while
  // the tool is not there yet.
  void (*Run)(ToolContext&);
  // What the menu entry does on the editor where that is more than Run: asks for settings first, or
  // keeps those of an inner tool.
  void (*Click)(ToolContext&) = nullptr;
  // It takes a line at a time, and makes the same of a text on the editor and on a file: of one
  // that isn't blank and ends in a line end.
  bool Streams = false;
};

// An empty step of a custom tool or of the batch.
inline constexpr StringView kNoTool = u"None Selected";
// Stored names of the tools that more than their own file knows.
inline constexpr StringView kAddCarriageReturns = u"Add Trailing Carriage Returns";
inline constexpr StringView kToHtml = u"Convert TO HTML";
inline constexpr StringView kFromHtml = u"Convert FROM HTML";
inline constexpr StringView kSearchAndReplace = u"Search and Replace";
inline constexpr StringView kEmailStandard = u"Email Cleanup - Standard";
inline constexpr StringView kEmailPoem = u"Email Cleanup - Poem or List";
inline constexpr StringView kRunProgram = u"Run Program";

// In menu order.
std::span<const Tool> Catalogue();
// Null when no tool has this stored name.
const Tool* FindTool(StringView storedName);

struct ToolMenuGroup {
  ToolGroup Group;
  // Of the submenu; empty where the entries stand in the Tools menu itself.
  StringView Caption;
};
// The parts of the Tools menu, in order.
std::span<const ToolMenuGroup> ToolMenuGroups();
