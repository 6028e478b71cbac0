#include "random_user/session.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "forms/WPaper2.h"
#include "forms/checkjpg.h"
#include "platform/headless/script_ends.h"
#include "random_user/acts.h"

namespace lumidex::random_user {
namespace {

using scenario::Execution;
using scenario::Failure;
using State = Execution::State;

constexpr int worldChangePercent = 8;
constexpr int mostLeaving = 30;

scenario::Scenario ScenarioOf(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return scenario::ReadScript("random user", text).scenarios.front();
}

bool HasWorkingImage(const App& app) {
  bool has = false;
  // It has no picture to give when its load has failed.
  IgnoreError([&] { has = !app.checkjpg.Picture1.Picture().IsEmpty(); });
  return has;
}

}  // namespace

Session::Session(const Plan& plan)
    : plan_(plan),
      random_(plan.seed),
      worldLines_(WorldLines(random_)),
      world_(ScenarioOf(worldLines_)),
      run_(world_, noWindows_, ""),
      left_(plan.acts) {}

std::string Session::Run() {
  try {
    run_.Run();
    HeadlessPlatform& world = run_.World();
    world.events.NextUserAction = [this] { return PerformInside(); };
    world.events.OnYield = [this] { WhenYielding(); };
    world.dialogs.OnOpen = [this](ScriptedDialogs::Box box) { Answer(box); };
    while (left_ > 0) {
      leaving_ = 0;
      run_.Outside([this] { run_.state == State::Running ? PerformAny() : Perform("start"); });
      lists_.resize(1);
      frames_.clear();
      CheckAlive();
      // A user who does nothing more leaves the program in the midst of something.
      if (run_.state == State::Running && leaving_ <= mostLeaving) CheckAtRest();
    }
    return {};
  } catch (const Failure& failure) {
    return failure.text;
  }
}

void Session::PerformAny() {
  const bool changesWorld = random_.Chance(worldChangePercent);
  worldHasChanged_ = worldHasChanged_ || changesWorld;
  Perform(changesWorld ? AnyWorldChange(run_, random_) : AnyAct(run_, random_));
}

void Session::Perform(const std::string& line) {
  --left_;
  if (lists_.size() == 1) inside_ = 0;
  Act& act = lists_.back()->emplace_back();
  act.line = line;
  frames_.push_back({&act, run_.World().events.Yields()});
  // Left alone when the program ends in it: the session then begins anew.
  run_.Do(line);
  frames_.pop_back();
}

bool Session::PerformInside() {
  if (left_ > 0) {
    PerformAny();
    return true;
  }
  // Comes to rest, so that it can be seen what was left behind.
  if (++leaving_ > mostLeaving) return false;
  Perform(LeavingAct(run_));
  return true;
}

void Session::WhenYielding() {
  const bool mayInterrupt = !frames_.empty() && lists_.size() <= deepest && inside_ < mostInside && left_ > 0;
  if (!mayInterrupt || !random_.Chance(plan_.interruptPercent)) return;
  const Frame& frame = frames_.back();
  Interruption& interruption = frame.act->interruptions.emplace_back();
  interruption.yield = run_.World().events.Yields() - frame.firstYield;
  lists_.push_back(&interruption.acts);
  for (int count = random_.Between(1, 2); count > 0; --count) {
    ++inside_;
    ++left_;  // they are not counted
    PerformAny();
  }
  lists_.pop_back();
}

void Session::Answer(ScriptedDialogs::Box box) {
  const std::string line = AnyAnswer(run_, box, random_);
  if (line.empty()) return;
  answers_.push_back(line);
  run_.Do(line);
}

void Session::CheckAlive() {
  const bool endedByUser = run_.state == State::Ended && run_.exitCode == 0;
  // Leaving a program that was begun with a picture waits for ever, by rule.
  const bool leftWaiting =
      run_.state == State::Hung && run_.Program().exiting && run_.Program().CommandLineMode;
  // By rule nothing traps the errors of a wallpaper that is to be made of no picture and of none that is to
  // be saved, of a file that is to be saved into a folder that is gone, of a list that is to be loaded or a
  // picture that is to be adjusted when its file has gone or is none any more, and of a list without the
  // entry that is to be current.
  const auto& messages = run_.World().dialogs.messages;
  const auto ended = [&](const char* report) {
    return run_.state == State::Ended && !messages.empty() && messages.back().text.starts_with(report);
  };
  const bool endedByRule =
      (ended("Run-time error '380'") && run_.Program().WPaper2.Image1.Picture.Get().IsEmpty()) ||
      (ended("Run-time error '481'") && !HasWorkingImage(run_.Program())) || ended("Run-time error '76'") ||
      (ended("Run-time error '5'") &&
       run_.Program().CurrentIndex > run_.Program().WPaper2.LstRight.ListCount()) ||
      (worldHasChanged_ && (ended("Run-time error '53'") || ended("Run-time error '481'")));
  if (run_.state == State::Running || endedByUser || leftWaiting || endedByRule) return;
  // What a user may bring about as well would be what is left when the session is made shorter.
  Perform(run_.state == State::Ended ? "expect ended with code 0" : "expect running");
}

void Session::CheckAtRest() {
  for (const char* line : {
           "expect modal = (none)",
           "expect same value lblCount.Caption LstRight.ListCount",
           "expect WPaper2.MousePointer = 0",
           "expect frmlocatefiles.Visible = False",
           "expect popup = (none)",
           "expect registry keys open = 0",
       }) {
    try {
      run_.Do(line);
    } catch (const Failure&) {
      lists_.back()->push_back({line, {}});
      throw;
    }
  }
}

void Session::AddLines(const std::list<Act>& acts, std::string indentation, std::string& text) {
  for (const Act& act : acts) {
    for (const Interruption& interruption : act.interruptions) {
      text += indentation + "at yield " + Number(interruption.yield) + ":\n";
      AddLines(interruption.acts, indentation + "  ", text);
    }
    text += indentation + act.line + "\n";
  }
}

std::string Session::Text() const {
  std::string text = "# Random user, seed " + std::to_string(plan_.seed) + ", " + Number(plan_.acts) +
                     " acts, interrupted at " + Number(plan_.interruptPercent) + " % of the yields.\n";
  for (const std::string& line : worldLines_) text += line + "\n";
  // Each is asked for in its turn, whoever asks.
  for (const std::string& line : answers_) text += line + "\n";
  AddLines(acts_, {}, text);
  for (std::size_t i = 0; i < run_.World().dialogs.messages.size(); ++i) text += "expect message\n";
  return text;
}

}  // namespace lumidex::random_user
