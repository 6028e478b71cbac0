#include "platform/qt/drawn_icons.h"

#include <gtest/gtest.h>

namespace lumidex {
namespace {

bool HasInk(const QImage& image) {
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (qAlpha(image.pixel(x, y)) != 0) return true;
    }
  }
  return false;
}

TEST(DrawnIcons, The_arrows_of_full_bars_are_drawn_at_every_size) {
  const DrawnIcons style;
  for (const auto arrow :
       {QStyle::SP_ToolBarHorizontalExtensionButton, QStyle::SP_ToolBarVerticalExtensionButton}) {
    const QIcon icon = style.standardIcon(arrow, nullptr, nullptr);
    for (const int side : {12, 16, 48}) {
      const QImage image = icon.pixmap(QSize(side, side)).toImage();
      EXPECT_GE(image.width(), side);
      EXPECT_TRUE(HasInk(image)) << side;
    }
    EXPECT_TRUE(HasInk(icon.pixmap(QSize(16, 16), QIcon::Disabled).toImage()));
  }
}

TEST(DrawnIcons, All_others_are_the_desktops) {
  const DrawnIcons style;
  EXPECT_FALSE(style.standardIcon(QStyle::SP_MessageBoxWarning, nullptr, nullptr).isNull());
}

}  // namespace
}  // namespace lumidex
