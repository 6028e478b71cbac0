#pragma once
// The statements by their first words. Each group of them adds its own to the one table.

#include <map>

#include "scenario/arguments.h"
#include "scenario/execution.h"

namespace lumidex::scenario {

// The arguments begin behind the first word.
using Handler = void (*)(Execution& run, Arguments& words);
using StatementTable = std::map<std::string, Handler, std::less<>>;

void AddFileStatements(StatementTable& table);    // files and directories of the world
void AddWorldStatements(StatementTable& table);   // the rest of the world
void AddUserStatements(StatementTable& table);    // what the user does
void AddDialogStatements(StatementTable& table);  // what is answered to boxes
void AddCodeStatements(StatementTable& table);    // what is done as code does it
void AddFlowStatements(StatementTable& table);    // when things happen, and how often
void AddExpectations(StatementTable& table);      // what must hold

// Whether what the words from `first` on state holds; `why` then says what was found instead. As a condition
// it does not hold when what it names is not there (yet); as an expectation that throws Failure.
enum class Asking { Condition, Expectation };
bool Holds(Execution& run, const Statement& statement, std::size_t first, Asking asking, std::string& why);

}  // namespace lumidex::scenario
