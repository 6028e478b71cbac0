#pragma once
// Runs the text of a scenario and says how it went, for tests of what must fail.

#include <gmock/gmock.h>

#include "scenario/execution.h"

namespace lumidex::scenario {

// "passes", or the failure as the tool tells it, with its line. `setUp` may give the program handlers of its
// own before it starts.
inline std::string Outcome(const std::string& text, std::function<void(App&)> setUp = {}) {
  NoWindows none;
  try {
    const Script script = ReadScript("test.scn", text);
    for (const Scenario& scenario : script.scenarios) {
      Execution execution(scenario, none, "");
      if (setUp) execution.BeforeStart(setUp);
      execution.Run();
    }
  } catch (const Failure& failure) {
    return std::to_string(failure.line) + ": " + failure.text;
  }
  return "passes";
}

// The same for lines that follow a start without the tip window; they are numbered from 1.
inline std::string OutcomeStarted(const std::string& lines, std::function<void(App&)> setUp = {}) {
  const std::string outcome = Outcome("drives\nstart\npress Escape in frmTip\n" + lines, std::move(setUp));
  const auto colon = outcome.find(':');
  if (outcome == "passes" || outcome.starts_with("0:")) return outcome;
  return std::to_string(std::stoi(outcome) - 3) + outcome.substr(colon);
}

using testing::HasSubstr;
using testing::StartsWith;

}  // namespace lumidex::scenario
