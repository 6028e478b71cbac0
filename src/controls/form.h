#pragma once
// A window: its controls, its events, and its life from the first load to the unload.

#include <optional>
#include <vector>

#include "controls/border_style.h"
#include "controls/pointed.h"
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
  std::int32_t colour = 0;
  bool operator==(const DrawnBand&) const = default;
};

// One-time wishes that are no state; the view carries them out.
enum class FormRequest { Repaint, BringToFront, Focus };

class ControlArrayBase;

class Form : public Element, public Pointed {
 public:
  Form(Platform& platform, std::string name, std::string caption = {});
  ~Form() override;

  std::string_view Kind() const override { return "Form"; }
  Platform& GetPlatform() { return platform_; }

  Property<std::string> Caption{*this, "Caption"};
  Property<float> Left{*this, "Left"}, Top{*this, "Top"};
  // The outer size in twips, frame and menu included; a new size fires Resize while the form is loaded.
  Property<float> Width{*this, "Width", 0.0F, ruled<float, nullptr, &Form::SizeChanged>};
  Property<float> Height{*this, "Height", 0.0F, ruled<float, nullptr, &Form::SizeChanged>};
  Property<WindowState> State{*this, "WindowState", WindowState::Normal,
                              ruled<WindowState, nullptr, &Form::StateChanged>};
  // Without a border the inside is all there is. Only a form with the Sizable one is resized by the user.
  Property<BorderStyle> Border{*this, "BorderStyle", BorderStyle::Sizable};
  Property<ScaleMode> Scale{*this, "ScaleMode", ScaleMode::Twips};
  Property<MousePointer> Pointer{*this, "MousePointer", MousePointer::Default};
  Property<bool> Enabled{*this, "Enabled", true};
  // The colour behind everything, red in the low byte; the default is the desktop's window colour.
  Property<std::int32_t> BackColor{*this, "BackColor", -1};
  Property<lumidex::Picture> Icon{*this, "Icon"};
  // The background picture. Giving the form one, also the empty one, wipes the persistent drawing.
  Property<lumidex::Picture> Picture{
      *this, "Picture", {}, ruled<lumidex::Picture, nullptr, nullptr, &Form::PictureWritten>};

  // The persistent drawing, on top of the background and below the controls.
  const std::vector<DrawnBand>& Drawing() const { return drawing_; }
  void Draw(std::vector<DrawnBand> bands);
  void ClearDrawing() { Draw({}); }
  // Also ScaleWidth, ScaleHeight, and DrawnColor(y): the colour of the persistent drawing in a row, -1 where
  // nothing is drawn.
  std::optional<std::string> ReadProperty(std::string_view name) override;

  bool IsLoaded() const { return loaded_; }
  bool Visible() const { return visible_; }
  bool IsModal() const { return visible_ && modality_ == Modality::Modal; }

  // A maximised form with neither border nor caption covers the whole screen.
  bool CoversScreen() const;
  // What the frame counts of the outer size, in twips, whatever the window manager draws: so the same form
  // has the same layout everywhere.
  static constexpr float nominalFrameWidth = 120, nominalFrameHeight = 405;
  float FrameWidth() const;
  float FrameHeight() const;
  // The inner size, below the menu bar, in the units of `Scale`.
  float ScaleWidth() const;
  float ScaleHeight() const;

  Event<> OnLoad, OnActivate, OnResize, OnPaint;
  // Set `cancel` to keep the form.
  Event<bool&> OnQueryUnload, OnUnload;
  Event<int> OnKeyDown;
  // Files and folders that were dropped on the window, by their paths.
  Event<std::vector<std::string>> OnDrop;

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
  // The menu bar is of this height in twips, 0 when all menus are hidden. Another height than the one before
  // fires Resize.
  void UserMenuHeight(float height);
  // The window has become the active one.
  void UserActivate();
  void UserFocus(Control* control);
  void UserDrop(std::vector<std::string> paths);

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
  static void StateChanged(Element& element);
  static void PictureWritten(Element& element) { static_cast<Form&>(element).ClearDrawing(); }
  std::int32_t DrawnColor(int row) const;
  bool AgreesToUnload();
  bool MouseMayAct() final { return Enabled; }
  bool IsScreenSized() const;
  float MenuHeight() const;
  void Add(Control& control) { controls_.push_back(&control); }
  void Remove(Control& control);
  void Add(ControlArrayBase& array) { arrays_.push_back(&array); }
  void Remove(ControlArrayBase& array);

  Platform& platform_;
  std::vector<Control*> controls_;
  std::vector<ControlArrayBase*> arrays_;
  std::vector<DrawnBand> drawing_;
  Control* focus_ = nullptr;
  std::optional<float> menuHeight_;  // in twips, once a window has told it
  bool sizeIsTold_ = false;          // of the maximised form
  bool loaded_ = false;
  bool visible_ = false;
  bool unloading_ = false;
  Modality modality_ = Modality::Modeless;
};

}  // namespace lumidex
