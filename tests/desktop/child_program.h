#pragma once
// A program that a test starts and ends.

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>
#include <string>
#include <vector>

namespace lumidex {

class ChildProgram {
 public:
  // With `tellsOnDescriptor3` the program writes a line there once it is ready.
  explicit ChildProgram(const std::vector<std::string>& arguments, bool tellsOnDescriptor3 = false,
                        const std::vector<std::string>& environment = {}) {
    std::vector<char*> argv, envp;
    for (const auto& each : arguments) argv.push_back(const_cast<char*>(each.c_str()));
    argv.push_back(nullptr);
    for (char** each = environ; *each; ++each) envp.push_back(*each);
    // Of two entries of one name the first counts.
    for (const auto& each : environment) envp.insert(envp.begin(), const_cast<char*>(each.c_str()));
    envp.push_back(nullptr);
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    if (tellsOnDescriptor3) posix_spawn_file_actions_adddup2(&actions, ends[1], 3);
    const int error = posix_spawnp(&process_, argv.front(), &actions, nullptr, argv.data(), envp.data());
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    if (error != 0) throw std::runtime_error(arguments.front() + " can't be started");
    if (tellsOnDescriptor3) line_ = ReadLine(ends[0]);
    close(ends[0]);
  }
  ~ChildProgram() { End(); }
  ChildProgram(const ChildProgram&) = delete;
  ChildProgram& operator=(const ChildProgram&) = delete;

  void End() {
    if (process_ <= 0) return;
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
    process_ = 0;
  }
  const std::string& Line() const { return line_; }

 private:
  static std::string ReadLine(int pipe) {
    constexpr int millisecondsAtMost = 20000;
    std::string line;
    char character = 0;
    pollfd watched{pipe, POLLIN, 0};
    while (poll(&watched, 1, millisecondsAtMost) > 0 && read(pipe, &character, 1) == 1 && character != '\n') {
      line += character;
    }
    return line;
  }

  pid_t process_ = 0;
  std::string line_;
};

}  // namespace lumidex
