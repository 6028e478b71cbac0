#include "scenario/keys.h"

#include <map>

#include "base/text.h"
#include "controls/buttons.h"
#include "controls/file_lists.h"
#include "controls/list_box.h"
#include "controls/menu_item.h"
#include "controls/ranges.h"
#include "controls/texts.h"
#include "scenario/captions.h"
#include "scenario/words.h"

namespace lumidex::scenario {
namespace {

constexpr int enter = 13, escape = 27, space = 32, pageUp = 33, pageDown = 34, end = 35, home = 36, left = 37,
              up = 38, right = 39, down = 40;

// The item that has the key as its shortcut; null when none has.
MenuItem* ItemFor(const Form& form, const Key& key) {
  for (Control* control : form.Controls()) {
    auto* item = dynamic_cast<MenuItem*>(control);
    if (item && item->ReadProperty("Shortcut") == key.name) return item;
  }
  return nullptr;
}

CommandButton* ButtonFor(const Form& form, int code) {
  for (Control* control : form.Controls()) {
    auto* button = dynamic_cast<CommandButton*>(control);
    if (!button) continue;
    if (code == enter ? button->Default.Get() : button->Cancel.Get()) return button;
  }
  return nullptr;
}

// The label's access key is that of what comes behind it.
void FocusBehind(Form& form, const Control& label) {
  bool behind = false;
  for (Control* control : form.Controls()) {
    if (control == &label) behind = true;
    if (behind && control->CanTakeFocus() && control->Enabled && control->Visible) {
      return form.UserFocus(control);
    }
  }
}

void PressAccessKey(Form& form, const Key& key) {
  for (Control* control : form.Controls()) {
    const bool isMenu = dynamic_cast<MenuItem*>(control) != nullptr;
    if (AccessKeyOf(*control) != key.code || !control->Visible || !control->Enabled) continue;
    if (auto* button = dynamic_cast<CommandButton*>(control)) return button->UserClick();
    if (auto* box = dynamic_cast<CheckBox*>(control)) return box->UserClick();
    if (auto* option = dynamic_cast<OptionButton*>(control)) return option->UserClick();
    if (dynamic_cast<Label*>(control)) return FocusBehind(form, *control);
    // A title opens its menu, which changes nothing.
    if (isMenu && !static_cast<MenuItem*>(control)->Parent()) return;
  }
  throw Failure{form.Name() + " has nothing with the access key " +
                std::string(1, static_cast<char>(key.code))};
}

void PressInRange(RangeControl& range, int code) {
  static const std::map<int, int> steps{{left, -1}, {up, -1}, {right, 1}, {down, 1}};
  if (const auto step = steps.find(code); step != steps.end()) {
    return range.UserSet(range.Value + step->second * range.SmallChange);
  }
  if (code == pageUp || code == pageDown) {
    return range.UserSet(range.Value + (code == pageUp ? -1 : 1) * range.LargeChange);
  }
  if (code == home) return range.UserSet(range.Min);
  if (code == end) return range.UserSet(range.Max);
}

void PressInList(ListBox& list, int code) {
  if (code == up) return list.UserSelect(list.ListIndex() - 1);
  if (code == down) return list.UserSelect(list.ListIndex() + 1);
  if (code == home) return list.UserSelect(0);
  if (code == end) return list.UserSelect(list.ListCount() - 1);
  if (code == space && list.Style() == ListStyle::CheckBoxes && list.ListIndex() >= 0) {
    return list.UserTick(list.ListIndex(), !list.Selected(list.ListIndex()));
  }
  list.UserKey(code);
}

// What a key does in a control of its kind; false when it is only told to its events.
bool PressInControl(Control* control, int code) {
  if (auto* list = dynamic_cast<ListBox*>(control)) {
    PressInList(*list, code);
  } else if (auto* directories = dynamic_cast<DirList*>(control)) {
    if (code == enter) {
      directories->UserOpen(directories->ListIndex());
    } else {
      directories->UserKey(code);
    }
  } else if (auto* button = dynamic_cast<CommandButton*>(control);
             button && (code == enter || code == space)) {
    button->UserClick();
  } else if (auto* box = dynamic_cast<CheckBox*>(control); box && code == space) {
    box->UserClick();
  } else if (auto* option = dynamic_cast<OptionButton*>(control); option && code == space) {
    option->UserClick();
  } else {
    return false;
  }
  return true;
}

}  // namespace

Key KeyNamed(const std::string& name) {
  static const std::map<std::string, int, std::less<>> codes{
      {"Backspace", 8},       {"Tab", 9},       {"Enter", enter},
      {"Escape", escape},     {"Space", space}, {"PageUp", pageUp},
      {"PageDown", pageDown}, {"End", end},     {"Home", home},
      {"Left", left},         {"Up", up},       {"Right", right},
      {"Down", down},         {"Delete", 46}};
  if (name.starts_with("Ctrl+") && name.size() == 6) return {name, name[5], Key::With::Ctrl};
  if (name.starts_with("Alt+") && name.size() == 5) return {name, UCase(name.substr(4))[0], Key::With::Alt};
  if (const auto found = codes.find(name); found != codes.end()) return {name, found->second};
  if (name.size() == 1) return {name, name[0]};
  const bool shifted = name.starts_with("Shift+F");
  for (int number = 1; number <= 12; ++number) {
    if (name == "F" + Number(number)) return {name, 111 + number};
    if (shifted && name == "Shift+F" + Number(number)) return {name, 111 + number};
  }
  throw Failure{"\"" + name + "\" is no key"};
}

void PressKey(Form& form, Control* control, const Key& key) {
  if (MenuItem* item = ItemFor(form, key)) return item->UserShortcut();
  if (key.with == Key::With::Ctrl) throw Failure{form.Name() + " has no such shortcut"};
  if (key.with == Key::With::Alt) return PressAccessKey(form, key);
  const bool takesEnter = dynamic_cast<CommandButton*>(control) || dynamic_cast<DirList*>(control);
  if (key.code == escape || (key.code == enter && !takesEnter)) {
    if (CommandButton* button = ButtonFor(form, key.code)) return button->UserClick();
  }
  if (PressInControl(control, key.code)) return;
  if (!control) return form.OnKeyDown(key.code);
  control->UserKey(key.code);
  if (auto* range = dynamic_cast<RangeControl*>(control)) PressInRange(*range, key.code);
}

}  // namespace lumidex::scenario
