#pragma once
// What a statement tells in several words or lines: a moment, bytes, a text.

#include "ports/services.h"
#include "scenario/arguments.h"

namespace lumidex::scenario {

// Takes "2001-03-05", "14:07:00" or both; what is not told stays as it is. Throws Failure for anything else.
void TakeMoment(Arguments& words, DateTime& moment);

// Takes "0D 0A FF" up to the end of the line.
std::string TakeBytes(Arguments& words);

// The lines of a block, each ending in CR LF.
std::string TextOfLines(const Statement& block);

}  // namespace lumidex::scenario
