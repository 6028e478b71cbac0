#pragma once
// A window: its controls, its events, and its life from the first load to the unload.

#include <vector>

#include "controls/control.h"
#include "pictures/picture.h"
#include "ports/platform.h"

namespace lumidex {

enum class WindowState : int { Normal = 0, Minimized = 1, Maximized = 2 };
enum class MousePointer : int { Default = 0, Hourglass = 11 };
enum class Modality { Modeless, Modal };

// A filled band of a form's persistent drawing: the rows from `top` to above `bottom`, in pixels from the
// upper edge of the form's inside, over its whole width. Colours have red in the low byte.
struct DrawnBand {
  int top = 0;
  int bottom = 0;
  std::int32_t color = 0;
  bool operator==(const DrawnBand&) const = default;
};

// One-time wishes that are no state; the view carries them out.
enum class FormRequest { Repaint, BringToFront, Focus };

class ControlArrayBase;

class Form : public Element {
 public:
  Form(Platform& platform, std::string name, std::string caption = {});
  ~Form() override;

  std::string_view Kind() const override { return "Form"; }
  Platform& GetPlatform() { return platform_; }

  Property<std::string> Caption{*this, "Caption"};
  Property<float> Left{*this, "Left"}, Top{*this, "Top"};
  // The outer size in twips, frame and menu included; a new size fires Resize while the form is loaded.
  Property<float> Width{*this, "Width", 0.0F, nullptr, &Form::SizeChanged};
  Property<float> Height{*this, "Height", 0.0F, nullptr, &Form::SizeChanged};
  Property<WindowState> State{*this, "WindowState", WindowState::Normal, nullptr, &Form::SizeChanged};
  Property<ScaleMode> Scale{*this, "ScaleMode", ScaleMode::Twips};
  Property<MousePointer> Pointer{*this, "MousePointer", MousePointer::Default};
  Property<bool> Enabled{*this, "Enabled", true};
  // The colour behind everything, red in the low byte; the default is the desktop's window colour.
  Property<std::int32_t> BackColor{*this, "BackColor", -1};
  Property<lumidex::Picture> Icon{*this, "Icon"};
  // The background picture. Giving the form one, also the empty one, wipes the persistent drawing.
  Property<lumidex::Picture> Picture{*this, "Picture", {}, nullptr, nullptr, &Form::PictureWritten};

  // The persistent drawing, on top of the background and below the controls.
  const std::vector<DrawnBand>& Drawing() const { return drawing_; }
  void Draw(std::vector<DrawnBand> bands);
  void ClearDrawing() { Draw({}); }
  // Also DrawnColor(y): the colour of the persistent drawing in a row, -1 where nothing is drawn.
  std::optional<std::string> ReadProperty(std::string_view name) override;

  bool IsLoaded() const { return loaded_; }
  bool Visible() const { return visible_; }
  bool IsModal() const { return visible_ && modality_ == Modality::Modal; }

  Event<> OnLoad, OnActivate, OnResize, OnPaint, OnClick;
  // Set `cancel` to keep the form.
  Event<bool&> OnQueryUnload, OnUnload;
  Event<int> OnKeyDown;

  // Loads the form if it is not: its handlers see the design values. Every first use loads.
  void Load();
  // A modal show returns when the form is hidden or unloaded.
  void Show(Modality modality = Modality::Modeless);
  void Hide();
  // Asks QueryUnload and Unload, hides, and goes back to the design values.
  void Unload();
  void Refresh() { Requested.Emit(FormRequest::Repaint); }
  void BringToFront() { Requested.Emit(FormRequest::BringToFront); }
  // Width of a text in the units of `Scale`.
  float TextWidth(std::string_view text);

  // What a person does. The frame's close button: QueryUnload and, when not cancelled, the unload.
  void UserClose();
  // The frame was dragged or zoomed.
  void UserResize(float width, float height, WindowState state);
  // The window has become the active one.
  void UserActivate();
  void UserFocus(Control* control);

  // Null when there is none of that name.
  Control* Find(std::string_view name) const;
  bool Has(const Control& control) const;
  const std::vector<Control*>& Controls() const { return controls_; }
  Control* ActiveControl() const { return focus_; }

  // Controls come and go while the form lives, as elements of an array do. Of one that goes only its address
  // and its name are good.
  Signal<Control&> ControlAdded, ControlRemoved;
  Signal<FormRequest> Requested;
  // Shown, hidden, loaded or unloaded.
  Signal<> VisibilityChanged;

  // Ends the building of the design: called by the last line of every form's constructor.
  void KeepDesign() override;
  void RestoreDesign() override;

 private:
  friend class Control;
  friend class ControlArrayBase;
  static void SizeChanged(Element& element);
  static void PictureWritten(Element& element) { static_cast<Form&>(element).ClearDrawing(); }
  std::int32_t DrawnColor(int row) const;
  bool AgreesToUnload();
  void Add(Control& control) { controls_.push_back(&control); }
  void Remove(Control& control);
  void Add(ControlArrayBase& array) { arrays_.push_back(&array); }
  void Remove(ControlArrayBase& array);

  Platform& platform_;
  std::vector<Control*> controls_;
  std::vector<ControlArrayBase*> arrays_;
  std::vector<DrawnBand> drawing_;
  Control* focus_ = nullptr;
  bool loaded_ = false;
  bool visible_ = false;
  bool unloading_ = false;
  Modality modality_ = Modality::Modeless;
};

}  // namespace lumidex
