#pragma once
// The settings of a step in the windows that the tools read them from.

#include "custom/custom_tool.h"
#include "tools/tool_state.h"

AddSettings SettingsIn(const AddCarriageForm& form);
SearchReplaceSettings SettingsIn(const SearchReplaceForm& form);
HtmlSettings SettingsIn(const HTML& form);

void Put(const AddSettings& settings, AddCarriageForm& form);
void Put(const SearchReplaceSettings& settings, SearchReplaceForm& form);
void Put(const HtmlSettings& settings, HTML& form);

// Gives windows back what they held when the object was made.
class KeptSettings {
 public:
  explicit KeptSettings(std::vector<SettingsForm*> windows);
  KeptSettings(const KeptSettings&) = delete;
  KeptSettings& operator=(const KeptSettings&) = delete;
  ~KeptSettings();

 private:
  std::vector<SettingsForm*> windows_;
  std::vector<SettingValues> values_;
};
