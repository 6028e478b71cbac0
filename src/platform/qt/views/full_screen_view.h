#pragma once
// The slide show over the whole screen. Its positions are device pixels: a picture that fits is shown with
// one of its pixels on one of the screen's.

#include "forms/frmSlideShowFullScreen.h"
#include "platform/qt/typed_view.h"

namespace lumidex {

class FullScreenView final : public TypedView<frmSlideShowFullScreenWindow> {
 public:
  FullScreenView(FormViews& views, frmSlideShowFullScreenWindow& form);
  const Units& GetUnits() const override;
  void setVisible(bool visible) override;

 private:
  mutable Units units_;
};

}  // namespace lumidex
