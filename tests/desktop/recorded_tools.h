#pragma once
// A desktop that only writes down what it is asked, and answers as a test says.

#include <map>
#include <set>

#include "platform/posix/wallpaper/backend.h"

namespace lumidex {

class RecordedBus final : public SessionBus {
 public:
  bool HasOwner(const std::string& service) override { return owners.contains(service); }
  std::optional<std::vector<BusValue>> Call(const BusCall& call, int) override {
    calls.push_back(call);
    return answer ? answer(call) : std::nullopt;
  }

  std::set<std::string> owners;
  std::vector<BusCall> calls;
  std::function<std::optional<std::vector<BusValue>>(const BusCall& call)> answer;
};

struct RecordedTools {
  RecordedBus bus;
  std::map<std::string, std::string> variables;
  std::vector<std::vector<std::string>> runs;
  // What a program answers; without an entry for its arguments it is not installed.
  std::map<std::vector<std::string>, ProgramAnswer> answers;
  // For every other one of that name.
  std::map<std::string, ProgramAnswer> anyAnswer;
  DesktopTools tools{[this](const char* name) { return variables[name]; }, bus,
                     "/home/ada/.local/share/Lumidex/wallpaper",
                     [this](const std::vector<std::string>& arguments) { return Run(arguments); }};

  std::optional<ProgramAnswer> Run(const std::vector<std::string>& arguments) {
    runs.push_back(arguments);
    if (const auto found = answers.find(arguments); found != answers.end()) return found->second;
    if (const auto found = anyAnswer.find(arguments.front()); found != anyAnswer.end()) return found->second;
    return {};
  }
  bool Ran(const std::vector<std::string>& arguments) const {
    return std::find(runs.begin(), runs.end(), arguments) != runs.end();
  }
};

}  // namespace lumidex
