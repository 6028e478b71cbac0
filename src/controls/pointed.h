#pragma once
// What forms and controls that a mouse is used on have in common: clicks, and the single steps they are made
// of.

#include "controls/control.h"

namespace lumidex {

// Buttons and shift keys count together: 1 left, 2 right, 4 middle; 1 Shift, 2 Control, 4 Alt.
struct MouseState {
  int button = 1;  // the one that goes down or up, or the sum of those that are down while the mouse moves
  int shift = 0;
  // From the inner corner, in twips.
  float x = 0, y = 0;
};

class Pointed {
 public:
  Event<> OnClick, OnDblClick;
  // Button, shift keys, place; see MouseState.
  Event<int, int, float, float> OnMouseDown, OnMouseMove, OnMouseUp;

  // What a person does. A click is told by itself behind its steps.
  void UserClick() {
    if (MouseMayAct()) OnClick();
  }
  void UserDoubleClick() {
    if (MouseMayAct()) OnDblClick();
  }
  void UserMouseDown(const MouseState& mouse) { Tell(OnMouseDown, mouse); }
  void UserMouseMove(const MouseState& mouse) {
    if (OnMouseMove) OnMouseMove(mouse.button, mouse.shift, mouse.x, mouse.y);
  }
  void UserMouseUp(const MouseState& mouse) { Tell(OnMouseUp, mouse); }

  // Whether anybody here listens to the mouse.
  bool HearsMouse() const { return OnClick || OnDblClick || OnMouseDown || OnMouseMove || OnMouseUp; }

 protected:
  Pointed() = default;
  ~Pointed() = default;

 private:
  void Tell(const Event<int, int, float, float>& event, const MouseState& mouse) {
    if (MouseMayAct()) event(mouse.button, mouse.shift, mouse.x, mouse.y);
  }
  // Whether the gesture reaches this; it may end the control.
  virtual bool MouseMayAct() = 0;
};

class PointedControl : public Control, public Pointed {
 public:
  using Control::Control;

 private:
  bool MouseMayAct() final { return UserMayAct(); }
};

}  // namespace lumidex
