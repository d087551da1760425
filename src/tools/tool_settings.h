#pragma once
// What the tools that have settings are set to, as values. A step of a custom tool, a pass of a
// batch and a settings window all hold one of these.

#include <array>
#include <type_traits>
#include <variant>

#include "tools/lines/search_settings.h"

struct AddSettings {
  String Position = u"76";  // in characters, as typed
  bool AtWords = true;
};

struct HtmlSettings {
  String HeaderFile = u"Default";
  String FooterFile = u"Default";
  bool BreakLines = false;
  bool NoTitle = false;
};

struct RunSettings {
  String Program{};
  String Arguments{};  // behind the file
};

// monostate: of a tool that has none.
using ToolSettings =
    std::variant<std::monostate, AddSettings, SearchSettings, HtmlSettings, RunSettings>;

// A value among the settings: a text or a flag.
template <class Settings>
struct SettingField {
  String Settings::*Text = nullptr;
  bool Settings::*Flag = nullptr;
  // What stands round a text that may have several lines, in the custom tool file.
  StringView Begin = {};
  StringView End = {};
};

// The values of each kind, in the order in which the custom tool file and the controls of its
// window have them. The first one is empty in a step that is not set.
template <class Settings>
inline constexpr auto kSettingFields = std::array<SettingField<Settings>, 0>{};
template <>
inline constexpr auto kSettingFields<AddSettings> = std::to_array<SettingField<AddSettings>>({
    {.Text = &AddSettings::Position},
    {.Flag = &AddSettings::AtWords},
});
template <>
inline constexpr auto kSettingFields<SearchSettings> = std::to_array<SettingField<SearchSettings>>({
    {.Text = &SearchSettings::SearchFor,
     .Begin = u"<<BEGINSEARCHTEXT>>",
     .End = u"<<ENDSEARCHTEXT>>"},
    {.Text = &SearchSettings::ReplaceWith,
     .Begin = u"<<BEGINREPLACETEXT>>",
     .End = u"<<ENDREPLACETEXT>>"},
    {.Flag = &SearchSettings::ByCodes},
    {.Flag = &SearchSettings::WholeWord},
    {.Flag = &SearchSettings::MatchCase},
});
template <>
inline constexpr auto kSettingFields<HtmlSettings> = std::to_array<SettingField<HtmlSettings>>({
    {.Text = &HtmlSettings::HeaderFile},
    {.Text = &HtmlSettings::FooterFile},
    {.Flag = &HtmlSettings::BreakLines},
    {.Flag = &HtmlSettings::NoTitle},
});
template <>
inline constexpr auto kSettingFields<RunSettings> = std::to_array<SettingField<RunSettings>>({
    {.Text = &RunSettings::Program},
    {.Text = &RunSettings::Arguments},
});

// Calls work(settings, field) for each value of settings that have some.
template <class Variant, class Work>
void ForEachField(Variant& settings, Work work) {
  std::visit(
      [&work](auto& values) {
        using Settings = std::remove_const_t<std::remove_reference_t<decltype(values)>>;
        for (const auto& field : kSettingFields<Settings>) work(values, field);
      },
      settings);
}

// Whether a step is set: its first value is not empty. A step that is not runs with what the one
// before it, or the window, holds.
bool IsSet(const ToolSettings& settings);
