// Statements that say what the user does.

#include "controls/bars.h"
#include "controls/buttons.h"
#include "controls/combo_box.h"
#include "controls/file_lists.h"
#include "controls/grid.h"
#include "controls/list_box.h"
#include "controls/menu_item.h"
#include "controls/pointed.h"
#include "controls/ranges.h"
#include "controls/tab_strip.h"
#include "controls/texts.h"
#include "forms/WPaper2.h"
#include "scenario/keys.h"
#include "scenario/popup_menu.h"
#include "scenario/statements.h"
#include "scenario/targets.h"

namespace lumidex::scenario {
namespace {

Target NextElement(Execution& run, Arguments& words) {
  return FindElement(run.Running(), words.Next("the control"));
}

// The control or form that a user gets at; throws Failure when he can not.
Target Reached(Execution& run, Arguments& words) {
  Target target = NextElement(run, words);
  CheckReachable(run, target);
  return target;
}

[[noreturn]] void Refuse(const Target& target, const std::string& verb) {
  throw Failure{target.Name() + " is nothing to " + verb};
}

// Runs `action` on the control when it is of the kind, and says whether it was.
template <class Kind, class Action>
bool On(Execution& run, const Target& target, Action&& action) {
  auto* control = dynamic_cast<Kind*>(target.control);
  if (control) run.Act([&] { action(*control); });
  return control != nullptr;
}

// What the mouse is used on: labels, pictures, the image control, the form itself.
Pointed* PointedAt(const Target& target) {
  return target.control ? dynamic_cast<Pointed*>(target.control) : target.form;
}

bool OnPointed(Execution& run, const Target& target, void (Pointed::*verb)()) {
  Pointed* pointed = PointedAt(target);
  if (pointed) run.Act([&] { (pointed->*verb)(); });
  return pointed != nullptr;
}

void Click(Execution& run, Arguments& words) {
  Target target = NextElement(run, words);
  words.End();
  if (ChooseFromPopup(run, target)) return;
  CheckReachable(run, target);
  const auto click = [&run](auto& control) {
    if (!run.Windows().Click(control)) control.UserClick();
  };
  const bool done = On<CommandButton>(run, target, click) || On<CheckBox>(run, target, click) ||
                    On<OptionButton>(run, target, click) || On<MenuItem>(run, target, click) ||
                    OnPointed(run, target, &Pointed::UserClick);
  if (!done) Refuse(target, "click");
}

void DoubleClick(Execution& run, Arguments& words) {
  words.Need("click");
  const Target target = Reached(run, words);
  words.End();
  const bool done = On<ListBox>(run, target, [](ListBox& list) { list.UserDoubleClick(); }) ||
                    OnPointed(run, target, &Pointed::UserDoubleClick);
  if (!done) Refuse(target, "double-click");
}

// "row 4", or the text of a row as `textOf` gives it.
template <class TextOf>
int TakeRow(Arguments& words, int first, int count, TextOf&& textOf) {
  int found = count;
  if (words.Take("row")) {
    found = words.NextInt("the row's number");
  } else {
    const std::string& text = words.Next("the row");
    for (int row = first; row < count && found == count; ++row) {
      if (textOf(row) == text) found = row;
    }
    if (found == count) throw Failure{"no row reads \"" + text + "\""};
  }
  words.End();
  return found;
}

template <class List>
int TakeListRow(Arguments& words, const List& list) {
  return TakeRow(words, 0, list.ListCount(), [&](int row) { return list.List(row); });
}

int TakeDirectoryRow(Arguments& words, const DirList& list) {
  return TakeRow(words, -list.Depth(), list.ListCount(), [&](int row) { return list.List(row); });
}

void Select(Execution& run, Arguments& words) {
  const Target target = Reached(run, words);
  const auto selectRow = [&](auto& list) {
    const int row = TakeListRow(words, list);
    run.Act([&] { list.UserSelect(row); });
  };
  if (auto* list = dynamic_cast<ListBox*>(target.control)) return selectRow(*list);
  if (auto* files = dynamic_cast<FileList*>(target.control)) return selectRow(*files);
  if (auto* combo = dynamic_cast<ComboBox*>(target.control)) return selectRow(*combo);
  if (auto* grid = dynamic_cast<Grid*>(target.control)) {
    words.Need("row");
    const int row = words.NextInt("the row's number");
    words.Need("column");
    const int column = words.NextInt("the column's number");
    words.End();
    return run.Act([&] { grid->UserSelect(row, column); });
  }
  if (auto* drives = dynamic_cast<DriveList*>(target.control)) {
    const std::string& drive = words.Next("the drive");
    words.End();
    return run.Act([&] { drives->UserSelect(drive); });
  }
  if (auto* tabs = dynamic_cast<TabStrip*>(target.control)) {
    words.Need("page");
    const int page = words.NextInt("the page's number");
    words.End();
    return run.Act([&] { tabs->UserSelect(page); });
  }
  Refuse(target, "select in");
}

DirList& ReachedDirectories(Execution& run, Arguments& words) {
  const Target target = Reached(run, words);
  auto* list = dynamic_cast<DirList*>(target.control);
  if (!list) Refuse(target, "open a directory in");
  return *list;
}

void Highlight(Execution& run, Arguments& words) {
  DirList& list = ReachedDirectories(run, words);
  const int row = TakeDirectoryRow(words, list);
  run.Act([&] { list.UserHighlight(row); });
}

// The row that is nearest to a directory above it; that of the list's own directory when none is nearer.
int NearestRow(const DirList& list, const std::string& directory, char separator) {
  int nearest = -1;
  for (int row = -list.Depth(); row < list.ListCount(); ++row) {
    std::string above = list.List(row);
    if (directory == above) return row;
    if (!above.ends_with(separator)) above += separator;
    if (directory.starts_with(above) && (row >= 0 || !directory.starts_with(list.Path()))) nearest = row;
  }
  return nearest;
}

// As a person does, who goes up and down until the directory has a row.
void Open(Execution& run, Arguments& words) {
  DirList& list = ReachedDirectories(run, words);
  const Word* directory = words.Peek();
  const char separator = list.Owner().GetPlatform().files.Separator();
  const auto walksOn = [&] {
    const int row = NearestRow(list, directory->text, separator);
    return row != -1 && list.List(row) != directory->text ? row : -1;
  };
  if (directory) {
    for (int row = walksOn(); row != -1; row = walksOn()) {
      const std::string before = list.Path();
      run.Act([&] { list.UserOpen(row); });
      if (list.Path() == before) break;
    }
  }
  const int row = TakeDirectoryRow(words, list);
  run.Act([&] { list.UserOpen(row); });
}

template <bool ticked>
void Tick(Execution& run, Arguments& words) {
  const Target target = Reached(run, words);
  if (auto* list = dynamic_cast<ListBox*>(target.control)) {
    const int row = TakeListRow(words, *list);
    return run.Act([&] { list->UserTick(row, ticked); });
  }
  words.End();
  const auto tickBox = [&](CheckBox& box) {
    if ((box.Value == 1) != ticked) box.UserClick();
  };
  if (!On<CheckBox>(run, target, tickBox)) Refuse(target, "tick");
}

void Type(Execution& run, Arguments& words) {
  const std::string& text = words.Next("the text");
  words.Choice({"in", "into"});
  const Target target = Reached(run, words);
  words.End();
  const auto type = [&](auto& box) { box.UserType(text); };
  if (!On<TextBox>(run, target, type) && !On<ComboBox>(run, target, type)) Refuse(target, "type in");
}

template <void (RangeControl::*verb)(int value)>
void Move(Execution& run, Arguments& words) {
  const Target target = Reached(run, words);
  words.Need("to");
  const int value = words.NextInt("the value");
  words.End();
  if (!On<RangeControl>(run, target, [&](RangeControl& range) { (range.*verb)(value); })) {
    Refuse(target, "set");
  }
}

void Drop(Execution& run, Arguments& words) {
  const Target target = Reached(run, words);
  words.End();
  if (!On<RangeControl>(run, target, [](RangeControl& range) { range.UserDrop(); })) Refuse(target, "drop");
}

// "press toolbar Next", "press toolbar 7 of frmZoomView.Toolbar1": by key, or by position where a key names
// several buttons.
void PressToolbar(Execution& run, Arguments& words) {
  const std::string& which = words.Next("the button's key or position");
  App& app = run.Running();
  Target target{&app.WPaper2, &app.WPaper2.Toolbar1, {}};
  if (words.Take("of")) target = NextElement(run, words);
  words.End();
  auto* bar = dynamic_cast<Toolbar*>(target.control);
  if (!bar) Refuse(target, "press a button of");
  CheckReachable(run, target);
  int position = bar->Find(which);
  const bool isNumber = which.find_first_not_of("0123456789") == std::string::npos;
  if (position == 0 && isNumber) position = static_cast<int>(WholeNumber(which));
  if (position < 1 || position > bar->Count()) {
    throw Failure{"the toolbar has no button \"" + which + "\""};
  }
  run.Act([&] { bar->UserPress(position); });
}

void Press(Execution& run, Arguments& words) {
  if (words.Take("toolbar")) return PressToolbar(run, words);
  const Key key = KeyNamed(words.Next("what to press"));
  if (PressInPopup(run, key)) return;
  Target target;
  if (words.Take("in")) {
    target = NextElement(run, words);
    words.End();
  } else {
    words.End();
    target.form = run.World().windows.Front();
    if (!target.form) throw Failure{"no window is on the screen"};
    target.control = target.form->ActiveControl();
  }
  CheckReachable(run, target);
  run.Act([&] { PressKey(*target.form, target.control, key); });
}

float TakeLength(Arguments& words, const char* what) {
  return static_cast<float>(words.NextNumber(what));
}

// "mouse NAME at 10 20", "mouse NAME moves at 155 300 twips", "mouse NAME down at 10 20 button 2"
void Mouse(Execution& run, Arguments& words) {
  const Target target = Reached(run, words);
  auto verb = &Pointed::UserMouseUp;
  if (words.Take("down")) {
    verb = &Pointed::UserMouseDown;
  } else if (words.Take("moves")) {
    verb = &Pointed::UserMouseMove;
  }
  words.Need("at");
  MouseState mouse;
  mouse.x = TakeLength(words, "the column");
  mouse.y = TakeLength(words, "the row");
  if (!words.Take("twips")) {
    mouse.x *= twipsPerPixel;
    mouse.y *= twipsPerPixel;
  }
  if (words.Take("button")) mouse.button = words.NextInt("the button");
  words.End();
  Pointed* pointed = PointedAt(target);
  if (!pointed) Refuse(target, "use the mouse on");
  run.Act([&] { (pointed->*verb)(mouse); });
}

// The icon works whatever stands on the screen, unless a box of the desktop's waits for its answer.
void TrayMouse(Execution& run, float x, float y) {
  MemoryTray& tray = run.World().tray;
  if (!tray.icon) throw Failure{"there is no tray icon"};
  if (run.World().dialogs.IsOpen()) throw Failure{"the tray can't be reached while a box is open"};
  // Whatever is clicked elsewhere, an open menu closes.
  run.World().popup.Close();
  bool told = true;
  run.Act([&] { told = tray.MoveMouse(x, y); });
  if (!told) throw Failure{"the tray icon does not ask for mouse moves"};
}

void TrayMessage(Execution& run, long long message) {
  TrayMouse(run, static_cast<float>(message) * twipsPerPixel, 0);
}

void Tray(Execution& run, Arguments& words) {
  switch (words.Choice({"missing", "there", "left", "right", "double", "message", "move"})) {
    case 0:
      run.World().tray.isAvailable = false;
      return;
    case 1:
      run.World().tray.isAvailable = true;
      return;
    case 2: {
      const bool up = words.Take("up");
      words.End();
      return TrayMessage(run, up ? WM_LBUTTONUP : WM_LBUTTONDOWN);
    }
    case 3:
      words.End();
      return TrayMessage(run, WM_RBUTTONDOWN);
    case 4:
      words.Need("click");
      words.End();
      return TrayMessage(run, WM_LBUTTONDBLCLK);
    case 5: {
      const auto message = words.NextNumber("the message's number");
      words.End();
      return TrayMessage(run, message);
    }
    default: {
      const float x = TakeLength(words, "the column in twips");
      const float y = words.AtEnd() ? 0.0F : TakeLength(words, "the row in twips");
      words.End();
      return TrayMouse(run, x, y);
    }
  }
}

Form& ReachedForm(Execution& run, Arguments& words) {
  Form& form = FindForm(run.Running(), words.Next("the form"));
  CheckReachable(run, {&form, nullptr, {}});
  return form;
}

void Resize(Execution& run, Arguments& words) {
  Form& form = ReachedForm(run, words);
  words.Need("to");
  const auto twips = Measures(words.Next("the size"));
  words.End();
  run.Act([&] { form.UserResize(static_cast<float>(twips[0]), static_cast<float>(twips[1]), form.State); });
}

template <WindowState state>
void Bring(Execution& run, Arguments& words) {
  Form& form = ReachedForm(run, words);
  words.End();
  const bool fills = state == WindowState::Maximized;
  const float width = fills ? run.World().windows.screenWidth : form.Width.Get();
  const float height = fills ? run.World().windows.screenHeight : form.Height.Get();
  run.Act([&] { form.UserResize(width, height, state); });
}

template <void (Form::*verb)()>
void OnForm(Execution& run, Arguments& words) {
  Form& form = ReachedForm(run, words);
  words.End();
  run.Act([&] { (form.*verb)(); });
}

}  // namespace

void AddUserStatements(StatementTable& table) {
  table["start"] = [](Execution& run, Arguments& words) {
    words.End();
    run.Start();
  };
  table["click"] = table["choose"] = Click;
  table["double"] = DoubleClick;
  table["select"] = Select;
  table["highlight"] = Highlight;
  table["open"] = Open;
  table["tick"] = Tick<true>;
  table["untick"] = Tick<false>;
  table["type"] = Type;
  table["set"] = Move<&RangeControl::UserSet>;
  table["drag"] = Move<&RangeControl::UserDrag>;
  table["drop"] = Drop;
  table["press"] = Press;
  table["mouse"] = Mouse;
  table["tray"] = Tray;
  table["resize"] = Resize;
  table["maximize"] = Bring<WindowState::Maximized>;
  table["minimize"] = Bring<WindowState::Minimized>;
  table["restore"] = Bring<WindowState::Normal>;
  table["close"] = OnForm<&Form::UserClose>;
  table["activate"] = OnForm<&Form::UserActivate>;
}

}  // namespace lumidex::scenario
