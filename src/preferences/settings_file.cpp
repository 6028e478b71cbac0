#include "preferences/settings_file.h"

#include "base/delimited.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "base/widths.h"
#include "core/paths.h"
#include "forms/WPaper2.h"
#include "forms/frmPreferences.h"
#include "preferences/alternate_background.h"
#include "preferences/window_color.h"

namespace lumidex {
namespace {

constexpr const char* fileName = "Lumidex.Cfg";
constexpr int toolbarButtons = 19;

std::string SettingsText(App& app) {
  frmPreferencesWindow& form = app.frmPreferences;
  std::string text;
  const auto line = [&](const std::string& content) { text += content + "\r\n"; };
  const auto number = [&](const std::string& key, int value) { line(key + "=" + Number(value)); };
  line("[Lumidex.Cfg]");
  number("PrvStretch", form.chkStretch.Value);
  for (int type = 1; type <= FileTypeCount; ++type) {
    number("IncludeFileType" + Number(type), form.chkFileType(type).Value);
  }
  for (int entry = 0; entry < toolbarButtons; ++entry) {
    line("IncludeToolBarButton" + Number(entry) + (form.List1.Selected(entry) ? "=True" : "=False"));
  }
  number("ViewMode", app.ViewMode);
  number("MenuAltBackground", form.chkMenuAltBackground.Value);
  number("ColorMNU", app.ColorMNU);
  number("CountFileType", form.chkCountFileTypes.Value);
  number("CountFileSize", form.chkCountFileSize.Value);
  number("CountFileColorDepth", form.chkCountFileColorDepth.Value);
  number("SlideShowInterval", app.SlideShowInterval);
  return text;
}

std::string BehindEqualSign(const std::string& item) {
  return Mid(item, InStr(item, "=") + 1);
}

std::int16_t ValueOf(const std::string& item) {
  return ToInt16(Val(BehindEqualSign(item)));
}

// A picture that can't be read leaves the window its colour: it would end every start until somebody removed
// it.
void TickAlternateBackground(CheckBox& box, int value) {
  try {
    // The click that comes with a new value shows the picture.
    box.Value = value;
  } catch (const RunTimeError&) {
    // A value that the box refuses is another matter.
    if (!(box.Value == value)) throw;
  }
}

bool ShowsAlternateBackground(App& app) {
  try {
    return ShowAlternateBackground(app);
  } catch (const RunTimeError&) {
    return false;
  }
}

// The tests are searches anywhere in the item, and one item may pass several: the key of type 1 is found in
// the lines of 10 to 19 too.
void ApplyItem(App& app, std::string item) {
  frmPreferencesWindow& form = app.frmPreferences;
  const auto holds = [&](const std::string& key) { return InStr(item, key) > 0; };
  if (holds("PrvStretch")) form.chkStretch.Value = ToInt16(Val(Trim(Right(item, 1))));
  for (int type = 1; type <= FileTypeCount; ++type) {
    if (holds("IncludeFileType" + Number(type))) form.chkFileType(type).Value = ValueOf(item);
  }
  for (int entry = 0; entry < toolbarButtons; ++entry) {
    if (!holds("IncludeToolBarButton" + Number(entry) + "=")) continue;
    const bool included = BehindEqualSign(item) == "True";
    app.WPaper2.Toolbar1.SetVisible(entry + 1, included);
    form.List1.SetSelected(entry, included);
  }
  if (holds("ViewMode")) app.ViewMode = ValueOf(item);
  if (holds("ColorMNU")) SetWindowColor(app, ValueOf(item));
  if (holds("MenuAltBackground")) {
    TickAlternateBackground(form.chkMenuAltBackground, ValueOf(item));
    app.platform.events.Yield();
    form.cmdMenuSelect.Enabled = form.chkMenuAltBackground.Value == 1;
    if (form.cmdMenuSelect.Enabled && ShowsAlternateBackground(app)) app.platform.events.Yield();
  }
  if (holds("CountFileType")) form.chkCountFileTypes.Value = ValueOf(item);
  if (holds("CountFileSize")) form.chkCountFileSize.Value = ValueOf(item);
  if (holds("CountFileColorDepth")) form.chkCountFileColorDepth.Value = ValueOf(item);
  if (holds("SlideShowInterval")) app.SlideShowInterval = ValueOf(item);
}

}  // namespace

void WriteSettings(App& app) {
  const std::string path = GetAppPath(app) + fileName;
  app.platform.files.WriteOver(path, SettingsText(app));
}

void ReadSettings(App& app) {
  const std::string path = app.AppPath + fileName;
  if (!FileExists(app, path)) return;
  DelimitedReader reader(app.platform.files.ReadAll(path));
  WorkOn(path, [&] {
    while (!reader.AtEnd()) ApplyItem(app, reader.Next());
  });
}

}  // namespace lumidex
