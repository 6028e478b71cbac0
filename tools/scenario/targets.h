#pragma once
// Finding what a scenario names: "frmTip.cmdOK", "WPaper2.LstRight.ListCount", "frmTip.Visible". What begins
// with no form's name belongs to the main window.

#include "scenario/execution.h"

namespace lumidex::scenario {

struct Target {
  Form* form = nullptr;
  Control* control = nullptr;  // null when the form itself is meant
  std::string property;        // empty when none is named
};

// Throws Failure for a name that leads nowhere.
Target FindTarget(App& app, const std::string& name);

// As text; also the state of a form that is no property: Visible, Loaded, Modal.
std::string ReadProperty(App& app, const std::string& name);

// Throws Failure for a control that a user cannot get at: its form is not on the screen or another one is
// modal, or the control is not shown.
void CheckReachable(Execution& run, const Target& target);

// The picture that a control holds, or a form; throws Failure when it has none to hold.
Picture PictureOf(const Target& target);

}  // namespace lumidex::scenario
