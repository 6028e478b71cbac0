// Statements that say when things happen, how often, and whether at all.

#include "platform/headless/script_ends.h"
#include "scenario/statements.h"

namespace lumidex::scenario {
namespace {

std::int64_t TakeMilliseconds(Arguments& words) {
  const auto amount = words.NextNumber("the time");
  return amount * (words.Choice({"s", "ms"}) == 0 ? 1000 : 1);
}

void Wait(Execution& run, Arguments& words) {
  const std::int64_t milliseconds = TakeMilliseconds(words);
  words.End();
  run.Running();
  run.World().events.Advance(milliseconds);
}

void After(Execution& run, Arguments& words) {
  const std::int64_t milliseconds = TakeMilliseconds(words);
  const Statement& block = words.Block();
  words.End();
  run.RunAfter(milliseconds, block);
}

// "at yield 3:", "at yield when global DirectoriesSearched = 2:", "at yield 2 when ...:"
void At(Execution& run, Arguments& words) {
  words.Need("yield");
  Execution::Interruption interruption;
  interruption.statement = &words.Block();
  const Word* next = words.Peek();
  if (next && !next->Is("when")) interruption.yields = words.NextInt("the number of the yield");
  if (words.Take("when")) {
    const Statement& statement = words.Line();
    const auto first = static_cast<std::size_t>(words.Peek() ? words.Peek() - statement.words.data() : 0);
    if (first == 0) throw Failure{"the condition is missing"};
    interruption.condition = [&run, &statement, first] {
      std::string why;
      return Holds(run, statement, first, Asking::Condition, why);
    };
    words.Rest();
  }
  words.End();
  run.Expect(std::move(interruption));
}

void If(Execution& run, Arguments& words) {
  std::string why;
  const Statement& block = words.Block();
  const bool holds = Holds(run, block, 1, Asking::Condition, why);
  words.Rest();
  if (holds) run.RunBlock(block);
}

// "repeat 29 as n:" runs its block for n from 1 to 29, with the number wherever {n} stands.
void Repeat(Execution& run, Arguments& words) {
  const auto times = words.NextNumber("how often");
  const std::string mark =
      words.Take("as") ? "{" + words.Next("the name of the number") + "}" : std::string();
  const Statement& block = words.Block();
  words.End();
  // The program may end in the last round only: what comes behind would be left out in silence.
  const auto refuse = [times](long long round, const char* what) {
    if (round < times) throw Failure{std::string(what) + " in round " + std::to_string(round)};
  };
  for (long long round = 1; round <= times; ++round) {
    try {
      run.RunBlock(mark.empty() ? block : run.Keep(WithNumber(block, mark, round)));
    } catch (const ProgramEnded&) {
      refuse(round, "the program has ended");
      throw;
    } catch (const ProgramHung&) {
      refuse(round, "the program hangs");
      throw;
    }
  }
}

void Screenshot(Execution& run, Arguments& words) {
  const std::string& file = words.Next("the file");
  words.End();
  run.Windows().Settle();
  // Without windows there is nothing to be seen, and nothing wrong.
  run.Windows().Screenshot(file);
}

void Clear(Execution& run, Arguments& words) {
  words.Need("log");
  run.World().log.Clear();
}

}  // namespace

void AddFlowStatements(StatementTable& table) {
  table["wait"] = Wait;
  table["after"] = After;
  table["at"] = At;
  table["if"] = If;
  table["repeat"] = Repeat;
  table["screenshot"] = Screenshot;
  table["clear"] = Clear;
}

}  // namespace lumidex::scenario
