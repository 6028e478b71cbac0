#pragma once
// The desktop's clipboard. A picture is offered as a promise: its pixels are decoded and encoded only when
// somebody pastes it.

#include <memory>

#include "ports/services.h"

namespace lumidex {

class QtClipboard final : public Clipboard {
 public:
  void Clear() override;
  void SetText(const std::string& text) override;
  // Every picture is offered as pixels in all the ways that the desktop knows, a drawing in its own size and
  // as its own file besides; the format only decides about what is refused.
  void SetData(const Picture& picture, ClipboardFormat format) override;
  std::string Text() const override;

  // To be called before the process ends, while nothing else of the program may run: under X11 lets the
  // clipboard manager take over what the program has put there. Without a manager it returns at once; with
  // one that asks for nothing and does not answer, after two seconds. Where the window system is another one
  // nothing can be done.
  void HandOver();

 private:
  // How often somebody was given something of a picture, which can take long.
  std::shared_ptr<int> given_ = std::make_shared<int>(0);
};

}  // namespace lumidex
