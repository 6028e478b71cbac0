#include "platform/headless/scripted_dialogs.h"

#include "base/text.h"

namespace lumidex {
namespace {

template <class Answer>
std::optional<Answer> Next(std::deque<Answer>& answers) {
  if (answers.empty()) return {};
  Answer answer = std::move(answers.front());
  answers.pop_front();
  return answer;
}

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

void ScriptedDialogs::StayOpen() {
  if (!whileOpen) return;
  const auto once = std::exchange(whileOpen, nullptr);
  once();
}

MessageAnswer ScriptedDialogs::MsgBox(const Message& message) {
  log_.Add("MsgBox " + message.text);
  messages.push_back(message);
  StayOpen();
  return Next(messageAnswers).value_or(FirstButton(message.buttons));
}

std::optional<std::string> ScriptedDialogs::InputBox(const InputRequest& request) {
  log_.Add("InputBox " + request.prompt);
  inputs.push_back(request);
  StayOpen();
  return Next(inputAnswers).value_or(std::nullopt);
}

FileDialogAnswer ScriptedDialogs::AskFile(const FileDialogRequest& request) {
  log_.Add((request.save ? "AskFile to save " : "AskFile to open ") + request.fileName);
  fileRequests.push_back(request);
  StayOpen();
  FileDialogAnswer answer = Next(fileAnswers).value_or(FileDialogAnswer{});
  if (answer.filterIndex == 0) answer.filterIndex = request.filterIndex;
  return answer;
}

std::optional<std::uint32_t> ScriptedDialogs::AskColor(std::uint32_t initial) {
  log_.Add("AskColor " + Number(static_cast<std::int64_t>(initial)));
  StayOpen();
  return Next(colorAnswers).value_or(std::nullopt);
}

}  // namespace lumidex
