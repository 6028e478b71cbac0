#pragma once
// The program's platform on a desktop: Qt's ports together with the operating system's.

#include <functional>
#include <memory>
#include <vector>

#include "controls/form.h"
#include "platform/posix/session_bus.h"
#include "ports/platform.h"

namespace lumidex {

// The ports that need no window system.
struct SystemPorts {
  FileSystem& files;
  Process& process;
  Desktop& desktop;
  Shell& shell;
  SettingsStore& settings;
  PictureLoader& loader;
  SpecialFolders& folders;
  DecodingService& decoding;
  SessionBus& bus;  // for the notification area
};

class FormViews;

class QtDesktop final {
 public:
  // Connects to the display; ends the process with a message on standard error when there is none. `argc` and
  // `argv` must stay as long as this object.
  QtDesktop(int& argc, char** argv, const SystemPorts& system);
  ~QtDesktop();
  QtDesktop(const QtDesktop&) = delete;
  QtDesktop& operator=(const QtDesktop&) = delete;

  Platform& GetPlatform();
  FormViews& Views();
  // From now on the forms have windows whenever they are shown.
  void Attach(const std::vector<Form*>& forms);
  // Runs when the program ends the process.
  void BeforeEnd(std::function<void()> work);
  // What the program does when it is to end from outside, and when it is only to save
  // (platform/qt/end_requests.h).
  void OnEnd(std::function<void()> end, std::function<void()> save);
  // Serves events until the program ends the process.
  [[noreturn]] void Run();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace lumidex
