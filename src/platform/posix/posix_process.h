#pragma once
// This process: where its files are kept, what the shell handed over, and whether it is the only one.

#include <memory>

#include "platform/posix/environment.h"
#include "ports/services.h"

namespace lumidex {

// The one argument as the program takes it: made absolute from `currentDirectory`, in double quotes; the path
// of a "file:" address is decoded. Empty without an argument; of several only the first counts.
std::string QuotedArgument(int count, const char* const* arguments, const std::string& currentDirectory);

// The folder where the program keeps its files: the executable's own when files can be made there (a portable
// copy), else the user's data folder, made when it is missing, with the content that was installed
// (`installed`, read only) linked into it. Falls back to the executable's folder when nothing can be made.
std::string ProgramFolder(const std::string& executableFolder, const std::string& installed,
                          const Environment& environment);

// Where the running executable lies, without a separator at the end.
std::string ExecutableLocation();

// Holds a lock for as long as it lives, so that a second instance can be told. The lock goes with the
// process, however it ends.
class InstanceLock {
 public:
  // In $XDG_RUNTIME_DIR, or without one in /tmp/lumidex-UID, which must be the user's own.
  explicit InstanceLock(const Environment& environment);
  ~InstanceLock();
  InstanceLock(const InstanceLock&) = delete;
  InstanceLock& operator=(const InstanceLock&) = delete;
  // True when another process holds it. Where no lock can be made at all nobody else is known of.
  bool IsHeldByAnother() const { return heldByAnother_; }

 private:
  int descriptor_ = -1;
  bool heldByAnother_ = false;
};

class PosixProcess final : public Process {
 public:
  PosixProcess(int count, const char* const* arguments, const std::string& installed,
               const Environment& environment = ReadEnvironment);
  std::string ExecutableFolder() const override { return folder_; }
  std::string CommandLine() const override { return commandLine_; }
  bool HasPreviousInstance() override;

 private:
  Environment environment_;
  std::string folder_;
  std::string commandLine_;
  std::unique_ptr<InstanceLock> lock_;
};

}  // namespace lumidex
