#pragma once
// Starting other programs: what belongs to a file or an address, and programs by name.

#include "ports/services.h"

namespace lumidex {

class PosixShell final : public Shell {
 public:
  // Hands `file`, a path or an address, to the desktop's opener; a verb other than "open", in any case, or
  // empty is answered with 31 (no such association), a missing opener too, a missing file with 2.
  int ShellExecuteA(WindowHandle window, const std::string& verb, const std::string& file,
                    const std::string& arguments, const std::string& directory, int show) override;
  // `command` is a program, found by the search path unless it holds a slash, and its arguments, apart by
  // blanks; double quotes keep blanks together.
  void StartProgram(const std::string& command) override;
};

}  // namespace lumidex
