#include "controls/animation.h"

#include "base/run_time_error.h"
#include "controls/form.h"

namespace lumidex {

std::optional<std::string> Animation::ReadProperty(std::string_view name) {
  if (name == "FileName") return fileName_;
  return Control::ReadProperty(name);
}

void Animation::RestoreDesign() {
  Control::RestoreDesign();
  Close();
}

void Animation::Open(const std::string& path) {
  const auto found = Owner().GetPlatform().files.Look(path);
  if (!found || found->kind != EntryKind::File) {
    throw RunTimeError(ErrorNumber::FileNotFound).About(path);
  }
  fileName_ = path;
  Changed.Emit();
}

void Animation::Close() {
  fileName_.clear();
  Changed.Emit();
}

}  // namespace lumidex
