#include "auxiliary/tips.h"

#include <random>

#include "base/line_reader.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "core/paths.h"
#include "forms/WPaper2.h"
#include "forms/frmBackground.h"
#include "forms/frmTip.h"

namespace lumidex {
namespace {

constexpr const char* TIP_FILE = "TIPOFDAY.TXT";
constexpr const char* section = "Options";
constexpr const char* key = "Show Tips at Startup";

std::string MissingFileText() {
  const std::string name = TIP_FILE;
  return "That the " + name + " file was not found? \r\n\r\nCreate a text file named " + name +
         " using NotePad with 1 tip per line. Then place it in the same directory as the application. ";
}

}  // namespace

bool ShowsTipsAtStartup(App& app) {
  return Val(app.platform.settings.GetSetting(section, key, "1")) != 0;
}

void StoreShowsTipsAtStartup(App& app, int value) {
  app.platform.settings.SaveSetting(section, key, Number(value));
}

bool LoadTips(App& app, std::string path) {
  if (path.empty() || !FileExists(app, path)) return false;
  LineReader lines(app.platform.files.ReadAll(path));
  app.frmTip.Tips.clear();
  while (!lines.AtEnd()) app.frmTip.Tips.push_back(lines.Next());
  DoNextTip(app);
  return true;
}

void DoNextTip(App& app) {
  // Seeded from the clock when the window was loaded.
  std::uniform_real_distribution<double> fraction(0.0, 1.0);
  frmTipWindow& window = app.frmTip;
  window.CurrentTip =
      static_cast<std::int32_t>(fraction(window.Random) * static_cast<double>(window.Tips.size()) + 1.0);
  DisplayCurrentTip(app);
}

void DisplayCurrentTip(App& app) {
  frmTipWindow& window = app.frmTip;
  if (window.Tips.empty()) return;
  window.lblTipText.Caption = window.Tips[static_cast<std::size_t>(window.CurrentTip - 1)];
}

void PrepareTipWindow(App& app) {
  frmTipWindow& window = app.frmTip;
  IgnoreError([&] {
    window.Icon = app.WPaper2.Icon.Get();
    window.Image1.Picture = app.frmBackground.Image1.Picture.Get();
    if (!ShowsTipsAtStartup(app)) {
      window.Unload();
      return;
    }
    window.chkLoadTipsAtStartup.Value = 1;
    window.Random.seed(static_cast<unsigned>(app.platform.clock.TimeOfDay() * 100.0));
    window.Tips.clear();
    if (!LoadTips(app, app.AppPath + TIP_FILE)) window.lblTipText.Caption = MissingFileText();
  });
}

}  // namespace lumidex
