// Statements that answer boxes beforehand. A block below an answer runs while its box is open.

#include "scenario/statements.h"

namespace lumidex::scenario {
namespace {

// Puts one more answer behind the others; it is that of somebody who cancels until it is given another.
template <class Answer>
Answer& Give(Execution& run, Arguments& words, std::deque<Scripted<Answer>>& answers) {
  std::function<void()> meanwhile;
  if (const Statement* block = words.BlockIfAny()) meanwhile = [&run, block] { run.RunBlock(*block); };
  words.End();
  Scripted<Answer>& scripted = answers.emplace_back();
  scripted.whileOpen = std::move(meanwhile);
  return scripted.answer;
}

void Answer(Execution& run, Arguments& words) {
  ScriptedDialogs& dialogs = run.World().dialogs;
  const std::size_t kind =
      words.Choice({"Ok", "Cancel", "Abort", "Retry", "Ignore", "Yes", "No", "input", "file"});
  if (kind == 7) {
    const std::string& text = words.Next("the text");
    Give(run, words, dialogs.inputAnswers) = text;
  } else if (kind == 8) {
    FileDialogAnswer answer{true, words.Next("the path"), 0};
    if (words.Take("filter")) answer.filterIndex = words.NextInt("the filter's number");
    Give(run, words, dialogs.fileAnswers) = answer;
  } else {
    // The buttons stand in the order of their numbers, from 1.
    Give(run, words, dialogs.messageAnswers) = static_cast<MessageAnswer>(kind + 1);
  }
}

void Cancel(Execution& run, Arguments& words) {
  ScriptedDialogs& dialogs = run.World().dialogs;
  if (words.Choice({"input", "file"}) == 0) {
    Give(run, words, dialogs.inputAnswers);
  } else {
    Give(run, words, dialogs.fileAnswers);
  }
}

}  // namespace

void AddDialogStatements(StatementTable& table) {
  table["answer"] = Answer;
  table["cancel"] = Cancel;
}

}  // namespace lumidex::scenario
