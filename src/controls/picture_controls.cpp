#include "controls/picture_controls.h"

#include <algorithm>

#include "base/text.h"
#include "controls/form.h"

namespace lumidex {

void ImageBox::VisitProperties(const PropertyVisitor& visit) {
  Control::VisitProperties(visit);
  visit("Picture", Picture);
  visit("PictureKey", PictureKey);
  visit("Stretch", Stretch);
  visit("Order", Order);
}

void PictureBox::VisitProperties(const PropertyVisitor& visit) {
  Control::VisitProperties(visit);
  visit("Picture", Picture);
  visit("BackColor", BackColor);
}

std::optional<std::string> PictureBox::ReadProperty(std::string_view name) {
  if (name == "ScaleWidth") return Number(ScaleWidth());
  if (name == "ScaleHeight") return Number(ScaleHeight());
  return Control::ReadProperty(name);
}

float PictureBox::ScaleWidth() const {
  return std::max(0.0F, Width - 2 * Border) / twipsPerPixel;
}
float PictureBox::ScaleHeight() const {
  return std::max(0.0F, Height - 2 * Border) / twipsPerPixel;
}

}  // namespace lumidex
