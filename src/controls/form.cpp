#include "controls/form.h"

#include <algorithm>
#include <cmath>

#include "base/run_time_error.h"
#include "base/text.h"
#include "base/widths.h"
#include "controls/control_array.h"
#include "controls/menu_item.h"

namespace lumidex {

Form::Form(Platform& platform, std::string name, std::string caption)
    : Element(std::move(name)), Caption(*this, "Caption", std::move(caption)), platform_(platform) {}

// Controls are members of the forms derived from this one and so are gone already.
Form::~Form() {
  Ended.Emit();
}

void Form::Remove(Control& control) {
  std::erase(controls_, &control);
  if (focus_ == &control) focus_ = nullptr;
  for (Control* other : controls_) {
    if (other->Container == &control) other->Container.SetQuietly(nullptr);
  }
  ControlRemoved.Emit(control);
}

void Form::Remove(ControlArrayBase& array) {
  std::erase(arrays_, &array);
}

Control* Form::Find(std::string_view name) const {
  const auto found = std::ranges::find(controls_, name, &Control::Name);
  return found == controls_.end() ? nullptr : *found;
}

bool Form::Has(const Control& control) const {
  return std::ranges::find(controls_, &control) != controls_.end();
}

void Form::KeepDesign() {
  Element::KeepDesign();
  for (Control* control : controls_) control->KeepDesign();
}

void Form::RestoreDesign() {
  Element::RestoreDesign();
  ClearDrawing();
  for (ControlArrayBase* array : arrays_) array->UnloadAll();
  for (Control* control : controls_) control->RestoreDesign();
}

void Form::Draw(std::vector<DrawnBand> bands) {
  if (bands.empty() && drawing_.empty()) return;
  drawing_ = std::move(bands);
  Changed.Emit();
}

bool Form::CoversScreen() const {
  return State == WindowState::Maximized && (Border == BorderStyle::None || Caption.Get().empty());
}

float Form::FrameWidth() const {
  return Border == BorderStyle::None || CoversScreen() ? 0.0F : nominalFrameWidth;
}

float Form::FrameHeight() const {
  return Border == BorderStyle::None || CoversScreen() ? 0.0F : nominalFrameHeight;
}

float Form::MenuHeight() const {
  if (menuHeight_) return *menuHeight_;
  const bool hasMenu = std::ranges::any_of(controls_, [](const Control* control) {
    const auto* item = dynamic_cast<const MenuItem*>(control);
    return item && !item->Parent() && item->Visible;
  });
  return hasMenu ? 20 * twipsPerPixel : 0.0F;
}

// Maximised by the program, and no window has told yet what came of it.
bool Form::IsScreenSized() const {
  return State == WindowState::Maximized && !sizeIsTold_;
}

float Form::ScaleWidth() const {
  const float outer = IsScreenSized() ? platform_.windows.ScreenWidth() : Width.Get();
  return std::max(0.0F, outer - FrameWidth()) / TwipsPerUnit(Scale);
}

float Form::ScaleHeight() const {
  const float outer = IsScreenSized() ? platform_.windows.ScreenHeight() : Height.Get();
  return std::max(0.0F, outer - FrameHeight() - MenuHeight()) / TwipsPerUnit(Scale);
}

std::int32_t Form::DrawnColor(int row) const {
  std::int32_t colour = -1;
  for (const DrawnBand& band : drawing_) {
    if (row >= band.top && row < band.bottom) colour = band.colour;
  }
  return colour;
}

std::optional<std::string> Form::ReadProperty(std::string_view name) {
  constexpr std::string_view drawnColor = "DrawnColor(";
  if (name.starts_with(drawnColor)) {
    return Number(DrawnColor(ToInt32(Val(name.substr(drawnColor.size())))));
  }
  if (name == "ScaleWidth") return Number(ScaleWidth());
  if (name == "ScaleHeight") return Number(ScaleHeight());
  return Element::ReadProperty(name);
}

void Form::StateChanged(Element& element) {
  static_cast<Form&>(element).sizeIsTold_ = false;
  SizeChanged(element);
}

void Form::SizeChanged(Element& element) {
  auto& form = static_cast<Form&>(element);
  if (form.loaded_) form.OnResize();
}

void Form::Load() {
  if (loaded_) return;
  loaded_ = true;
  for (Control* control : controls_) control->WhenFormLoaded();
  VisibilityChanged.Emit();
  OnLoad();
}

void Form::Show(Modality modality) {
  Load();
  // A form may unload itself while it loads.
  if (!loaded_) return;
  if (!visible_) {
    modality_ = modality;
    visible_ = true;
    VisibilityChanged.Emit();
    OnActivate();
  } else {
    BringToFront();
  }
  if (modality == Modality::Modal) {
    platform_.events.RunUntil([this] { return !visible_; });
  }
}

void Form::Hide() {
  if (!visible_) return;
  visible_ = false;
  VisibilityChanged.Emit();
}

void Form::Unload() {
  if (!loaded_) return;
  // Asked again from inside its own question it just goes.
  if (!unloading_ && !AgreesToUnload()) return;
  Hide();
  loaded_ = false;
  focus_ = nullptr;
  menuHeight_.reset();
  for (Control* control : controls_) control->WhenFormUnloaded();
  RestoreDesign();
  VisibilityChanged.Emit();
}

bool Form::AgreesToUnload() {
  unloading_ = true;
  bool cancel = false;
  try {
    OnQueryUnload(cancel);
    if (!cancel) OnUnload(cancel);
  } catch (...) {
    unloading_ = false;
    throw;
  }
  unloading_ = false;
  return !cancel;
}

float Form::TextWidth(std::string_view text) {
  const float twips = platform_.windows.TextWidth(hwnd(), text);
  return twips / TwipsPerUnit(Scale);
}

void Form::UserClose() {
  Unload();
}

void Form::UserResize(float width, float height, WindowState state) {
  const bool changed = !(Width == width && Height == height && State == state);
  Width.SetQuietly(width);
  Height.SetQuietly(height);
  State.SetQuietly(state);
  sizeIsTold_ = true;
  if (changed && loaded_) OnResize();
}

void Form::UserMenuHeight(float height) {
  const bool changed = menuHeight_ && std::abs(*menuHeight_ - height) >= 1.0F;
  menuHeight_ = height;
  if (changed && visible_) OnResize();
}

void Form::UserActivate() {
  if (visible_) OnActivate();
}

void Form::UserDrop(std::vector<std::string> paths) {
  if (visible_ && Enabled) OnDrop(std::move(paths));
}

void Form::UserFocus(Control* control) {
  if (control == focus_) return;
  Control* const before = focus_;
  focus_ = control;
  Requested.Emit(FormRequest::Focus);
  if (before) before->OnLostFocus();
  // The handler may have moved the keyboard on, or ended the control.
  if (control && focus_ == control) control->OnGotFocus();
}

}  // namespace lumidex
