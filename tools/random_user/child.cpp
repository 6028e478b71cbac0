#include "random_user/child.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cctype>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/common_interface_defs.h>
#endif

namespace lumidex::random_user {
namespace {

constexpr unsigned mostSeconds = 120;

// A folder for what the other process leaves behind.
class Folder {
 public:
  Folder() {
    std::string name = std::filesystem::temp_directory_path() / "random-user-XXXXXX";
    path_ = mkdtemp(name.data());
  }
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  std::string operator/(const char* name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
};

std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

void WriteFile(const std::string& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

// What the process is doing, for its last words.
const Session* running = nullptr;
std::string scenarioFile;

void WriteScenario() {
  if (const Session* session = std::exchange(running, nullptr)) WriteFile(scenarioFile, session->Text());
}

void TooSlow(int) {
  WriteScenario();
  constexpr char text[] = "SUMMARY: it took too long\n";
  static_cast<void>(write(STDERR_FILENO, text, sizeof text - 1));
  _exit(4);
}

// The line in which a sanitizer says what it found, or else how the process ended.
std::string WhatEnded(const std::string& errors, int status) {
  const auto summary = errors.find("SUMMARY: ");
  if (summary != std::string::npos) return errors.substr(summary, errors.find('\n', summary) - summary);
  const auto report = errors.find("runtime error: ");
  if (report != std::string::npos) return errors.substr(report, errors.find('\n', report) - report);
  if (WIFSIGNALED(status)) return "ended by signal " + std::to_string(WTERMSIG(status));
  return "ended with code " + std::to_string(WEXITSTATUS(status));
}

Outcome InProcess(const std::function<std::string()>& work) {
  const Folder folder;
  // What waits to be written must not be written by both.
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child < 0) return {"no process can be started", {}};
  if (child == 0) {
    const int errors = open((folder / "errors").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(errors, STDERR_FILENO);
    scenarioFile = folder / "scenario";
    std::signal(SIGALRM, TooSlow);
    alarm(mostSeconds);
#if defined(__SANITIZE_ADDRESS__)
    __sanitizer_set_death_callback(WriteScenario);
#endif
    const std::string failure = work();
    WriteFile(folder / "failure", failure);
    WriteScenario();
    // Through exit, so that what leaked is told too.
    std::exit(failure.empty() ? 0 : 3);
  }
  int status = 0;
  while (waitpid(child, &status, 0) < 0) {
  }
  Outcome outcome{ReadFile(folder / "failure"), ReadFile(folder / "scenario")};
  const bool endedAsMeant = WIFEXITED(status) && WEXITSTATUS(status) == (outcome.failure.empty() ? 0 : 3);
  if (!endedAsMeant) outcome.failure = WhatEnded(ReadFile(folder / "errors"), status);
  return outcome;
}

}  // namespace

std::string Outcome::Kind() const {
  std::string kind;
  for (const char character : failure) {
    if (!std::isdigit(static_cast<unsigned char>(character))) kind += character;
  }
  return kind;
}

Outcome RunPlan(const Plan& plan) {
  return InProcess([&plan] {
    Session session(plan);
    running = &session;
    const std::string failure = session.Run();
    WriteScenario();
    return failure;
  });
}

Outcome RunText(const std::string& scenario) {
  return InProcess([&scenario]() -> std::string {
    try {
      scenario::NoWindows noWindows;
      const scenario::Script script = scenario::ReadScript("random user", scenario);
      for (const scenario::Scenario& each : script.scenarios) {
        scenario::Execution(each, noWindows, "").Run();
      }
      return {};
    } catch (const scenario::Failure& failure) {
      return failure.text;
    }
  });
}

}  // namespace lumidex::random_user
