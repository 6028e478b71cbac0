#pragma once
// One run of the random user: a world, the program in it, and acts by chance, many of them inside the
// program's yields. What was done is kept as the lines of a scenario that does the same again.

#include <list>

#include "random_user/random.h"
#include "scenario/execution.h"

namespace lumidex::random_user {

struct Plan {
  std::uint64_t seed = 1;
  int acts = 60;
  int interruptPercent = 15;  // of the yields
};

class Session {
 public:
  explicit Session(const Plan& plan);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // What went wrong; empty when nothing did.
  std::string Run();
  // The scenario so far, also from within an act.
  std::string Text() const;

 private:
  struct Act;
  // Acts inside one of the yields of another act.
  struct Interruption {
    int yield;  // counted from the beginning of that act
    std::list<Act> acts;
  };
  struct Act {
    std::string line;
    std::list<Interruption> interruptions;
  };
  struct Frame {
    Act* act;
    int firstYield;
  };

  // Three blocks inside one another, and no more acts in the yields of one act than this: some yield often.
  static constexpr std::size_t deepest = 3;
  static constexpr int mostInside = 60;

  void Perform(const std::string& line);
  void PerformAny();
  // In a modal window or a popup menu; false when the user has left them all in vain.
  bool PerformInside();
  void WhenYielding();
  void Answer(ScriptedDialogs::Box box);
  // Throws Failure for what may not be when nothing goes on.
  void CheckAtRest();
  void CheckAlive();
  static void AddLines(const std::list<Act>& acts, std::string indentation, std::string& text);

  const Plan plan_;
  Random random_;
  const std::vector<std::string> worldLines_;
  scenario::Scenario world_;
  scenario::NoWindows noWindows_;
  std::list<Act> acts_;
  std::vector<std::string> answers_;
  scenario::Execution run_;
  std::vector<std::list<Act>*> lists_{&acts_};
  std::vector<Frame> frames_;
  int left_;
  bool worldHasChanged_ = false;  // files or settings, beside the program
  int inside_ = 0;
  int leaving_ = 0;
};

}  // namespace lumidex::random_user
