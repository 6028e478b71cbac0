#pragma once
// The splash: the product's picture with its name and what is said about it, without a frame.

#include "platform/qt/form_view.h"
#include "platform/qt/mirrors/shown_picture.h"

namespace lumidex {

class SplashView final : public FormView {
 public:
  SplashView(FormViews& views, Form& form);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Picture picture_;
  ShownPicture shown_;
};

}  // namespace lumidex
