#pragma once
// The desktop's style, with the arrow that stands for what a bar has no room for drawn instead of read from a
// file: every menu bar asks for it when it is made, and reading the first icon loads all image plugins that
// are installed, which a start has no other use for.

#include <QProxyStyle>

namespace lumidex {

class DrawnIcons final : public QProxyStyle {
 public:
  QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
};

}  // namespace lumidex
