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
  // Saves the front window as a PNG file. False when there is none to be seen.
  virtual bool Screenshot(const std::string& file) = 0;
};

class NoWindows final : public FrontEnd {
 public:
  void Attach(App&, HeadlessPlatform&) override {}
  void Detach() override {}
  void Settle() override {}
  bool Screenshot(const std::string&) override { return false; }
};

}  // namespace lumidex::scenario
