#pragma once
// Controls that show pictures: the image box, which scales by its size, and the picture box, which holds
// others.

#include "controls/control.h"

namespace lumidex {

class ImageBox final : public Control {
 public:
  ImageBox(Form& owner, std::string name, bool stretch = false)
      : Control(owner, std::move(name)), Stretch(*this, stretch) {}
  std::string_view Kind() const override { return "Image"; }
  void VisitProperties(const PropertyVisitor& visit) override;

  Property<lumidex::Picture> Picture{*this};
  // Name of the drawn picture that stands in the box while it is given no other; empty for none.
  Property<std::string> PictureKey{*this};
  // Scales the picture to the box; else the picture is shown in its own size from the top left corner.
  Property<bool> Stretch;
  // Stands before its neighbours once this was called.
  Property<int> Order{*this, 0};
  void BringToFront() { Order = Order + 1; }

  Event<> OnClick, OnDblClick;
  void UserClick() {
    if (UserMayAct()) OnClick();
  }
  void UserDoubleClick() {
    if (UserMayAct()) OnDblClick();
  }
};

class PictureBox final : public Control {
 public:
  // Width of the border on each side, in twips.
  static constexpr float Border = 15.0F;

  PictureBox(Form& owner, std::string name) : Control(owner, std::move(name)) {}
  std::string_view Kind() const override { return "PictureBox"; }
  void VisitProperties(const PropertyVisitor& visit) override;
  // Also ScaleWidth and ScaleHeight.
  std::optional<std::string> ReadProperty(std::string_view name) override;

  Property<lumidex::Picture> Picture{*this};
  Property<std::int32_t> BackColor{*this, -1};
  // The inner size in pixels: what stands inside is measured in them.
  float ScaleWidth() const;
  float ScaleHeight() const;
};

}  // namespace lumidex
