#include "platform/posix/posix_shell.h"

#include <cerrno>

#include "base/run_time_error.h"
#include "base/text.h"
#include "platform/posix/file_named_like.h"
#include "platform/posix/start_process.h"

namespace lumidex {
namespace {

constexpr int success = 33;
constexpr int fileNotFound = 2;
constexpr int accessDenied = 5;
constexpr int noAssociation = 31;

bool IsAddress(const std::string& text) {
  const auto colon = text.find(':');
  if (colon == std::string::npos || colon < 2) return false;
  return text.find('/') == std::string::npos || text.find('/') > colon;
}

std::vector<std::string> Arguments(const std::string& command) {
  std::vector<std::string> arguments;
  bool inQuotes = false, inArgument = false;
  for (const char character : command) {
    if (character == '"') {
      inQuotes = !inQuotes;
      if (!inArgument) arguments.emplace_back();
      inArgument = true;
    } else if (character == ' ' && !inQuotes) {
      inArgument = false;
    } else {
      if (!inArgument) arguments.emplace_back();
      inArgument = true;
      arguments.back() += character;
    }
  }
  return arguments;
}

}  // namespace

int PosixShell::ShellExecuteA(WindowHandle, const std::string& verb, const std::string& file,
                              const std::string&, const std::string& directory, int) {
  if (!verb.empty() && LCase(verb) != "open") return noAssociation;
  std::string target = file;
  if (!IsAddress(file)) {
    if (!file.starts_with('/') && !directory.empty()) target = directory + "/" + file;
    target = FileNamedLike(target);
    if (target.empty()) return fileNotFound;
    // A name that begins with a dash would be read as an option.
    if (target.starts_with('-')) target = "./" + target;
  }
  switch (StartDetached({"xdg-open", target})) {
    case 0:
      return success;
    case EACCES:
      return accessDenied;
    default:
      return noAssociation;
  }
}

void PosixShell::StartProgram(const std::string& command) {
  const std::vector<std::string> arguments = Arguments(command);
  const std::string program = arguments.empty() ? std::string() : arguments.front();
  switch (StartDetached(arguments)) {
    case 0:
      return;
    case EACCES:
      throw RunTimeError(ErrorNumber::PermissionDenied).About(program);
    case ENOMEM:
    case EAGAIN:
      throw RunTimeError(ErrorNumber::OutOfMemory);
    default:
      throw RunTimeError(ErrorNumber::FileNotFound).About(program);
  }
}

}  // namespace lumidex
