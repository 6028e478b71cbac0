#include "platform/headless/watched_windows.h"

#include <algorithm>

#include "base/text.h"
#include "controls/animation.h"

namespace lumidex {

void WatchedWindows::Watch(Form& form) {
  names_[form.hwnd()] = form.Name();
  const auto name = [this, &form](const Control& control) {
    names_[control.hwnd()] = form.Name() + "." + control.Name();
  };
  for (Control* control : form.Controls()) {
    name(*control);
    if (auto* animation = dynamic_cast<Animation*>(control)) WatchOpening(*animation);
  }
  connections_.push_back(form.ControlAdded.Connect(name));
  connections_.push_back(
      form.ControlRemoved.Connect([this](const Control& control) { names_.erase(control.hwnd()); }));
  connections_.push_back(form.VisibilityChanged.Connect([this, &form] {
    if (form.IsLoaded() && loaded_.insert(&form).second) log_.Add("Load " + form.Name());
    const auto place = std::ranges::find(shown_, &form);
    if (form.Visible() && place == shown_.end()) {
      log_.Add("Show " + form.Name());
      Raise(form);
    } else if (!form.Visible() && place != shown_.end()) {
      log_.Add("Hide " + form.Name());
      shown_.erase(place);
      // The keyboard is back on the window below.
      if (keyboard_ == &form) keyboard_ = Front();
    }
    if (!form.IsLoaded() && loaded_.erase(&form) > 0) log_.Add("Unload " + form.Name());
  }));
  connections_.push_back(form.Requested.Connect([this, &form](FormRequest request) {
    if (request == FormRequest::Repaint) log_.Add("Refresh " + form.Name());
    if (request == FormRequest::BringToFront && form.Visible()) Raise(form);
    if (request == FormRequest::Focus && form.Visible()) keyboard_ = &form;
  }));
}

void WatchedWindows::WatchOpening(Animation& animation) {
  connections_.push_back(animation.Changed.Connect([this, &animation, open = std::string()]() mutable {
    const std::string file = animation.FileName();
    if (file == open) return;
    open = file;
    if (!file.empty()) log_.Add(animation.Name() + ".Open " + file);
  }));
}

void WatchedWindows::Raise(Form& form) {
  std::erase(shown_, &form);
  shown_.push_back(&form);
  keyboard_ = &form;  // as a window manager gives it to the window that comes to the front
}

Form* WatchedWindows::Front() const {
  return shown_.empty() ? nullptr : shown_.back();
}

Form* WatchedWindows::FrontModal() const {
  const auto found =
      std::find_if(shown_.rbegin(), shown_.rend(), [](const Form* form) { return form->IsModal(); });
  return found == shown_.rend() ? nullptr : *found;
}

void WatchedWindows::Forget() {
  connections_.clear();
  names_.clear();
  shown_.clear();
  loaded_.clear();
  keyboard_ = nullptr;
}

std::string WatchedWindows::NameOf(WindowHandle window) const {
  const auto found = names_.find(window);
  return found == names_.end() ? Number(static_cast<std::int64_t>(window)) : found->second;
}

bool WatchedWindows::SetWindowPos(WindowHandle window, WindowHandle insertAfter, int x, int y, int width,
                                  int height, unsigned flags) {
  std::string line = "SetWindowPos " + NameOf(window) + ", " +
                     (insertAfter == HWND_TOPMOST ? std::string("HWND_TOPMOST") : NameOf(insertAfter));
  for (const int number : {x, y, width, height, static_cast<int>(flags)}) line += ", " + Number(number);
  log_.Add(line);
  return true;
}

bool WatchedWindows::SetForegroundWindow(WindowHandle window) {
  log_.Add("SetForegroundWindow " + NameOf(window));
  return true;
}

std::int32_t WatchedWindows::SendMessageA(WindowHandle window, unsigned message, std::uintptr_t wParam,
                                          std::intptr_t lParam) {
  log_.Add("SendMessageA " + NameOf(window) + ", " + Number(static_cast<std::int64_t>(message)) + ", " +
           Number(static_cast<std::int64_t>(wParam)) + ", " + Number(static_cast<std::int64_t>(lParam)));
  return 0;
}

WindowHandle WatchedWindows::GetFocus() {
  const Control* control = keyboard_ ? keyboard_->ActiveControl() : nullptr;
  return control ? control->hwnd() : 0;
}

float WatchedWindows::PixelsInside(WindowHandle, float, float length, float border) {
  return std::max(0.0F, length - 2 * border) / twipsPerPixel;
}

float WatchedWindows::TextWidth(WindowHandle, std::string_view text) {
  constexpr float characterTwips = 6 * twipsPerPixel;
  return static_cast<float>(Len(text)) * characterTwips;
}

}  // namespace lumidex
