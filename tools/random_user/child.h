#pragma once
// Runs in a process of their own, so that a crash, a report of the sanitizers or a loop without end is an
// outcome like any other.

#include <functional>
#include <string>

#include "random_user/session.h"

namespace lumidex::random_user {

struct Outcome {
  std::string failure;   // empty when nothing went wrong
  std::string scenario;  // what was done, when the random user did it
  // Tells one fault from another: the failure without its numbers.
  std::string Kind() const;
};

// The random user follows the plan.
Outcome RunPlan(const Plan& plan);
// The scenario is run as the driver runs it.
Outcome RunText(const std::string& scenario);

}  // namespace lumidex::random_user
