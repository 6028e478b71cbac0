#pragma once
// The desktop's clipboard. A picture is offered as a promise: its pixels are decoded and encoded only when
// somebody pastes it.

#include "ports/services.h"

namespace lumidex {

class QtClipboard final : public Clipboard {
 public:
  void Clear() override;
  void SetText(const std::string& text) override;
  // Every picture is offered as pixels in all the ways that the desktop knows, a drawing in its own size; the
  // format only decides about what is refused.
  void SetData(const Picture& picture, ClipboardFormat format) override;
  std::string Text() const override;
};

}  // namespace lumidex
