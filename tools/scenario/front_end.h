#pragma once
// The windows in which a scenario runs the program. Without any, events go straight to the forms; a front end
// with real windows shows the same forms, and the scenario's time, files and dialogs stay the simulated ones.

#include <memory>
#include <string>

#include "forms/app.h"
#include "platform/headless/headless_platform.h"

namespace lumidex::scenario {

class FrontEnd {
 public:
  virtual ~FrontEnd() = default;

  // Shows the program's forms from now on. Called once, before the first form is loaded.
  virtual void Attach(App& app, HeadlessPlatform& platform) = 0;
  // The program is about to be destroyed.
  virtual void Detach() = 0;
  // Lets the windows catch up with what has happened.
  virtual void Settle() = 0;
  // Clicks the widget that shows a button or a box. False when the control has none of that kind, and the
  // click is then given to the control itself.
  virtual bool Click(Control& control) = 0;
  // Saves the front window as a PNG file. False when there is none to be seen.
  virtual bool Screenshot(const std::string& file) = 0;
};

class NoWindows final : public FrontEnd {
 public:
  void Attach(App&, HeadlessPlatform&) override {}
  void Detach() override {}
  void Settle() override {}
  bool Click(Control&) override { return false; }
  bool Screenshot(const std::string&) override { return false; }
};

// Real windows, on the screen or, without one, on none that anybody sees. Null when the program was built
// without them.
std::unique_ptr<FrontEnd> MakeWindows(int& argc, char** argv);

}  // namespace lumidex::scenario
