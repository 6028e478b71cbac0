#pragma once
// What a user could do now: every gesture on every form and control that he can get at, as lines of a
// scenario. Forms and controls are found through their names, so new ones take part by themselves.

#include <string>

#include "random_user/random.h"
#include "scenario/execution.h"

namespace lumidex::random_user {

// One of the things that can be done now, by chance. Something is always possible: time can pass.
std::string AnyAct(scenario::Execution& run, Random& random);

// What ends a modal window or an open popup menu: its frame's button, Escape.
std::string LeavingAct(scenario::Execution& run);

// Lines that build the world in which the user works, and one that changes it behind the program's back.
std::vector<std::string> WorldLines(Random& random);
std::string AnyWorldChange(scenario::Execution& run, Random& random);

// The answer to a box that has just opened, as a line of a scenario; empty to leave it without one.
std::string AnyAnswer(scenario::Execution& run, ScriptedDialogs::Box box, Random& random);

}  // namespace lumidex::random_user
