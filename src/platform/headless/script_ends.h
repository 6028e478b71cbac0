#pragma once
// What is thrown through the program to end it from inside a platform call. None of these is an exception
// type that the program knows, so no trap of its own can hold them up.

namespace lumidex {

// The program has asked for its end.
struct ProgramEnded {
  int exitCode = 0;
};

// The program stands still for ever, or spins without any event to wake it.
struct ProgramHung {};

// A modal window waits for the user, and there is nothing more that the user does.
struct NoUserActionLeft {};

}  // namespace lumidex
