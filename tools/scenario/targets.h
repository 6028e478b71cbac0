#pragma once
// Finding what a scenario names: "frmTip.cmdOK", "WPaper2.LstRight.ListCount", "frmTip.Visible". What begins
// with no form's name belongs to the main window.

#include "scenario/execution.h"

namespace lumidex::scenario {

// What a name leads to is not there, or not yet.
struct NotThere : Failure {};

struct Target {
  Form* form = nullptr;
  Control* control = nullptr;  // null when the form itself is meant
  std::string property;        // empty when none is named

  const std::string& Name() const { return control ? control->Name() : form->Name(); }
};

// Throws Failure for a name that leads nowhere.
Target FindTarget(App& app, const std::string& name);
// The same for a form or control alone; throws NotThere when there is none of that name.
Target FindElement(App& app, const std::string& name);
// Throws NotThere when there is no such form.
Form& FindForm(App& app, const std::string& name);

// As text; also the state of a form that is no property: Visible, Loaded, Modal. Throws NotThere when the
// control or the form's value does not exist, Failure when the control has no such property.
std::string ReadProperty(App& app, const std::string& name);
// As code writes it.
void WriteProperty(App& app, const std::string& name, const std::string& value);

// Why a user cannot get at a control or form: the form is not on the screen, another one is modal, a box or a
// popup menu is open, or the control is not shown. Empty when he can.
std::string WhyOutOfReach(Execution& run, const Target& target);
// Throws Failure when he cannot.
void CheckReachable(Execution& run, const Target& target);

// The picture that a control holds, or a form; throws Failure when it has none to hold.
Picture PictureOf(const Target& target);
// Gives it one, as its design.
void SetDesignPicture(const Target& target, const Picture& picture);

}  // namespace lumidex::scenario
