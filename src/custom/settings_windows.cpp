#include "custom/settings_windows.h"

AddSettings SettingsIn(const AddCarriageForm& form) {
  return {.Position = form.Text1.Text, .Nearest = form.Check1.Value};
}

SearchReplaceSettings SettingsIn(const SearchReplaceForm& form) {
  return {.SearchText = form.Text1.Text,
          .ReplaceText = form.Text2.Text,
          .CodeMode = form.Check1.Value,
          .WholeWord = form.Check2.Value,
          .MatchCase = form.Check3.Value};
}

HtmlSettings SettingsIn(const HTML& form) {
  return {.HeaderFile = form.Text1.Text,
          .FooterFile = form.Text2.Text,
          .UseBr = form.Check1.Value,
          .NoTitle = form.Check2.Value};
}

void Put(const AddSettings& settings, AddCarriageForm& form) {
  form.Text1.Text = settings.Position;
  form.Check1.Value = settings.Nearest;
}

void Put(const SearchReplaceSettings& settings, SearchReplaceForm& form) {
  form.Text1.Text = settings.SearchText;
  form.Text2.Text = settings.ReplaceText;
  form.Check1.Value = settings.CodeMode;
  form.Check2.Value = settings.WholeWord;
  form.Check3.Value = settings.MatchCase;
}

void Put(const HtmlSettings& settings, HTML& form) {
  form.Text1.Text = settings.HeaderFile;
  form.Text2.Text = settings.FooterFile;
  form.Check1.Value = settings.UseBr;
  form.Check2.Value = settings.NoTitle;
}

KeptSettings::KeptSettings(std::vector<SettingsForm*> windows) : windows_(std::move(windows)) {
  for (const SettingsForm* window : windows_) values_.push_back(window->Values());
}

KeptSettings::~KeptSettings() {
  for (std::size_t i = 0; i < windows_.size(); ++i) windows_[i]->SetValues(values_[i]);
}
