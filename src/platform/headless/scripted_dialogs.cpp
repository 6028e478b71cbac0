#include "platform/headless/scripted_dialogs.h"

#include "base/text.h"
#include "platform/headless/script_ends.h"

namespace lumidex {
namespace {

// What Enter presses: the first button.
MessageAnswer FirstButton(MessageButtons buttons) {
  switch (buttons) {
    case MessageButtons::Ok:
    case MessageButtons::OkCancel:
      return MessageAnswer::Ok;
    case MessageButtons::AbortRetryIgnore:
      return MessageAnswer::Abort;
    case MessageButtons::YesNoCancel:
    case MessageButtons::YesNo:
      return MessageAnswer::Yes;
    case MessageButtons::RetryCancel:
      return MessageAnswer::Retry;
  }
  return MessageAnswer::Ok;
}

}  // namespace

template <class Answer>
Answer ScriptedDialogs::Take(Box box, std::deque<Scripted<Answer>>& answers, Answer withoutOne) {
  if (OnOpen) OnOpen(box);
  if (answers.empty()) {
    if (++unanswered_ > mostUnanswered) throw ProgramHung{};
    return withoutOne;
  }
  unanswered_ = 0;
  // Taken first: other dialogs may open meanwhile.
  const Scripted<Answer> scripted = std::move(answers.front());
  answers.pop_front();
  if (!scripted.whileOpen) return scripted.answer;
  const struct Standing {
    explicit Standing(int& count) : open(count) { ++open; }
    ~Standing() { --open; }
    int& open;
  } standing(open_);
  scripted.whileOpen();
  return scripted.answer;
}

bool ScriptedDialogs::HasAnswersLeft() const {
  return !messageAnswers.empty() || !inputAnswers.empty() || !fileAnswers.empty();
}

MessageAnswer ScriptedDialogs::MsgBox(const Message& message) {
  log_.Add("MsgBox " + message.text);
  messages.push_back(message);
  return Take(Box::Message, messageAnswers, FirstButton(message.buttons));
}

std::optional<std::string> ScriptedDialogs::InputBox(const InputRequest& request) {
  log_.Add("InputBox " + request.prompt);
  inputs.push_back(request);
  return Take(Box::Input, inputAnswers, {});
}

FileDialogAnswer ScriptedDialogs::AskFile(const FileDialogRequest& request) {
  log_.Add((request.save ? "AskFile to save " : "AskFile to open ") + request.fileName);
  fileRequests.push_back(request);
  FileDialogAnswer answer = Take(Box::File, fileAnswers, {});
  if (answer.filterIndex == 0) answer.filterIndex = request.filterIndex;
  return answer;
}

}  // namespace lumidex
