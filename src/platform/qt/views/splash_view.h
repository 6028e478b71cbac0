#pragma once
// The splash: the product's picture with its name and what is said about it, without a frame.

#include "forms/frmSplash.h"
#include "platform/qt/mirrors/shown_picture.h"
#include "platform/qt/typed_view.h"

namespace lumidex {

class SplashView final : public TypedView<frmSplashWindow> {
 public:
  SplashView(FormViews& views, frmSplashWindow& form);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  ShownPicture shown_;
};

}  // namespace lumidex
