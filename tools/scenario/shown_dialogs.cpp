#include "scenario/shown_dialogs.h"

#include <map>

#include "base/text.h"

namespace lumidex::scenario {
namespace {

using Facts = std::map<std::string, std::string, std::less<>>;

const char* IconName(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::None:
      return "None";
    case MessageIcon::Critical:
      return "Critical";
    case MessageIcon::Question:
      return "Question";
    case MessageIcon::Exclamation:
      return "Exclamation";
    case MessageIcon::Information:
      return "Information";
  }
  return "";
}

const char* ButtonsName(MessageButtons buttons) {
  static const char* const names[] = {"Ok",          "OkCancel", "AbortRetryIgnore",
                                      "YesNoCancel", "YesNo",    "RetryCancel"};
  return names[static_cast<int>(buttons)];
}

// The next one that was shown and not yet told; throws Failure when there is none.
template <class Shown>
const Shown& Next(const std::vector<Shown>& shown, std::size_t& told, const char* what) {
  if (told >= shown.size()) throw Failure{std::string("no ") + what + " was shown"};
  return shown[told++];
}

// From `first` on: "contains" and a text, or a text, then pairs of a fact's name and its value.
void CheckFacts(const Statement& statement, std::size_t first, const std::string& text, const Facts& facts) {
  const auto& words = statement.words;
  std::size_t next = first;
  if (next < words.size() && words[next].Is("contains")) {
    if (text.find(WordAt(statement, next + 1, "the text")) == std::string::npos) {
      throw Failure{"it says \"" + text + "\""};
    }
    next += 2;
  } else if (next < words.size() && words[next].quoted) {
    if (text != words[next].text) throw Failure{"it says \"" + text + "\""};
    ++next;
  }
  for (; next < words.size(); next += 2) {
    const auto fact = facts.find(words[next].text);
    if (fact == facts.end()) throw Failure{"\"" + words[next].text + "\" is nothing to tell of it"};
    const std::string& wanted = WordAt(statement, next + 1, "the value");
    if (fact->second != wanted) throw Failure{"its " + fact->first + " is \"" + fact->second + "\""};
  }
}

void CheckMessage(Execution& run, const Statement& statement) {
  const Message& message = Next(run.World().dialogs.messages, run.messagesTold, "further message box");
  CheckFacts(statement, 2, message.text,
             {{"title", message.title},
              {"icon", IconName(message.icon)},
              {"buttons", ButtonsName(message.buttons)}});
}

void CheckInput(Execution& run, const Statement& statement) {
  const InputRequest& input = Next(run.World().dialogs.inputs, run.inputsTold, "further input box");
  CheckFacts(statement, 2, input.prompt, {{"title", input.title}, {"preset", input.preset}});
}

void CheckFileDialog(Execution& run, const Statement& statement) {
  const FileDialogRequest& request =
      Next(run.World().dialogs.fileRequests, run.fileDialogsTold, "further file dialog");
  CheckFacts(statement, 3, request.title,
             {{"kind", request.save ? "save" : "open"},
              {"filter", request.filter},
              {"index", Number(request.filterIndex)},
              {"name", request.fileName},
              {"directory", request.directory},
              {"extension", request.defaultExtension},
              {"overwrite", request.overwritePrompt ? "asks" : "silent"},
              {"exists", request.fileMustExist ? "must" : "may"}});
}

void CheckNoMessage(Execution& run) {
  const auto& messages = run.World().dialogs.messages;
  if (run.messagesTold < messages.size()) {
    throw Failure{"a message box was shown: \"" + messages[run.messagesTold].text + "\""};
  }
}

}  // namespace

bool CheckShownDialog(Execution& run, const Statement& statement) {
  const auto& words = statement.words;
  if (words[1].Is("message")) {
    CheckMessage(run, statement);
  } else if (words[1].Is("no") && words.size() > 2 && words[2].Is("message")) {
    CheckNoMessage(run);
  } else if (words[1].Is("input")) {
    CheckInput(run, statement);
  } else if (words[1].Is("file") && words.size() > 2 && words[2].Is("dialog")) {
    CheckFileDialog(run, statement);
  } else {
    return false;
  }
  return true;
}

}  // namespace lumidex::scenario
