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

// "contains" and a text, or a text, then pairs of a fact's name and its value.
void CheckFacts(Arguments& words, const std::string& text, const Facts& facts) {
  if (words.Take("contains")) {
    if (text.find(words.Next("the text")) == std::string::npos) throw Failure{"it says \"" + text + "\""};
  } else if (words.Peek() && words.Peek()->quoted) {
    if (text != words.Next("the text")) throw Failure{"it says \"" + text + "\""};
  }
  while (!words.AtEnd()) {
    const std::string& name = words.Next("the fact");
    const auto fact = facts.find(name);
    if (fact == facts.end()) throw Failure{"\"" + name + "\" is nothing to tell of it"};
    if (fact->second != words.Next("the value"))
      throw Failure{"its " + name + " is \"" + fact->second + "\""};
  }
}

void CheckMessage(Execution& run, Arguments& words) {
  const Message& message = Next(run.World().dialogs.messages, run.messagesTold, "further message box");
  CheckFacts(words, message.text,
             {{"title", message.title},
              {"icon", IconName(message.icon)},
              {"buttons", ButtonsName(message.buttons)}});
}

void CheckInput(Execution& run, Arguments& words) {
  const InputRequest& input = Next(run.World().dialogs.inputs, run.inputsTold, "further input box");
  CheckFacts(words, input.prompt, {{"title", input.title}, {"preset", input.preset}});
}

void CheckFileDialog(Execution& run, Arguments& words) {
  const FileDialogRequest& request =
      Next(run.World().dialogs.fileRequests, run.fileDialogsTold, "further file dialog");
  CheckFacts(words, request.title,
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

bool CheckShownDialog(Execution& run, Arguments& words) {
  const auto& all = words.Line().words;
  const bool speaksOfDialog = all.size() > 2 && all[1].Is("file") && all[2].Is("dialog");
  const bool speaksOfMessage = all.size() > 2 && all[1].Is("no") && all[2].Is("message");
  if (words.Take("message")) {
    CheckMessage(run, words);
  } else if (words.Take("input")) {
    CheckInput(run, words);
  } else if (speaksOfDialog) {
    words.Need("file");
    words.Need("dialog");
    CheckFileDialog(run, words);
  } else if (speaksOfMessage) {
    words.Need("no");
    words.Need("message");
    CheckNoMessage(run);
  } else {
    return false;
  }
  return true;
}

}  // namespace lumidex::scenario
