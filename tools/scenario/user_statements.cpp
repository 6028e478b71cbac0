// Statements that say what the user does, what is answered to dialogs, and when things happen.

#include <map>

#include "base/text.h"
#include "controls/bars.h"
#include "controls/buttons.h"
#include "controls/file_lists.h"
#include "controls/gvbox.h"
#include "controls/list_box.h"
#include "controls/menu_item.h"
#include "controls/picture_controls.h"
#include "controls/ranges.h"
#include "controls/tab_strip.h"
#include "controls/texts.h"
#include "forms/WPaper2.h"
#include "scenario/keys.h"
#include "scenario/targets.h"

namespace lumidex::scenario {
namespace {

// The control or form that a user gets at; throws Failure when he can not.
Target Reached(Execution& run, const Statement& statement, std::size_t place) {
  Target target = FindTarget(run.Running(), WordAt(statement, place, "the control"));
  if (!target.property.empty()) {
    throw Failure{"there is no control \"" + target.property + "\" in " + target.form->Name()};
  }
  CheckReachable(run, target);
  return target;
}

[[noreturn]] void Refuse(const Target& target, const std::string& verb) {
  const std::string name = target.control ? target.control->Name() : target.form->Name();
  throw Failure{name + " is nothing to " + verb};
}

// Runs `action` on the control when it is of the kind, and says whether it was.
template <class Kind, class Action>
bool On(Execution& run, const Target& target, Action&& action) {
  auto* control = dynamic_cast<Kind*>(target.control);
  if (control) run.Act([&] { action(*control); });
  return control != nullptr;
}

void Click(Execution& run, const Statement& statement) {
  const Target target = Reached(run, statement, 1);
  const auto click = [&run](auto& control) {
    if (!run.Windows().Click(control)) control.UserClick();
  };
  const bool done = On<CommandButton>(run, target, click) || On<CheckBox>(run, target, click) ||
                    On<OptionButton>(run, target, click) || On<MenuItem>(run, target, click) ||
                    On<Label>(run, target, click) || On<ImageBox>(run, target, click) ||
                    On<Gvbox>(run, target, [](Gvbox& box) { box.OnClick(); });
  if (done) return;
  if (target.control) Refuse(target, "click");
  run.Act([&] { target.form->OnClick(); });
}

void DoubleClick(Execution& run, const Statement& statement) {
  const Target target = Reached(run, statement, 2);
  const auto doubleClick = [](auto& control) { control.UserDoubleClick(); };
  if (On<ListBox>(run, target, doubleClick) || On<ImageBox>(run, target, doubleClick)) return;
  Refuse(target, "double-click");
}

// Words 2 and 3: "row 4", or the text of a row as `textOf` gives it.
template <class TextOf>
int RowNamed(const Statement& statement, int first, int count, TextOf&& textOf) {
  const std::string& word = WordAt(statement, 2, "the row");
  if (word == "row" && !statement.words[2].quoted) {
    return static_cast<int>(WholeNumber(WordAt(statement, 3, "the row's number")));
  }
  for (int row = first; row < count; ++row) {
    if (textOf(row) == word) return row;
  }
  throw Failure{"no row reads \"" + word + "\""};
}

int ListRow(const ListBox& list, const Statement& statement) {
  return RowNamed(statement, 0, list.ListCount(), [&](int row) { return list.List(row); });
}

void Select(Execution& run, const Statement& statement) {
  const Target target = Reached(run, statement, 1);
  const std::string& what = WordAt(statement, 2, "what to select");
  const bool done =
      On<ListBox>(run, target, [&](ListBox& list) { list.UserSelect(ListRow(list, statement)); }) ||
      On<FileList>(run, target,
                   [&](FileList& list) {
                     list.UserSelect(
                         RowNamed(statement, 0, list.ListCount(), [&](int row) { return list.List(row); }));
                   }) ||
      On<DriveList>(run, target, [&](DriveList& list) { list.UserSelect(what); }) ||
      On<TabStrip>(run, target, [&](TabStrip& tabs) {
        tabs.UserSelect(static_cast<int>(WholeNumber(WordAt(statement, 3, "the page's number"))));
      });
  if (!done) Refuse(target, "select in");
}

int DirectoryRow(const DirList& list, const Statement& statement) {
  return RowNamed(statement, -list.Depth(), list.ListCount(), [&](int row) { return list.List(row); });
}

void Highlight(Execution& run, const Statement& statement) {
  const Target target = Reached(run, statement, 1);
  const auto highlight = [&](DirList& list) { list.UserHighlight(DirectoryRow(list, statement)); };
  if (!On<DirList>(run, target, highlight)) Refuse(target, "highlight in");
}

void Open(Execution& run, const Statement& statement) {
  const Target target = Reached(run, statement, 1);
  const auto open = [&](DirList& list) { list.UserOpen(DirectoryRow(list, statement)); };
  if (!On<DirList>(run, target, open)) Refuse(target, "open");
}

void Tick(Execution& run, const Statement& statement) {
  const bool ticked = statement.words.front().text == "tick";
  const Target target = Reached(run, statement, 1);
  const auto tickBox = [&](CheckBox& box) {
    if ((box.Value == 1) != ticked) box.UserClick();
  };
  const auto tickRow = [&](ListBox& list) { list.UserTick(ListRow(list, statement), ticked); };
  if (!On<CheckBox>(run, target, tickBox) && !On<ListBox>(run, target, tickRow)) Refuse(target, "tick");
}

void Type(Execution& run, const Statement& statement) {
  const std::string& text = WordAt(statement, 1, "the text");
  const Target target = Reached(run, statement, 3);
  if (!On<TextBox>(run, target, [&](TextBox& box) { box.UserType(text); })) Refuse(target, "type in");
}

void SetTo(Execution& run, const Statement& statement) {
  const Target target = Reached(run, statement, 1);
  const auto value = static_cast<int>(WholeNumber(WordAt(statement, 3, "the value")));
  if (!On<RangeControl>(run, target, [&](RangeControl& range) { range.UserSet(value); }))
    Refuse(target, "set");
}

void Drag(Execution& run, const Statement& statement) {
  const Target target = Reached(run, statement, 1);
  const auto value = static_cast<int>(WholeNumber(WordAt(statement, 3, "the value")));
  if (!On<RangeControl>(run, target, [&](RangeControl& range) { range.UserDrag(value); }))
    Refuse(target, "drag");
}

void Drop(Execution& run, const Statement& statement) {
  const Target target = Reached(run, statement, 1);
  if (!On<RangeControl>(run, target, [](RangeControl& range) { range.UserDrop(); })) Refuse(target, "drop");
}

// A toolbar's button by its key, or a key of the keyboard.
void Press(Execution& run, const Statement& statement) {
  const std::string& what = WordAt(statement, 1, "what to press");
  if (what == "toolbar") {
    Toolbar& bar = run.Running().WPaper2.Toolbar1;
    const std::string& key = WordAt(statement, 2, "the button's key");
    CheckReachable(run, {&run.Running().WPaper2, &bar, {}});
    const int position = bar.Find(key);
    if (position == 0) throw Failure{"the toolbar has no button \"" + key + "\""};
    run.Act([&] { bar.UserPress(position); });
    return;
  }
  App& app = run.Running();
  Form* front = run.World().windows.Front();
  const bool saysWhere = statement.words.size() > 3 && statement.words[2].Is("in");
  Target target{front, front ? front->ActiveControl() : nullptr, {}};
  if (saysWhere) target = FindTarget(app, statement.words[3].text);
  if (!target.form) throw Failure{"no window is on the screen"};
  CheckReachable(run, target);
  const Key key = KeyNamed(what);
  run.Act([&] { PressKey(*target.form, target.control, key); });
}

void Mouse(Execution& run, const Statement& statement) {
  const Target target = Reached(run, statement, 1);
  const auto x = static_cast<float>(WholeNumber(WordAt(statement, 3, "the column")));
  const auto y = static_cast<float>(WholeNumber(WordAt(statement, 4, "the row")));
  const bool saysButton = statement.words.size() > 6 && statement.words[5].Is("button");
  const int button = saysButton ? static_cast<int>(WholeNumber(statement.words[6].text)) : 1;
  const auto release = [&](Gvbox& box) {
    box.UserMouseUp({button, 0, x * twipsPerPixel, y * twipsPerPixel});
  };
  if (!On<Gvbox>(run, target, release)) Refuse(target, "use the mouse on");
}

void Resize(Execution& run, const Statement& statement) {
  const Target target = Reached(run, statement, 1);
  Form& form = *target.form;
  const std::string& verb = statement.words.front().text;
  float width = form.Width, height = form.Height;
  WindowState state = WindowState::Normal;
  if (verb == "resize") {
    const auto twips = Measures(WordAt(statement, 3, "the size"));
    width = static_cast<float>(twips[0]);
    height = static_cast<float>(twips[1]);
    state = form.State;
  }
  if (verb == "maximize") {
    state = WindowState::Maximized;
    width = run.World().windows.screenWidth;
    height = run.World().windows.screenHeight;
  }
  if (verb == "minimize") state = WindowState::Minimized;
  run.Act([&] { form.UserResize(width, height, state); });
}

void Close(Execution& run, const Statement& statement) {
  const Target target = Reached(run, statement, 1);
  run.Act([&] { target.form->UserClose(); });
}

void Activate(Execution& run, const Statement& statement) {
  const Target target = Reached(run, statement, 1);
  run.Act([&] { target.form->UserActivate(); });
}

// As code does it, without asking whether a user could.
void Write(Execution& run, const Statement& statement) {
  const std::string& name = WordAt(statement, 1, "the property");
  if (statement.words.size() < 3 || !statement.words[2].Is("=")) throw Failure{"\"=\" is missing"};
  const std::string value = RestOfLine(statement.text, statement.words[2].start + 1);
  const Target target = FindTarget(run.Running(), name);
  Element& element = target.control ? static_cast<Element&>(*target.control) : *target.form;
  bool exists = true;
  run.Act([&] { exists = element.WriteProperty(target.property, value); });
  if (!exists) throw Failure{"there is no \"" + target.property + "\" in " + name};
}

void Answer(Execution& run, const Statement& statement) {
  static const std::map<std::string, MessageAnswer, std::less<>> buttons{
      {"Ok", MessageAnswer::Ok},       {"Cancel", MessageAnswer::Cancel}, {"Abort", MessageAnswer::Abort},
      {"Retry", MessageAnswer::Retry}, {"Ignore", MessageAnswer::Ignore}, {"Yes", MessageAnswer::Yes},
      {"No", MessageAnswer::No}};
  ScriptedDialogs& dialogs = run.World().dialogs;
  const std::string& what = WordAt(statement, 1, "the answer");
  if (const auto button = buttons.find(what); button != buttons.end()) {
    dialogs.messageAnswers.push_back(button->second);
  } else if (what == "input") {
    dialogs.inputAnswers.emplace_back(WordAt(statement, 2, "the text"));
  } else if (what == "file") {
    FileDialogAnswer answer{true, WordAt(statement, 2, "the path"), 0};
    const bool saysFilter = statement.words.size() > 4 && statement.words[3].Is("filter");
    if (saysFilter) answer.filterIndex = static_cast<int>(WholeNumber(statement.words[4].text));
    dialogs.fileAnswers.push_back(answer);
  } else if (what == "color") {
    dialogs.colorAnswers.emplace_back(
        static_cast<std::uint32_t>(WholeNumber(WordAt(statement, 2, "the colour"))));
  } else {
    throw Failure{"\"" + what + "\" is no answer"};
  }
}

void Cancel(Execution& run, const Statement& statement) {
  ScriptedDialogs& dialogs = run.World().dialogs;
  const std::string& what = WordAt(statement, 1, "which dialog");
  if (what == "input") {
    dialogs.inputAnswers.emplace_back();
  } else if (what == "file") {
    dialogs.fileAnswers.emplace_back();
  } else if (what == "color") {
    dialogs.colorAnswers.emplace_back();
  } else {
    throw Failure{"an input, a file or a color dialog can be cancelled"};
  }
}

std::int64_t Milliseconds(const Statement& statement, std::size_t place) {
  const auto amount = WholeNumber(WordAt(statement, place, "the time"));
  const std::string& unit = WordAt(statement, place + 1, "the unit of time, s or ms");
  if (unit == "ms") return amount;
  if (unit == "s") return amount * 1000;
  throw Failure{"time is told in s or ms"};
}

void Wait(Execution& run, const Statement& statement) {
  run.Running();
  run.World().events.Advance(Milliseconds(statement, 1));
}

void NeedBlock(const Statement& statement) {
  if (!statement.hasBlock) throw Failure{"an indented block is missing below the line"};
}

void After(Execution& run, const Statement& statement) {
  NeedBlock(statement);
  run.RunAfter(Milliseconds(statement, 1), statement);
}

// "at yield 3:", "at yield when global DirectoriesSearched = 2:", "at yield 2 when ...:"
void At(Execution& run, const Statement& statement) {
  NeedBlock(statement);
  const auto& words = statement.words;
  Execution::Interruption interruption;
  interruption.line = statement.line;
  interruption.statement = &statement;
  std::size_t next = 2;
  if (words.size() > next && !words[next].Is("when")) {
    interruption.yields = static_cast<int>(WholeNumber(words[next++].text));
  }
  if (words.size() > next && words[next].Is("when")) {
    interruption.condition = [&run, &statement, next] {
      std::string why;
      return Holds(run, statement, next + 1, why);
    };
  }
  run.Expect(std::move(interruption));
}

// "repeat 29 as n:" runs its block for n from 1 to 29, with the number wherever {n} stands.
void Repeat(Execution& run, const Statement& statement) {
  NeedBlock(statement);
  const auto times = WholeNumber(WordAt(statement, 1, "how often"));
  const bool counts = statement.words.size() > 3 && statement.words[2].Is("as");
  for (long long i = 1; i <= times; ++i) {
    if (counts) {
      run.RunBlock(run.Keep(WithNumber(statement, "{" + statement.words[3].text + "}", i)));
    } else {
      run.RunBlock(statement);
    }
  }
}

void Screenshot(Execution& run, const Statement& statement) {
  const std::string& file = WordAt(statement, 1, "the file");
  run.Windows().Settle();
  // Without windows there is nothing to be seen, and nothing wrong.
  run.Windows().Screenshot(file);
}

using Handler = void (*)(Execution&, const Statement&);

const std::map<std::string, Handler, std::less<>>& Handlers() {
  static const std::map<std::string, Handler, std::less<>> handlers{
      {"start", [](Execution& run, const Statement&) { run.Start(); }},
      {"click", Click},
      {"choose", Click},
      {"double", DoubleClick},
      {"select", Select},
      {"highlight", Highlight},
      {"open", Open},
      {"tick", Tick},
      {"untick", Tick},
      {"type", Type},
      {"set", SetTo},
      {"drag", Drag},
      {"drop", Drop},
      {"press", Press},
      {"mouse", Mouse},
      {"resize", Resize},
      {"maximize", Resize},
      {"minimize", Resize},
      {"restore", Resize},
      {"close", Close},
      {"activate", Activate},
      {"write", Write},
      {"answer", Answer},
      {"cancel", Cancel},
      {"wait", Wait},
      {"after", After},
      {"at", At},
      {"repeat", Repeat},
      {"screenshot", Screenshot},
  };
  return handlers;
}

}  // namespace

bool ExecuteUserAction(Execution& run, const Statement& statement) {
  const auto found = Handlers().find(statement.words.front().text);
  if (found == Handlers().end()) return false;
  found->second(run, statement);
  return true;
}

}  // namespace lumidex::scenario
