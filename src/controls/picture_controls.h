#pragma once
// Controls that show pictures: the image box, which scales by its size, and the picture box, which holds
// others.

#include "controls/border_style.h"
#include "controls/pointed.h"
#include "pictures/picture.h"

namespace lumidex {

class ImageBox final : public PointedControl {
 public:
  ImageBox(Form& owner, std::string name, bool stretch = false)
      : PointedControl(owner, std::move(name)), Stretch(*this, "Stretch", stretch) {}
  std::string_view Kind() const override { return "Image"; }

  Property<lumidex::Picture> Picture{*this, "Picture"};
  // Name of the drawn picture that stands in the box while it is given no other; empty for none.
  Property<std::string> PictureKey{*this, "PictureKey"};
  // Scales the picture to the box; else the picture is shown in its own size from the top left corner.
  Property<bool> Stretch;
};

class PictureBox final : public PointedControl {
 public:
  // Width of the border on each side, in twips, where there is one.
  static constexpr float BorderWidth = 15.0F;

  PictureBox(Form& owner, std::string name) : PointedControl(owner, std::move(name)) {}
  std::string_view Kind() const override { return "PictureBox"; }
  // Also ScaleWidth and ScaleHeight.
  std::optional<std::string> ReadProperty(std::string_view name) override;

  Property<lumidex::Picture> Picture{*this, "Picture"};
  Property<std::int32_t> BackColor{*this, "BackColor", -1};
  // None, or else the sunken one.
  Property<BorderStyle> Border{*this, "BorderStyle", BorderStyle::FixedSingle};
  // The unit of the inner size, and of what stands inside.
  Property<ScaleMode> Scale{*this, "ScaleMode", ScaleMode::Twips};
  ScaleMode InnerScale() const override { return Scale; }
  // The inner size; in pixels it is that of the screen's own.
  float ScaleWidth() const;
  float ScaleHeight() const;

 private:
  float Inside(float start, float length) const;
};

}  // namespace lumidex
