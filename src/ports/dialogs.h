#pragma once
// The platform's own dialogs: message box, input box, file dialogs, colour dialog. All are modal.

#include <cstdint>
#include <optional>
#include <string>

namespace lumidex {

enum class MessageIcon { None = 0, Critical = 16, Question = 32, Exclamation = 48, Information = 64 };
enum class MessageButtons {
  Ok = 0,
  OkCancel = 1,
  AbortRetryIgnore = 2,
  YesNoCancel = 3,
  YesNo = 4,
  RetryCancel = 5
};
enum class MessageAnswer { Ok = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

// The title that a box has when none is given.
inline constexpr const char* applicationTitle = "Lumidex";

struct Message {
  std::string text;
  std::string title = applicationTitle;
  MessageButtons buttons = MessageButtons::Ok;
  MessageIcon icon = MessageIcon::None;
};

struct InputRequest {
  std::string prompt;
  std::string title = applicationTitle;
  std::string preset;
};

struct FileDialogRequest {
  bool save = false;
  std::string title;
  // "Description|*.ext|Description|*.a;*.b"
  std::string filter;
  int filterIndex = 1;  // one-based
  std::string fileName;
  std::string directory;
  std::string defaultExtension;
  bool overwritePrompt = false;
  bool fileMustExist = false;
};

struct FileDialogAnswer {
  bool accepted = false;
  std::string fileName;
  int filterIndex = 0;
};

class Dialogs {
 public:
  virtual ~Dialogs() = default;
  virtual MessageAnswer MsgBox(const Message& message) = 0;
  // Nothing when cancelled.
  virtual std::optional<std::string> InputBox(const InputRequest& request) = 0;
  virtual FileDialogAnswer AskFile(const FileDialogRequest& request) = 0;
};

}  // namespace lumidex
