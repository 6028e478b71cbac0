#include "scenario/execution.h"
#include "forms/WPaper2.h"

#include "base/run_time_error.h"
#include "platform/headless/script_ends.h"
#include "scenario/statements.h"
#include "windows/windows.h"

namespace lumidex::scenario {
namespace {

const StatementTable& AllStatements() {
  static const StatementTable all = [] {
    StatementTable table;
    for (const auto add : {AddFileStatements, AddWorldStatements, AddUserStatements, AddDialogStatements,
                           AddCodeStatements, AddFlowStatements, AddExpectations}) {
      add(table);
    }
    return table;
  }();
  return all;
}

}  // namespace

Execution::Execution(const Scenario& scenario, FrontEnd& frontEnd, std::string folder)
    : scenario_(scenario),
      frontEnd_(frontEnd),
      folder_(std::move(folder)),
      separator_(FindSeparator()),
      world_(std::make_unique<HeadlessPlatform>(separator_)),
      imageControls_(world_->log) {
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
    Outside([this] { Step(); });
    if (state == State::Ended || state == State::Hung) CheckBlocksAreDone();
  }
  CheckNothingIsLeft();
}

void Execution::Outside(const std::function<void()>& step) {
  try {
    step();
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

void Execution::Do(const std::string& line) {
  Execute(Keep({0, line, SplitWords(line), false, {}}));
}

bool Execution::Step() {
  for (std::size_t level = cursors_.size(); level-- > 0;) {
    if (cursors_[level].AtEnd()) continue;
    const Statement& statement = cursors_[level].Next();
    ++cursors_[level].next;
    Execute(statement);
    return true;
  }
  return false;
}

void Execution::Execute(const Statement& statement) {
  const auto found = AllStatements().find(statement.words.front().text);
  if (found == AllStatements().end()) {
    throw Failure{"\"" + statement.words.front().text + "\" begins no statement", statement.line};
  }
  try {
    Arguments words(statement);
    found->second(*this, words);
    words.End();
  } catch (Failure& failure) {
    // A line that ran nested inside this one has set its own number.
    if (failure.line == 0) failure.line = statement.line;
    throw;
  } catch (const RunTimeError& error) {
    const std::string about = error.Path().empty() ? std::string() : ": " + error.Path();
    throw Failure{"error " + std::to_string(static_cast<int>(error.Number())) + ", " + error.what() + about,
                  statement.line};
  }
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
  imageControls_.Watch(*app_);
  for (const auto& setUp : setUps_) setUp(*app_);
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
  const auto line = laterLines_.insert(laterLines_.end(), statement.line);
  auto timer = std::make_shared<TimerId>();
  *timer = world_->events.StartTimer(static_cast<int>(milliseconds), [this, timer, line, &statement] {
    world_->events.StopTimer(*timer);
    laterLines_.erase(line);
    RunBlock(statement);
  });
}

void Execution::WhenYielding() {
  // Every block counts this yield, whatever the others do in it.
  std::list<Interruption> due;
  for (auto next = interruptions_.begin(); next != interruptions_.end();) {
    const auto interruption = next++;
    if (interruption->condition && !interruption->condition()) continue;
    if (--interruption->yields <= 0) due.splice(due.end(), interruptions_, interruption);
  }
  try {
    while (!due.empty()) {
      const Statement& statement = *due.front().statement;
      due.pop_front();
      RunBlock(statement);
    }
  } catch (...) {
    // The program ends in one of them; the others never ran.
    interruptions_.splice(interruptions_.begin(), due);
    throw;
  }
}

void Execution::CheckBlocksAreDone() const {
  for (std::size_t level = 1; level < cursors_.size(); ++level) {
    if (cursors_[level].AtEnd()) continue;
    throw Failure{"the program has ended before this line", cursors_[level].Next().line};
  }
}

void Execution::CheckNothingIsLeft() const {
  if (!interruptions_.empty()) {
    throw Failure{"the yield for this block never came", interruptions_.front().statement->line};
  }
  if (!laterLines_.empty()) throw Failure{"the time for this block never came", laterLines_.front()};
  const ScriptedDialogs& dialogs = world_->dialogs;
  if (messagesTold < dialogs.messages.size()) {
    throw Failure{"a message box was shown that the scenario does not expect: " +
                  dialogs.messages[messagesTold].text};
  }
  if (dialogs.HasAnswersLeft()) throw Failure{"an answer was given to a dialog that was never shown"};
}

}  // namespace lumidex::scenario
