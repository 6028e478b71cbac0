#include "controls/control.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "controls/form.h"

namespace lumidex {

std::string IndexedName(std::string_view name, int index) {
  return std::string(name) + "(" + Number(index) + ")";
}

void RaiseSubscript() {
  throw RunTimeError(ErrorNumber::Subscript);
}

Control::Control(Form& owner, std::string name) : Element(std::move(name)), owner_(owner) {
  owner.Add(*this);
}

Control::~Control() {
  Leave();
}

void Control::Leave() {
  if (left_) return;
  left_ = true;
  Ended.Emit();
  owner_.Remove(*this);
}

std::optional<std::string> Control::ReadProperty(std::string_view name) {
  if (name == "Container" && Container == nullptr) return owner_.Name();
  return Element::ReadProperty(name);
}

void Control::Move(float left, float top, float width, float height) {
  Left = left;
  Top = top;
  Width = width;
  Height = height;
}

float Control::TwipsPerOuterUnit() const {
  const Control* container = Container;
  // A program may change the form's unit for a while, to measure in it: that moves nothing.
  return TwipsPerUnit(container ? container->InnerScale() : owner_.Scale.Design());
}

void Control::SetFocus() {
  if (!Enabled || !Visible || !owner_.Visible() || !owner_.Enabled)
    throw RunTimeError(ErrorNumber::InvalidCall);
  owner_.UserFocus(this);
}

void Control::UserKey(int keyCode) {
  if (!UserMayAct()) return;
  const Form& form = owner_;
  OnKeyDown(keyCode);
  if (form.Has(*this)) OnKeyPress(keyCode);
}

bool Control::UserMayAct() {
  if (!Enabled || !owner_.Enabled) return false;
  if (!CanTakeFocus()) return true;
  Form& form = owner_;
  form.UserFocus(this);
  return form.Has(*this);
}

}  // namespace lumidex
