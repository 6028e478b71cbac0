#pragma once
// One scenario while it runs: the world it plays in, the program, and the statements that are still to come.
// Inside a modal window the program's own loop asks for the next statement, so a scenario simply goes on with
// its next line there.

#include <deque>
#include <optional>

#include "scenario/front_end.h"
#include "scenario/script.h"

namespace lumidex::scenario {

class Execution {
 public:
  Execution(const Scenario& scenario, FrontEnd& frontEnd, std::string folder);
  ~Execution();
  Execution(const Execution&) = delete;
  Execution& operator=(const Execution&) = delete;

  // Throws Failure, with the line's number in it, at the first thing that does not hold.
  void Run();

  // The rest is for the statements.

  HeadlessPlatform& World() { return *world_; }
  FrontEnd& Windows() { return frontEnd_; }
  // The folder of the scenario file, where "copy" begins to look.
  const std::string& Folder() const { return folder_; }
  bool IsDrives() const { return separator_ == '\\'; }

  void Start();
  // Throws Failure when the program does not run (any more).
  App& Running();
  // The program, also after its end; throws Failure before the start.
  App& Program();

  // Does what a user does: through the guard that catches what the program's traps let through.
  void Act(const std::function<void()>& action);

  // A block that runs inside a yield to come.
  struct Interruption {
    int line = 0;
    int yields = 1;                   // the yield at which it is due, counted down
    std::function<bool()> condition;  // counts only yields at which it holds; none counts all
    const Statement* statement = nullptr;
  };
  void Expect(Interruption interruption) { interruptions_.push_back(std::move(interruption)); }
  // Runs the statement's block when that much simulated time has passed.
  void RunAfter(std::int64_t milliseconds, const Statement& statement);
  void RunBlock(const Statement& statement);
  // Keeps a statement that was made while running for as long as this lives.
  const Statement& Keep(Statement statement) { return kept_.emplace_back(std::move(statement)); }

  enum class State { NotStarted, Running, Ended, Hung };
  State state = State::NotStarted;
  int exitCode = 0;
  // How many of the dialogs that were shown the scenario has spoken about.
  std::size_t messagesTold = 0, inputsTold = 0, fileDialogsTold = 0;

 private:
  struct Cursor {
    const std::vector<Statement>* statements;
    std::size_t next = 0;
    bool AtEnd() const { return next == statements->size(); }
  };
  // Executes the next statement of the innermost block that has one; false when none has.
  bool Step();
  void Execute(const Statement& statement);
  void WhenYielding();
  void CheckNothingIsLeft() const;
  char FindSeparator() const;

  const Scenario& scenario_;
  FrontEnd& frontEnd_;
  const std::string folder_;
  const char separator_;
  std::unique_ptr<HeadlessPlatform> world_;
  std::unique_ptr<App> app_;
  std::vector<Cursor> cursors_;
  std::vector<Interruption> interruptions_;
  std::deque<Statement> kept_;
  int laterBlocks_ = 0;  // of RunAfter, that have not run
};

// The statements, in three groups. Each answers false when the first word is not one of its own.
bool ExecuteSetup(Execution& run, const Statement& statement);
bool ExecuteUserAction(Execution& run, const Statement& statement);
bool ExecuteExpectation(Execution& run, const Statement& statement);

// Whether what stands behind "expect" or "when" holds; `why` then says what was found instead.
bool Holds(Execution& run, const Statement& statement, std::size_t firstWord, std::string& why);

// The word at a place; throws Failure saying `what` is missing there.
const std::string& WordAt(const Statement& statement, std::size_t place, const char* what);

}  // namespace lumidex::scenario
