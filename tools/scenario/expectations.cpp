// What must hold, and conditions: comparisons of values, and statements without one.

#include <algorithm>

#include "base/run_time_error.h"
#include "base/text.h"
#include "pictures/pixels.h"
#include "scenario/block_expectations.h"
#include "scenario/captions.h"
#include "scenario/shown_dialogs.h"
#include "scenario/statements.h"
#include "scenario/targets.h"
#include "scenario/values.h"

namespace lumidex::scenario {
namespace {

const char* const comparisons[] = {"=", "not", "contains", "lacks", "above", "below"};

// The first word that is a comparison; the number of words when there is none.
std::size_t ComparisonAt(const Statement& statement, std::size_t first) {
  for (std::size_t i = first; i < statement.words.size(); ++i) {
    for (const char* comparison : comparisons) {
      if (statement.words[i].Is(comparison)) return i;
    }
  }
  return statement.words.size();
}

bool Compare(const std::string& actual, const std::string& comparison, const std::string& wanted) {
  if (comparison == "=") return actual == wanted;
  if (comparison == "not") return actual != wanted;
  if (comparison == "contains") return actual.find(wanted) != std::string::npos;
  if (comparison == "lacks") return actual.find(wanted) == std::string::npos;
  if (comparison == "above") return Val(actual) > Val(wanted);
  return Val(actual) < Val(wanted);
}

bool HoldsOfProgram(Execution& run, Arguments& words, std::string& why) {
  using State = Execution::State;
  static const char* const states[] = {"it was not started", "it runs", "it has ended", "it hangs"};
  why = states[static_cast<int>(run.state)];
  const std::size_t wanted = words.Choice({"running", "hung", "ended"});
  if (wanted == 0) return run.state == State::Running;
  if (wanted == 1) return run.state == State::Hung;
  if (!words.Take("with")) return run.state == State::Ended;
  words.Need("code");
  why += " with code " + std::to_string(run.exitCode);
  return words.NextInt("the exit code") == run.exitCode && run.state == State::Ended;
}

bool HoldsOfExistence(bool exists, Arguments& words, std::string& why) {
  why = exists ? "it exists" : "there is none";
  return exists == (words.Choice({"exists", "missing"}) == 0);
}

bool HoldsOfFile(Execution& run, Arguments& words, std::string& why) {
  const MemoryFileSystem& files = run.World().files;
  const std::string& path = words.Next("the path");
  if (!words.Take("same")) return HoldsOfExistence(files.Look(path).has_value(), words, why);
  words.Need("as");
  const std::string one = files.ReadAll(path), other = files.ReadAll(words.Next("the other path"));
  const auto differs = std::mismatch(one.begin(), one.end(), other.begin(), other.end());
  why = "they differ from byte " + std::to_string(differs.first - one.begin()) + " on, of " +
        std::to_string(one.size()) + " and " + std::to_string(other.size());
  return one == other;
}

bool HoldsOfControl(Execution& run, Arguments& words, std::string& why) {
  const Target target = FindTarget(run.Program(), words.Next("the control"));
  return HoldsOfExistence(target.control && target.property.empty(), words, why);
}

bool HoldsOfPictures(Execution& run, Arguments& words, std::string& why) {
  const Picture one = TakePicture(run, words), other = TakePicture(run, words);
  why = "one is " + property_text::Of(one) + ", the other " + property_text::Of(other);
  if (!(one.GetSize() == other.GetSize())) return false;
  const Pixels left = one.FullPixels(), right = other.FullPixels();
  for (int y = 0; y < left.Height(); ++y) {
    const auto row = left.Row(y);
    const auto differs = std::mismatch(row.begin(), row.end(), right.Row(y).begin()).first;
    if (differs == row.end()) continue;
    why = "they differ at " + Number(static_cast<int>(differs - row.begin())) + "," + Number(y);
    return false;
  }
  return true;
}

// "same value lblCount.Caption LstRight.ListCount"
bool HoldsOfValues(Execution& run, Arguments& words, std::string& why) {
  const std::string one = TakeOneValue(run, words), other = TakeOneValue(run, words);
  why = "one is \"" + one + "\", the other \"" + other + "\"";
  return one == other;
}

// "frmAbout shows "Version 1.0"": in one of the texts on its window.
bool HoldsOfForm(Execution& run, Form& form, Arguments& words, std::string& why) {
  words.Need("shows");
  const std::string& wanted = words.Next("the text");
  run.Windows().Settle();
  why = form.Visible() ? "it shows" : "it is not on the screen";
  for (const std::string& text : ShownTexts(form)) {
    if (text.find(wanted) != std::string::npos) return true;
    if (!text.empty()) why += "\n      " + text;
  }
  return false;
}

bool HoldsPlainly(Execution& run, Arguments& words, std::string& why) {
  const Word* subject = words.Peek();
  if (!subject) throw Failure{"what is expected is missing"};
  if (words.Take("file")) return HoldsOfFile(run, words, why);
  if (words.Take("directory")) {
    const std::string& path = words.Next("the path");
    return HoldsOfExistence(run.World().files.Look(path).has_value(), words, why);
  }
  if (words.Take("control")) return HoldsOfControl(run, words, why);
  if (words.Take("same")) {
    const bool ofPictures = words.Choice({"picture", "value"}) == 0;
    return ofPictures ? HoldsOfPictures(run, words, why) : HoldsOfValues(run, words, why);
  }
  Form* form = run.HasProgram() ? run.Program().FindForm(subject->text) : nullptr;
  if (form && words.Take(subject->text)) return HoldsOfForm(run, *form, words, why);
  if (subject->Is("running") || subject->Is("hung") || subject->Is("ended")) {
    return HoldsOfProgram(run, words, why);
  }
  throw Failure{"the expectation compares nothing"};
}

bool HoldsAsStated(Execution& run, const Statement& statement, std::size_t first, std::string& why) {
  const std::size_t at = ComparisonAt(statement, first);
  Arguments words(statement, first, at);
  words.BlockIfAny();  // is the caller's
  if (at == statement.words.size()) {
    const bool holds = HoldsPlainly(run, words, why);
    words.End();
    return holds;
  }
  const Word& comparison = statement.words[at];
  const std::string actual = TakeValue(run, words);
  why = "it is \"" + actual + "\"";
  return Compare(actual, comparison.text,
                 RestOfLine(statement.text, comparison.start + comparison.text.size()));
}

void Expect(Execution& run, Arguments& words) {
  if (CheckBlock(run, words) || CheckShownDialog(run, words)) return;
  std::string why;
  const Statement& statement = words.Line();
  if (!Holds(run, statement, 1, Asking::Expectation, why)) throw Failure{statement.text + "\n    but " + why};
  words.Rest();
}

}  // namespace

bool Holds(Execution& run, const Statement& statement, std::size_t first, Asking asking, std::string& why) {
  if (asking == Asking::Expectation) return HoldsAsStated(run, statement, first, why);
  try {
    return HoldsAsStated(run, statement, first, why);
  } catch (const NotThere&) {
    return false;
  } catch (const RunTimeError&) {
    return false;
  }
}

void AddExpectations(StatementTable& table) {
  table["expect"] = Expect;
}

}  // namespace lumidex::scenario
