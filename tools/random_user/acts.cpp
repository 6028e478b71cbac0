#include "random_user/acts.h"

#include <algorithm>

#include "base/text.h"
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
#include "scenario/popup_menu.h"
#include "scenario/targets.h"

namespace lumidex::random_user {
namespace {

using scenario::Execution;
using scenario::Target;

// The lines that are possible, each with the weight that chance gives it.
class Possible {
 public:
  explicit Possible(Random& random) : random_(random) {}
  Random& Chance() { return random_; }

  void Add(int weight, std::string line) {
    total_ += weight;
    lines_.push_back({weight, std::move(line)});
  }
  std::string Pick() {
    int at = random_.Below(total_);
    for (auto& [weight, line] : lines_) {
      if (at < weight) return line;
      at -= weight;
    }
    return {};
  }

 private:
  Random& random_;
  int total_ = 0;
  std::vector<std::pair<int, std::string>> lines_;
};

std::string AnyRow(Random& random, int first, int end) {
  return " row " + Number(random.Between(first, end - 1));
}

void AddListActs(Possible& possible, const std::string& name, const ListBox& list) {
  if (list.ListCount() == 0) return;
  const std::string row = AnyRow(possible.Chance(), 0, list.ListCount());
  possible.Add(6, "select " + name + row);
  possible.Add(4, "double click " + name);
  if (list.Style() != ListStyle::CheckBoxes) return;
  possible.Add(3, "tick " + name + row);
  possible.Add(3, "untick " + name + row);
}

void AddDirectoryActs(Possible& possible, const std::string& name, const DirList& list) {
  const std::string row = AnyRow(possible.Chance(), -list.Depth(), list.ListCount());
  possible.Add(2, "highlight " + name + row);
  possible.Add(6, "open " + name + row);
}

void AddRangeActs(Possible& possible, const std::string& name, const RangeControl& range) {
  if (dynamic_cast<const ProgressBar*>(&range)) return;
  const auto [low, high] = std::minmax(range.Min.Get(), range.Max.Get());
  const std::string value = " to " + Number(possible.Chance().Between(low, high));
  possible.Add(3, "set " + name + value);
  possible.Add(1, "drag " + name + value);
  possible.Add(1, "drop " + name);
}

void AddToolbarActs(Possible& possible, const std::string& name, const Toolbar& bar) {
  for (int position = 1; position <= bar.Count(); ++position) {
    const ToolbarButton& button = bar.Button(position);
    if (!button.Enabled || !button.Visible) continue;
    possible.Add(2, "press toolbar " + Number(position) + " of " + name);
  }
}

void AddTyping(Possible& possible, const std::string& name) {
  static const std::vector<std::string> texts{"",    "0",   "1",   "75",    "100", "-5",
                                              "1e1", "abc", "2.6", "32767", "  7", "%25 %22 &"};
  possible.Add(3, "type \"" + possible.Chance().Of(texts) + "\" in " + name);
}

bool HasEntries(const MenuItem& menu) {
  const auto& controls = menu.Owner().Controls();
  return std::ranges::any_of(controls, [&](const Control* control) {
    const auto* item = dynamic_cast<const MenuItem*>(control);
    return item && item->Parent() == &menu;
  });
}

void AddMouseActs(Possible& possible, const std::string& name, const Pointed& pointed) {
  if (!pointed.HearsMouse()) return;
  const std::string place =
      " at " + Number(possible.Chance().Below(400)) + " " + Number(possible.Chance().Below(300));
  possible.Add(3, "click " + name);
  possible.Add(1, "double click " + name);
  possible.Add(1, "mouse " + name + place + " button " + Number(possible.Chance().Between(1, 2)));
  possible.Add(1, "mouse " + name + " down" + place);
  possible.Add(1, "mouse " + name + " moves" + place);
}

void AddControlActs(Possible& possible, const std::string& name, Control& control) {
  if (const auto* item = dynamic_cast<const MenuItem*>(&control)) {
    if (item->IsReachable() && !item->IsSeparator() && !HasEntries(*item)) possible.Add(1, "choose " + name);
  } else if (dynamic_cast<const CommandButton*>(&control) || dynamic_cast<const OptionButton*>(&control)) {
    possible.Add(3, "click " + name);
  } else if (dynamic_cast<const CheckBox*>(&control)) {
    possible.Add(1, "click " + name);
  } else if (const auto* list = dynamic_cast<const ListBox*>(&control)) {
    AddListActs(possible, name, *list);
  } else if (const auto* files = dynamic_cast<const FileList*>(&control)) {
    if (files->ListCount() > 0) {
      possible.Add(6, "select " + name + AnyRow(possible.Chance(), 0, files->ListCount()));
    }
  } else if (const auto* directories = dynamic_cast<const DirList*>(&control)) {
    AddDirectoryActs(possible, name, *directories);
  } else if (const auto* drives = dynamic_cast<const DriveList*>(&control)) {
    possible.Add(2, "select " + name + " \"" + possible.Chance().Of(drives->Drives()) + "\"");
  } else if (const auto* tabs = dynamic_cast<const TabStrip*>(&control)) {
    const int pages = static_cast<int>(tabs->Captions().size());
    possible.Add(4, "select " + name + " page " + Number(possible.Chance().Below(pages)));
  } else if (dynamic_cast<const TextBox*>(&control)) {
    AddTyping(possible, name);
  } else if (const auto* range = dynamic_cast<const RangeControl*>(&control)) {
    AddRangeActs(possible, name, *range);
  } else if (const auto* bar = dynamic_cast<const Toolbar*>(&control)) {
    AddToolbarActs(possible, name, *bar);
  } else if (const auto* combo = dynamic_cast<const ComboBox*>(&control)) {
    AddTyping(possible, name);
    if (combo->ListCount() > 0) {
      possible.Add(3, "select " + name + AnyRow(possible.Chance(), 0, combo->ListCount()));
    }
  } else if (const auto* grid = dynamic_cast<const Grid*>(&control)) {
    if (grid->Rows() == 0 || grid->Cols() == 0) return;
    possible.Add(2, "select " + name + AnyRow(possible.Chance(), 0, grid->Rows()) + " column " +
                        Number(possible.Chance().Below(grid->Cols())));
  } else if (const auto* pointed = dynamic_cast<const Pointed*>(&control)) {
    AddMouseActs(possible, name, *pointed);
  }
}

// On the screen with all that it stands in, the right page in front.
bool IsShown(const Control& control) {
  if (!control.Visible) return false;
  const Control* container = control.Container;
  if (!container) return true;
  const auto* tabs = dynamic_cast<const TabStrip*>(container);
  if (tabs && !(tabs->Tab == control.ContainerPage)) return false;
  return IsShown(*container);
}

void AddKeys(Possible& possible, Form& form) {
  static const std::vector<std::string> keys{"Enter",    "Escape", "Space", "Up",  "Down",
                                             "Left",     "Right",  "Home",  "End", "PageUp",
                                             "PageDown", "Delete", "F5"};
  possible.Add(4, "press " + possible.Chance().Of(keys) + " in " +
                      (form.ActiveControl() && IsShown(*form.ActiveControl())
                           ? form.Name() + "." + form.ActiveControl()->Name()
                           : form.Name()));
  for (Control* control : form.Controls()) {
    auto* item = dynamic_cast<MenuItem*>(control);
    const std::string shortcut = item ? item->ReadProperty("Shortcut").value_or("") : std::string();
    if (!shortcut.empty()) possible.Add(1, "press " + shortcut + " in " + form.Name());
  }
}

void AddFormActs(Possible& possible, Execution& run, Form& form) {
  const std::string& name = form.Name();
  const std::string size =
      Number(possible.Chance().Between(1, 1600) * 15) + "x" + Number(possible.Chance().Between(1, 1200) * 15);
  possible.Add(2, "resize " + name + " to " + size);
  possible.Add(1, "maximize " + name);
  possible.Add(1, "restore " + name);
  possible.Add(2, "activate " + name);
  possible.Add(1, "close " + name);
  AddMouseActs(possible, name, form);
  // What is hidden by it comes back through the tray alone.
  if (run.World().tray.icon) possible.Add(1, "minimize " + name);
  AddKeys(possible, form);
}

void AddTrayActs(Possible& possible, Execution& run) {
  if (!run.World().tray.icon) return;
  for (const char* act : {"left", "left up", "right", "double click", "message 512"}) {
    possible.Add(1, std::string("tray ") + act);
  }
}

void AddPopupActs(Possible& possible, Execution& run) {
  possible.Add(2, "press Escape");
  for (Form* form : run.Program().Forms()) {
    if (form->hwnd() != run.World().popup.OpenForm()) continue;
    for (Control* control : form->Controls()) {
      const auto* item = dynamic_cast<const MenuItem*>(control);
      if (item && scenario::StandsInPopup(run, *item)) {
        possible.Add(2, "choose " + form->Name() + "." + item->Name());
      }
    }
  }
}

}  // namespace

std::string AnyAct(Execution& run, Random& random) {
  Possible possible(random);
  possible.Add(2, "wait " + Number(random.Between(1, 6000)) + " ms");
  AddTrayActs(possible, run);
  if (run.World().popup.OpenMenu() != 0) {
    AddPopupActs(possible, run);
    return possible.Pick();
  }
  for (Form* form : run.Program().Forms()) {
    if (!scenario::WhyOutOfReach(run, {form, nullptr, {}}).empty() || !form->Enabled) continue;
    AddFormActs(possible, run, *form);
    for (Control* control : form->Controls()) {
      if (!control->Enabled || (!dynamic_cast<MenuItem*>(control) && !IsShown(*control))) continue;
      AddControlActs(possible, form->Name() + "." + control->Name(), *control);
    }
  }
  return possible.Pick();
}

std::string LeavingAct(Execution& run) {
  if (run.World().popup.OpenMenu() != 0) return "press Escape";
  const Form* modal = run.World().windows.FrontModal();
  return modal ? "close " + modal->Name() : "wait 1 s";
}

}  // namespace lumidex::random_user
