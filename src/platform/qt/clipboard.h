#pragma once
// The desktop's clipboard. A picture is offered as a promise: its pixels are decoded and encoded only when
// somebody pastes it.

#include "ports/services.h"

namespace lumidex {

class QtClipboard final : public Clipboard {
 public:
  void Clear() override;
  void SetText(const std::string& text) override;
  void SetPicture(const Picture& picture) override;
  std::string Text() const override;
};

}  // namespace lumidex
