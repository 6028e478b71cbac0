#pragma once
// Dialogs that a test answers beforehand. What was asked is kept; a dialog for which no answer was given gets
// the answer of somebody who presses Enter at a message box and Escape at everything else.

#include <deque>
#include <functional>
#include <utility>

#include "platform/headless/call_log.h"
#include "ports/dialogs.h"

namespace lumidex {

class ScriptedDialogs final : public Dialogs {
 public:
  explicit ScriptedDialogs(CallLog& log) : log_(log) {}

  MessageAnswer MsgBox(const Message& message) override;
  std::optional<std::string> InputBox(const InputRequest& request) override;
  FileDialogAnswer AskFile(const FileDialogRequest& request) override;
  std::optional<std::uint32_t> AskColor(std::uint32_t initial) override;

  std::deque<MessageAnswer> messageAnswers;
  std::deque<std::optional<std::string>> inputAnswers;
  std::deque<FileDialogAnswer> fileAnswers;  // filterIndex 0 leaves the one that was asked with
  std::deque<std::optional<std::uint32_t>> colorAnswers;

  std::vector<Message> messages;
  std::vector<InputRequest> inputs;
  std::vector<FileDialogRequest> fileRequests;

  // What goes on while a message box stands on the screen.
  std::function<void()> whileOpen;

 private:
  void StayOpen();
  CallLog& log_;
};

}  // namespace lumidex
