#include "slideshow/interval_prompt.h"

#include "base/text.h"
#include "base/widths.h"
#include "forms/WPaper2.h"
#include "slideshow/slide_show.h"

namespace lumidex {
namespace {

constexpr std::int16_t presetSeconds = 15;

}  // namespace

void mnuSlideShowInterval_Click(App& app) {
  constexpr std::int16_t leastSeconds = 1, mostSeconds = 30;
  if (app.SlideShowInterval == 0) app.SlideShowInterval = presetSeconds;
  const std::int16_t before = app.SlideShowInterval;
  do {
    if (app.SlideShowInterval == 0) app.SlideShowInterval = presetSeconds;
    InputRequest request;
    request.prompt = "Please enter slide interval in seconds (1 - 30):";
    request.title = "Slide Interval";
    request.preset = Number(app.SlideShowInterval);
    const std::string reply = app.platform.dialogs.InputBox(request).value_or("");
    app.SlideShowInterval = ToInt16(DecimalAtStart(reply));
    if (app.SlideShowInterval == 0) app.SlideShowInterval = before;
  } while (app.SlideShowInterval < leastSeconds || app.SlideShowInterval > mostSeconds);
  Timer& timer = app.WPaper2.tmrSlideShow;
  if (!timer.Enabled) return;
  timer.Interval = SlideShowPeriod(app);
  timer.Enabled = false;
  timer.Enabled = true;
}

}  // namespace lumidex
