#include "controls/picture_controls.h"

#include <algorithm>

#include "base/text.h"
#include "controls/form.h"

namespace lumidex {

std::optional<std::string> PictureBox::ReadProperty(std::string_view name) {
  if (name == "ScaleWidth") return Number(ScaleWidth());
  if (name == "ScaleHeight") return Number(ScaleHeight());
  return Control::ReadProperty(name);
}

float PictureBox::Inside(float start, float length) const {
  const float unit = TwipsPerOuterUnit();
  const float border = this->Border == BorderStyle::None ? 0.0F : BorderWidth;
  if (Scale == ScaleMode::Pixels) {
    return Owner().GetPlatform().windows.PixelsInside(Owner().hwnd(), start * unit, length * unit, border);
  }
  return std::max(0.0F, length * unit - 2 * border) / TwipsPerUnit(Scale);
}

float PictureBox::ScaleWidth() const {
  return Inside(Left, Width);
}
float PictureBox::ScaleHeight() const {
  return Inside(Top, Height);
}

}  // namespace lumidex
