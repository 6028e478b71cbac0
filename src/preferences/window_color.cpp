#include "preferences/window_color.h"

#include "forms/WPaper2.h"
#include "forms/frmPreferences.h"

namespace lumidex {

void PaintGradient(Form& form, bool red, bool green, bool blue) {
  constexpr int bandHeight = 4;
  std::vector<DrawnBand> bands;
  int y = 0;
  for (std::int32_t v = 128; v <= 255; ++v, y += bandHeight) {
    bands.push_back({y, y + bandHeight, (red ? v : 0) | (green ? v << 8 : 0) | (blue ? v << 16 : 0)});
  }
  form.Draw(std::move(bands));
}

void SetWindowColor(App& app, std::int16_t index) {
  struct Ramp {
    bool red, green, blue;
  };
  static constexpr Ramp ramps[] = {{true, true, true},   {false, true, false}, {true, true, false},
                                   {false, false, true}, {false, true, true},  {true, false, false},
                                   {true, false, true}};
  if (app.frmPreferences.chkMenuAltBackground.Value == 1) return;
  if (index == 0) app.WPaper2.ClearDrawing();
  if (index >= 1 && index <= 7) {
    const auto& [red, green, blue] = ramps[index - 1];
    PaintGradient(app.WPaper2, red, green, blue);
  }
  app.ColorMNU = index;
  // The chosen one is marked.
  for (int swatch = 0; swatch <= 7; ++swatch) {
    app.frmPreferences.lblWPaper2Color(swatch).Border =
        swatch == index ? BorderStyle::FixedSingle : BorderStyle::None;
  }
}

}  // namespace lumidex
