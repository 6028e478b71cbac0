#include "imaging/zoom_menu.h"

#include "core/zoom_factor.h"
#include "forms/WPaper2.h"
#include "forms/checkjpg.h"
#include "imaging/current_picture.h"

namespace lumidex {

namespace {

int CheckedZoomLevel(App& app) {
  int level = 1;
  while (level < 11 && !app.WPaper2.mnuEditZoomLevel(level).Checked) ++level;
  return level;
}

void MoveZoomCheck(App& app, int from, int to) {
  app.WPaper2.mnuEditZoomLevel(from).Checked = false;
  app.WPaper2.mnuEditZoomLevel(to).Checked = true;
  app.WPaper2.mnuEditZoomLevel(to).Click();
}

}  // namespace

void SelectZoomLevel(App& app, int level) {
  const float factor = ZoomFactorOf(level);
  for (int i = 1; i <= 11; ++i) app.WPaper2.mnuEditZoomLevel(i).Checked = false;
  app.WPaper2.mnuEditZoomLevel(level).Checked = true;
  app.checkjpg.Picture1.ZoomLevel = factor;
  app.CurrentImagePath = app.WPaper2.LstRight.Text();
  app.displays.RunAgain(factor,
                        [&app] { DisplayCurrentImage(app, app.CurrentImagePath, true, GetZoomFactor(app)); });
}

void StepZoomDown(App& app) {
  if (const int level = CheckedZoomLevel(app); level > 1) MoveZoomCheck(app, level, level - 1);
}

void StepZoomUp(App& app) {
  if (const int level = CheckedZoomLevel(app); level < 11) MoveZoomCheck(app, level, level + 1);
}

}  // namespace lumidex
