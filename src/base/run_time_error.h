#pragma once
// The one error type of the program: a number, as every trap and the default report know it, and the file or
// folder that it is about.

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

  // The same error about a file or folder; what it was about before stays.
  RunTimeError About(const std::string& path) const;
  void NamePath(const std::string& path) {
    if (path_.empty()) path_ = path;
  }

  ErrorNumber Number() const { return number_; }
  // Empty when the error is about none.
  const std::string& Path() const { return path_; }
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  ErrorNumber number_;
  std::string text_;
  std::string path_;
};

// Runs a step of work on the file or folder `path`: what it raises is about it unless it names another.
template <class Step>
decltype(auto) WorkOn(const std::string& path, Step&& step) {
  try {
    return std::forward<Step>(step)();
  } catch (RunTimeError& error) {
    error.NamePath(path);
    throw;
  }
}

// Runs one step and drops its error: "errors ignored statement by statement".
template <class Step>
void IgnoreError(Step&& step) {
  try {
    std::forward<Step>(step)();
  } catch (const RunTimeError&) {
  }
}

}  // namespace lumidex
