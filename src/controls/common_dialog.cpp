#include "controls/common_dialog.h"

#include <algorithm>

#include "controls/form.h"

namespace lumidex {
namespace {

// "Description|*.ext|Description|*.ext|", with or without the last bar.
int FilterCount(const std::string& filter) {
  const auto bars = static_cast<int>(std::ranges::count(filter, '|'));
  return filter.ends_with('|') ? bars / 2 : (bars + 1) / 2;
}

}  // namespace

bool CommonDialog::AskFile(bool save) {
  FileDialogRequest request;
  request.save = save;
  request.title = DialogTitle.Get();
  request.filter = Filter.Get();
  // The index may be left over from a dialog with more filters.
  request.filterIndex = FilterIndex > FilterCount(Filter.Get()) ? 1 : std::max(1, FilterIndex.Get());
  request.fileName = FileName.Get();
  request.directory = InitDir.Get();
  request.defaultExtension = DefaultExt.Get();
  request.overwritePrompt = (Flags & OverwritePrompt) != 0;
  request.fileMustExist = (Flags & FileMustExist) != 0;
  const FileDialogAnswer answer = Owner().GetPlatform().dialogs.AskFile(request);
  if (!answer.accepted) return false;
  FileName = answer.fileName;
  FilterIndex = answer.filterIndex;
  return true;
}

}  // namespace lumidex
