#include "base/run_time_error.h"

namespace lumidex {

std::string ErrorText(ErrorNumber number) {
  switch (number) {
    case ErrorNumber::InvalidCall:
      return "Invalid procedure call or argument";
    case ErrorNumber::Overflow:
      return "Overflow";
    case ErrorNumber::OutOfMemory:
      return "Out of memory";
    case ErrorNumber::Subscript:
      return "Subscript out of range";
    case ErrorNumber::DivisionByZero:
      return "Division by zero";
    case ErrorNumber::TypeMismatch:
      return "Type mismatch";
    case ErrorNumber::InternalError:
      return "Internal error";
    case ErrorNumber::BadFileNumber:
      return "Bad file name or number";
    case ErrorNumber::FileNotFound:
      return "File not found";
    case ErrorNumber::FileAlreadyOpen:
      return "File already open";
    case ErrorNumber::DeviceIo:
      return "Device I/O error";
    case ErrorNumber::FileExists:
      return "File already exists";
    case ErrorNumber::DiskFull:
      return "Disk full";
    case ErrorNumber::InputPastEnd:
      return "Input past end of file";
    case ErrorNumber::DeviceUnavailable:
      return "Device unavailable";
    case ErrorNumber::PermissionDenied:
      return "Permission denied";
    case ErrorNumber::PathFileAccess:
      return "Path/File access error";
    case ErrorNumber::PathNotFound:
      return "Path not found";
    case ErrorNumber::ObjectUnloaded:
      return "Object was unloaded";
    case ErrorNumber::InvalidPropertyValue:
      return "Invalid property value";
    case ErrorNumber::AutomationError:
      return "Automation error";
    case ErrorNumber::InvalidClipboardFormat:
      return "Invalid clipboard format";
    case ErrorNumber::InvalidPicture:
      return "Invalid picture";
    case ErrorNumber::ClipboardUnavailable:
      return "The clipboard can't be opened";
    case ErrorNumber::ImageControlRetry:
      return "The image control asks for another try";
  }
  return "Unknown error";
}

RunTimeError::RunTimeError(ErrorNumber number) : RunTimeError(number, ErrorText(number)) {}

RunTimeError::RunTimeError(ErrorNumber number, std::string text) : number_(number), text_(std::move(text)) {}

RunTimeError RunTimeError::About(const std::string& path) const {
  RunTimeError error = *this;
  error.NamePath(path);
  return error;
}

}  // namespace lumidex
