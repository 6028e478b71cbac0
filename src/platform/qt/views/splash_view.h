#pragma once
// The splash: the product's picture with its name and what is said about it, without a frame.

#include "forms/frmSplash.h"
#include "platform/qt/mirrors/shown_picture.h"
#include "platform/qt/typed_view.h"

class QHBoxLayout;

namespace lumidex {

class SplashView final : public TypedView<frmSplashWindow> {
 public:
  SplashView(FormViews& views, frmSplashWindow& form);
  bool IsSeldomSeen() const override { return true; }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void AddPicture(QHBoxLayout& row, ImageBox& picture, QSize size);

  ShownPicture shown_;
  QWidget* spectrum_ = nullptr;  // the last line of the artwork
  QWidget* backdrop_ = nullptr;  // below the artwork
};

}  // namespace lumidex
