#pragma once
// The image controls of the program while a scenario runs: what they are asked to do stands in the log when
// that is wanted, and they refuse what they are told to refuse.

#include <list>
#include <vector>

#include "controls/form.h"
#include "forms/app.h"
#include "platform/headless/call_log.h"

namespace lumidex::scenario {

class ImageControls {
 public:
  explicit ImageControls(CallLog& log) : log_(log) {}

  // Watches those of the program; the ones of a program before it are let go.
  void Watch(App& app);
  // From now on, also in a program that is started later.
  void LogOperations() { logs_ = true; }
  // The operation ("Rotate", "FileName = C:\a.bmp") raises the error when it is asked for the `first` time
  // from now on, counted from 1, and so often.
  void Refuse(std::string operation, int first, int times, int error);

  // As long as this lives, what is asked is the scenario's own doing.
  class Pause {
   public:
    explicit Pause(ImageControls& controls) : controls_(controls) { ++controls_.paused_; }
    ~Pause() { --controls_.paused_; }
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;

   private:
    ImageControls& controls_;
  };

 private:
  struct Refusal {
    std::string operation;
    int before;  // so often it is done as usual
    int times;
    int error;
  };
  void Note(const std::string& control, const std::string& operation);

  CallLog& log_;
  bool logs_ = false;
  int paused_ = 0;
  std::list<Refusal> refusals_;
  std::vector<Connection> connections_;
};

}  // namespace lumidex::scenario
