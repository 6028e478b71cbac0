#include "platform/posix/start_process.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

#include "platform/posix/bus_address.h"

namespace lumidex {
namespace {

// Runs in the child: no allocation from here on. Sends the error through the pipe when nothing was started.
[[noreturn]] void Become(char* const* arguments, char* const* environment, const char* directory,
                         int report) {
  const pid_t grandchild = fork();
  if (grandchild > 0) _exit(0);
  setsid();
  int error = grandchild < 0 ? errno : 0;
  if (error == 0 && directory[0] != '\0' && chdir(directory) != 0) error = errno;
  if (error == 0) {
    execvpe(arguments[0], arguments, environment);
    error = errno;
  }
  // A report that can't be sent is found missing by the reader.
  [[maybe_unused]] const ssize_t sent = write(report, &error, sizeof error);
  _exit(127);
}

// That we have found no bus is not to keep others from looking for one.
std::vector<char*> EnvironmentForOthers() {
  const std::string ours = std::string(busVariable) + "=" + noBusAddress;
  std::vector<char*> variables;
  for (char** each = environ; *each; ++each) {
    if (*each != ours) variables.push_back(*each);
  }
  variables.push_back(nullptr);
  return variables;
}

}  // namespace

int StartDetached(const std::vector<std::string>& arguments, const std::string& directory) {
  if (arguments.empty() || arguments.front().empty()) return ENOENT;
  std::vector<char*> pointers;
  for (const std::string& argument : arguments) pointers.push_back(const_cast<char*>(argument.c_str()));
  pointers.push_back(nullptr);
  const std::vector<char*> environment = EnvironmentForOthers();
  // The pipe closes by itself when the program begins, so reading nothing means success.
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) return errno;
  const pid_t child = fork();
  if (child == 0) Become(pointers.data(), environment.data(), directory.c_str(), ends[1]);
  const int forkError = child < 0 ? errno : 0;
  close(ends[1]);
  int error = 0;
  ssize_t count = 0;
  do {
    count = read(ends[0], &error, sizeof error);
  } while (count < 0 && errno == EINTR);
  close(ends[0]);
  if (child > 0) {
    while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
  }
  if (forkError != 0) return forkError;
  return count == static_cast<ssize_t>(sizeof error) ? error : 0;
}

}  // namespace lumidex
