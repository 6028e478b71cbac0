#include "scenario/execution.h"
#include "forms/WPaper2.h"

#include "base/run_time_error.h"
#include "platform/headless/script_ends.h"
#include "windows/windows.h"

namespace lumidex::scenario {

const std::string& WordAt(const Statement& statement, std::size_t place, const char* what) {
  if (place >= statement.words.size()) throw Failure{std::string(what) + " is missing"};
  return statement.words[place].text;
}

Execution::Execution(const Scenario& scenario, FrontEnd& frontEnd, std::string folder)
    : scenario_(scenario),
      frontEnd_(frontEnd),
      folder_(std::move(folder)),
      separator_(FindSeparator()),
      world_(std::make_unique<HeadlessPlatform>(separator_)) {
  world_->events.NextUserAction = [this] { return Step(); };
  world_->events.OnYield = [this] { WhenYielding(); };
}

Execution::~Execution() {
  if (app_) frontEnd_.Detach();
  world_->windows.Forget();
}

char Execution::FindSeparator() const {
  for (const Statement& statement : scenario_.statements) {
    if (statement.text == "drives") return '\\';
    if (statement.text == "slashes") return '/';
  }
  throw Failure{"the scenario says neither \"drives\" nor \"slashes\"", scenario_.line};
}

void Execution::Run() {
  cursors_.push_back({&scenario_.statements});
  while (!cursors_.front().AtEnd()) {
    cursors_.resize(1);
    try {
      Step();
    } catch (const ProgramEnded& end) {
      state = State::Ended;
      exitCode = end.exitCode;
    } catch (const ProgramHung&) {
      state = State::Hung;
    } catch (const NoUserActionLeft&) {
      // The scenario ends with a modal window still open.
    }
    if (state == State::Ended || state == State::Hung) world_->events.ForgetEvents();
  }
  CheckNothingIsLeft();
}

bool Execution::Step() {
  for (std::size_t level = cursors_.size(); level-- > 0;) {
    if (cursors_[level].AtEnd()) continue;
    const Statement& statement = (*cursors_[level].statements)[cursors_[level].next++];
    Execute(statement);
    return true;
  }
  return false;
}

void Execution::Execute(const Statement& statement) {
  bool isKnown = false;
  try {
    isKnown = ExecuteSetup(*this, statement) || ExecuteUserAction(*this, statement) ||
              ExecuteExpectation(*this, statement);
  } catch (Failure& failure) {
    // A line that ran nested inside this one has set its own number.
    if (failure.line == 0) failure.line = statement.line;
    throw;
  } catch (const RunTimeError& error) {
    throw Failure{"error " + std::to_string(static_cast<int>(error.Number())) + ", " + error.what(),
                  statement.line};
  }
  if (!isKnown) throw Failure{"\"" + statement.words.front().text + "\" begins no statement", statement.line};
  if (state == State::Running) frontEnd_.Settle();
}

void Execution::Start() {
  if (state == State::Running) throw Failure{"the program runs already"};
  if (app_) {
    frontEnd_.Detach();
    world_->windows.Forget();
    app_.reset();
    world_->events.ForgetEvents();
  }
  app_ = std::make_unique<App>(world_->ports);
  for (Form* form : app_->Forms()) world_->windows.Watch(*form);
  WireWindows(*app_);
  // As the shipped program has it.
  app_->WPaper2.mnuFileBatchConvertImages.Visible = true;
  app_->WPaper2.KeepDesign();
  frontEnd_.Attach(*app_, *world_);
  state = State::Running;
  Act([this] { app_->WPaper2.Load(); });
}

App& Execution::Program() {
  if (!app_) throw Failure{"the program was not started"};
  return *app_;
}

App& Execution::Running() {
  Program();
  if (state == State::Ended) throw Failure{"the program has ended"};
  if (state == State::Hung) throw Failure{"the program hangs"};
  return *app_;
}

void Execution::Act(const std::function<void()>& action) {
  Running();
  world_->events.Guard(action);
  world_->events.Advance(0);
}

void Execution::RunBlock(const Statement& statement) {
  const std::size_t level = cursors_.size();
  cursors_.push_back({&statement.block});
  while (!cursors_[level].AtEnd()) Step();
  cursors_.resize(level);
}

void Execution::RunAfter(std::int64_t milliseconds, const Statement& statement) {
  ++laterBlocks_;
  auto timer = std::make_shared<TimerId>();
  *timer = world_->events.StartTimer(static_cast<int>(milliseconds), [this, timer, &statement] {
    world_->events.StopTimer(*timer);
    --laterBlocks_;
    RunBlock(statement);
  });
}

void Execution::WhenYielding() {
  for (std::size_t i = 0; i < interruptions_.size(); ++i) {
    Interruption& interruption = interruptions_[i];
    if (interruption.condition && !interruption.condition()) continue;
    if (--interruption.yields > 0) continue;
    const Statement& statement = *interruption.statement;
    interruptions_.erase(interruptions_.begin() + static_cast<std::ptrdiff_t>(i));
    RunBlock(statement);
    return;
  }
}

void Execution::CheckNothingIsLeft() const {
  if (!interruptions_.empty()) {
    throw Failure{"the yield for this block never came", interruptions_.front().line};
  }
  if (laterBlocks_ > 0) throw Failure{"the time for an \"after\" block never came"};
  const ScriptedDialogs& dialogs = world_->dialogs;
  if (messagesTold < dialogs.messages.size()) {
    throw Failure{"a message box was shown that the scenario does not expect: " +
                  dialogs.messages[messagesTold].text};
  }
  if (!dialogs.messageAnswers.empty() || !dialogs.inputAnswers.empty() || !dialogs.fileAnswers.empty() ||
      !dialogs.colorAnswers.empty()) {
    throw Failure{"an answer was given to a dialog that was never shown"};
  }
}

}  // namespace lumidex::scenario
