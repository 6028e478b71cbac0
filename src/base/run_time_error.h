#pragma once
// The one error type of the program: a number, as every trap and the default report know it.

#include <exception>
#include <string>
#include <utility>

namespace lumidex {

enum class ErrorNumber : int {
  InvalidCall = 5,
  Overflow = 6,
  OutOfMemory = 7,
  Subscript = 9,
  DivisionByZero = 11,
  TypeMismatch = 13,
  InternalError = 51,
  BadFileNumber = 52,
  FileNotFound = 53,
  FileAlreadyOpen = 55,
  DeviceIo = 57,
  FileExists = 58,
  DiskFull = 61,
  InputPastEnd = 62,
  DeviceUnavailable = 68,
  PermissionDenied = 70,
  PathFileAccess = 75,
  PathNotFound = 76,
  ObjectUnloaded = 364,
  InvalidPropertyValue = 380,
  AutomationError = 440,
  InvalidClipboardFormat = 460,
  InvalidPicture = 481,
  ClipboardUnavailable = 521,
  ImageControlRetry = 3718,
};

// The report text of an error number, as "Path not found".
std::string ErrorText(ErrorNumber number);

class RunTimeError : public std::exception {
 public:
  explicit RunTimeError(ErrorNumber number);
  // `text` says more than the number does (which format, what was wrong); nobody parses it.
  RunTimeError(ErrorNumber number, std::string text);

  ErrorNumber Number() const { return number_; }
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  ErrorNumber number_;
  std::string text_;
};

// Runs one step and drops its error: "errors ignored statement by statement".
template <class Step>
void IgnoreError(Step&& step) {
  try {
    std::forward<Step>(step)();
  } catch (const RunTimeError&) {
  }
}

}  // namespace lumidex
