#pragma once
// What can be asked for: properties, globals, files, and the state of the world, each as text.

#include "scenario/arguments.h"
#include "scenario/execution.h"

namespace lumidex::scenario {

// Takes all words. Throws NotThere when what they name is not there, Failure for words that name nothing, and
// RunTimeError for a file that can't be read.
std::string TakeValue(Execution& run, Arguments& words);

// The same for one that may be followed by others.
std::string TakeOneValue(Execution& run, Arguments& words);

// "file PATH", "clipboard", or the name of a control or form: the picture that it holds.
Picture TakePicture(Execution& run, Arguments& words);

}  // namespace lumidex::scenario
