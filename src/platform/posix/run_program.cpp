#include "platform/posix/run_program.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>

namespace lumidex {
namespace {

using Clock = std::chrono::steady_clock;

int MillisecondsUntil(Clock::time_point end) {
  const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
  return left > 0 ? static_cast<int>(left) : 0;
}

// The child's number, 0 when nothing was started.
pid_t Start(const std::vector<std::string>& arguments, int output) {
  std::vector<char*> pointers;
  for (const std::string& argument : arguments) pointers.push_back(const_cast<char*>(argument.c_str()));
  pointers.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  const int error = posix_spawnp(&child, pointers.front(), &actions, nullptr, pointers.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  return error == 0 ? child : 0;
}

// False when the time was over before the output ended.
bool ReadAll(int pipe, Clock::time_point end, std::string& text) {
  constexpr std::size_t mostBytes = std::size_t{1} << 20;
  std::array<char, 4096> block;
  while (true) {
    pollfd watched{pipe, POLLIN, 0};
    const int ready = poll(&watched, 1, MillisecondsUntil(end));
    if (ready < 0 && errno == EINTR) continue;
    if (ready <= 0) return false;
    const ssize_t count = read(pipe, block.data(), block.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return true;
    // Whoever says so much says nothing that anybody waits for; it is read on so that the program can end.
    if (text.size() < mostBytes) text.append(block.data(), static_cast<std::size_t>(count));
  }
}

// Waits for a child that has closed its output; nothing when it does not end in time.
std::optional<int> Status(pid_t child, Clock::time_point end) {
  constexpr int milliseconds = 2;
  int status = 0;
  while (true) {
    const pid_t ended = waitpid(child, &status, WNOHANG);
    if (ended == child) return status;
    if (ended < 0 && errno != EINTR) return {};
    if (MillisecondsUntil(end) == 0) return {};
    poll(nullptr, 0, milliseconds);
  }
}

}  // namespace

std::optional<ProgramAnswer> RunProgram(const std::vector<std::string>& arguments, int millisecondsAtMost) {
  if (arguments.empty() || arguments.front().empty()) return {};
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) return {};
  const pid_t child = Start(arguments, ends[1]);
  close(ends[1]);
  ProgramAnswer answer;
  std::optional<int> status;
  if (child != 0) {
    const auto end = Clock::now() + std::chrono::milliseconds(millisecondsAtMost);
    if (ReadAll(ends[0], end, answer.output)) status = Status(child, end);
    if (!status) {
      kill(child, SIGKILL);
      while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
      }
    }
  }
  close(ends[0]);
  if (!status || !WIFEXITED(*status)) return {};
  answer.exitCode = WEXITSTATUS(*status);
  return answer;
}

}  // namespace lumidex
