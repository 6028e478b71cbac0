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
  owner_.Remove(*this);
}

void Control::VisitProperties(const PropertyVisitor& visit) {
  visit("Left", Left);
  visit("Top", Top);
  visit("Width", Width);
  visit("Height", Height);
  visit("Enabled", Enabled);
  visit("Visible", Visible);
  visit("ToolTipText", ToolTipText);
}

void Control::Move(float left, float top, float width, float height) {
  Left = left;
  Top = top;
  Width = width;
  Height = height;
}

void Control::SetFocus() {
  if (!Enabled || !Visible || !owner_.Visible() || !owner_.Enabled)
    throw RunTimeError(ErrorNumber::InvalidCall);
  owner_.UserFocus(this);
}

bool Control::UserMayAct() {
  if (!Enabled || !owner_.Enabled) return false;
  if (CanTakeFocus()) owner_.UserFocus(this);
  return true;
}

}  // namespace lumidex
