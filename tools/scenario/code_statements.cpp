// Statements that do what the program's own code does, without asking whether a user could.

#include <cstdio>

#include "controls/buttons.h"
#include "controls/combo_box.h"
#include "controls/file_lists.h"
#include "controls/gvbox.h"
#include "controls/list_box.h"
#include "controls/menu_item.h"
#include "controls/pointed.h"
#include "controls/ranges.h"
#include "controls/tab_strip.h"
#include "controls/texts.h"
#include "controls/timer.h"
#include "scenario/statements.h"
#include "scenario/targets.h"

namespace lumidex::scenario {
namespace {

void WriteGlobal(Execution& run, Arguments& words) {
  const std::string& name = words.Next("the name");
  words.Need("=");
  if (!run.Running().WriteGlobal(name, words.Rest())) throw Failure{"there is no global " + name};
}

void Write(Execution& run, Arguments& words) {
  if (words.Take("global")) return WriteGlobal(run, words);
  const std::string& name = words.Next("the property");
  words.Need("=");
  const std::string value = words.Rest();
  words.End();
  run.Act([&] { WriteProperty(run.Running(), name, value); });
}

void ShowLog(const CallLog& log) {
  std::string text;
  for (const std::string& line : log.Lines()) text += line + "\n";
  std::fputs(text.c_str(), stdout);
}

void Show(Execution& run, Arguments& words) {
  // For whoever writes a scenario.
  if (words.Take("log")) return ShowLog(run.World().log);
  Form& form = FindForm(run.Running(), words.Next("the form"));
  const bool modal = words.Take("modal");
  words.End();
  run.Act([&] { form.Show(modal ? Modality::Modal : Modality::Modeless); });
}

void Load(Execution& run, Arguments& words) {
  Form& form = FindForm(run.Running(), words.Next("the form"));
  words.End();
  run.Act([&] { form.Load(); });
}

template <class Kind, class... Args>
struct NamedEvent {
  const char* name;
  Event<Args...> Kind::*event;
};

// Fires one of the events of a kind; false when the element is of another kind or has no such event.
template <class Kind, class... Args>
bool Fire(Element& element, const std::string& name, std::initializer_list<NamedEvent<Kind, Args...>> events,
          Args... args) {
  auto* of = dynamic_cast<Kind*>(&element);
  if (!of) return false;
  for (const auto& known : events) {
    if (name != known.name) continue;
    (of->*known.event)(args...);
    return true;
  }
  return false;
}

bool FirePlain(Element& element, const std::string& name) {
  return Fire<CommandButton>(element, name, {{"Click", &CommandButton::OnClick}}) ||
         Fire<CheckBox>(element, name, {{"Click", &CheckBox::OnClick}}) ||
         Fire<OptionButton>(element, name, {{"Click", &OptionButton::OnClick}}) ||
         Fire<MenuItem>(element, name, {{"Click", &MenuItem::OnClick}}) ||
         Fire<ListBox>(element, name, {{"Click", &ListBox::OnClick}, {"DblClick", &ListBox::OnDblClick}}) ||
         Fire<FileList>(element, name,
                        {{"Click", &FileList::OnClick}, {"DblClick", &FileList::OnDblClick}}) ||
         Fire<DirList>(element, name, {{"Change", &DirList::OnChange}}) ||
         Fire<DriveList>(element, name, {{"Change", &DriveList::OnChange}}) ||
         Fire<TextBox>(element, name, {{"Change", &TextBox::OnChange}}) ||
         Fire<ComboBox>(element, name, {{"Change", &ComboBox::OnChange}, {"Click", &ComboBox::OnClick}}) ||
         Fire<RangeControl>(element, name,
                            {{"Change", &RangeControl::OnChange}, {"Scroll", &RangeControl::OnScroll}}) ||
         Fire<TabStrip>(element, name, {{"Click", &TabStrip::OnClick}}) ||
         Fire<Timer>(element, name, {{"Timer", &Timer::OnTimer}}) ||
         Fire<Gvbox>(element, name, {{"ImageChanged", &Gvbox::OnImageChanged}}) ||
         Fire<Pointed>(element, name, {{"Click", &Pointed::OnClick}, {"DblClick", &Pointed::OnDblClick}}) ||
         Fire<Control>(element, name,
                       {{"GotFocus", &Control::OnGotFocus}, {"LostFocus", &Control::OnLostFocus}}) ||
         Fire<Form>(element, name,
                    {{"Load", &Form::OnLoad},
                     {"Activate", &Form::OnActivate},
                     {"Resize", &Form::OnResize},
                     {"Paint", &Form::OnPaint}});
}

bool FireWithNumber(Element& element, const std::string& name, int number) {
  return Fire<Control, int>(element, name,
                            {{"KeyDown", &Control::OnKeyDown}, {"KeyPress", &Control::OnKeyPress}}, number) ||
         Fire<Form, int>(element, name, {{"KeyDown", &Form::OnKeyDown}}, number) ||
         Fire<ListBox, int>(element, name, {{"ItemCheck", &ListBox::OnItemCheck}}, number);
}

// "fire mnuPictureNext.Click", "fire LstRight.KeyDown 13"
void FireEvent(Execution& run, Arguments& words) {
  const std::string& name = words.Next("the event");
  const Target target = FindTarget(run.Running(), name);
  Element& element = target.control ? static_cast<Element&>(*target.control) : *target.form;
  std::optional<int> number;
  if (!words.AtEnd()) number = words.NextInt("the number");
  words.End();
  bool fired = false;
  run.Act([&] {
    fired = number ? FireWithNumber(element, target.property, *number) : FirePlain(element, target.property);
  });
  if (!fired) throw Failure{"there is no event \"" + name + "\""};
}

}  // namespace

void AddCodeStatements(StatementTable& table) {
  table["write"] = Write;
  table["show"] = Show;
  table["load"] = Load;
  table["fire"] = FireEvent;
}

}  // namespace lumidex::scenario
