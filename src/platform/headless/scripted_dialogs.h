#pragma once
// Dialogs that a test answers beforehand. What was asked is kept; a dialog for which no answer was given gets
// the answer of somebody who presses Enter at a message box and Escape at everything else.

#include <deque>
#include <functional>
#include <utility>

#include "platform/headless/call_log.h"
#include "ports/dialogs.h"

namespace lumidex {

// An answer, and what goes on while its dialog stands on the screen.
template <class Answer>
struct Scripted {
  Scripted(Answer given = {}, std::function<void()> meanwhile = {})
      : answer(std::move(given)), whileOpen(std::move(meanwhile)) {}
  Answer answer;
  std::function<void()> whileOpen;
};

class ScriptedDialogs final : public Dialogs {
 public:
  explicit ScriptedDialogs(CallLog& log) : log_(log) {}

  MessageAnswer MsgBox(const Message& message) override;
  std::optional<std::string> InputBox(const InputRequest& request) override;
  FileDialogAnswer AskFile(const FileDialogRequest& request) override;

  std::deque<Scripted<MessageAnswer>> messageAnswers;
  std::deque<Scripted<std::optional<std::string>>> inputAnswers;
  std::deque<Scripted<FileDialogAnswer>> fileAnswers;  // filterIndex 0 leaves the one that was asked with
  bool HasAnswersLeft() const;

  std::vector<Message> messages;
  std::vector<InputRequest> inputs;
  std::vector<FileDialogRequest> fileRequests;

  // True while a dialog stands on the screen and keeps the user from the windows.
  bool IsOpen() const { return open_ > 0; }
  enum class Box { Message, Input, File };
  // Called when a dialog opens, before its answer is looked for.
  std::function<void(Box)> OnOpen;

  // Dialogs that nobody answers end the program as hung when so many come in a row: they would come for ever.
  static constexpr int mostUnanswered = 1000;

 private:
  template <class Answer>
  Answer Take(Box box, std::deque<Scripted<Answer>>& answers, Answer withoutOne);
  CallLog& log_;
  int open_ = 0;
  int unanswered_ = 0;
};

}  // namespace lumidex
