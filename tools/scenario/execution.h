#pragma once
// One scenario while it runs: the world it plays in, the program, and the statements that are still to come.
// Inside a modal window the program's own loop asks for the next statement, so a scenario simply goes on with
// its next line there.

#include <deque>
#include <list>

#include "scenario/front_end.h"
#include "scenario/image_controls.h"
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
  const HeadlessPlatform& World() const { return *world_; }
  ImageControls& GetImageControls() { return imageControls_; }
  FrontEnd& Windows() { return frontEnd_; }
  // The folder of the scenario file, where "copy" begins to look.
  const std::string& Folder() const { return folder_; }

  void Start();
  // Throws Failure when the program does not run (any more).
  App& Running();
  // The program, also after its end; throws Failure before the start.
  App& Program();
  bool HasProgram() const { return app_ != nullptr; }

  // Does what a user does: through the guard that catches what the program's traps let through.
  void Act(const std::function<void()>& action);

  // Does one line as if it stood in the scenario.
  void Do(const std::string& line);
  // Runs a step that is not part of anything that the program does: it is cut off where the program ends or
  // hangs in it, or waits for a user who does nothing more.
  void Outside(const std::function<void()>& step);

  // Runs at the next start, before the first form is loaded.
  void BeforeStart(std::function<void(App&)> setUp) { setUps_.push_back(std::move(setUp)); }

  // A block that runs inside a yield to come.
  struct Interruption {
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
    const Statement& Next() const { return (*statements)[next]; }
  };
  // Executes the next statement of the innermost block that has one; false when none has.
  bool Step();
  void Execute(const Statement& statement);
  void WhenYielding();
  // Throws Failure for lines of blocks that the end of the program has cut off.
  void CheckBlocksAreDone() const;
  void CheckNothingIsLeft() const;
  char FindSeparator() const;

  const Scenario& scenario_;
  FrontEnd& frontEnd_;
  const std::string folder_;
  const char separator_;
  std::unique_ptr<HeadlessPlatform> world_;
  ImageControls imageControls_;
  std::unique_ptr<App> app_;
  std::vector<std::function<void(App&)>> setUps_;
  std::vector<Cursor> cursors_;
  std::list<Interruption> interruptions_;
  std::deque<Statement> kept_;
  std::list<int> laterLines_;  // of the RunAfter blocks that have not run
};

}  // namespace lumidex::scenario
