#include "controls/common_dialog.h"

#include "controls/form.h"

namespace lumidex {

void CommonDialog::VisitProperties(const PropertyVisitor& visit) {
  Control::VisitProperties(visit);
  visit("FileName", FileName);
  visit("Filter", Filter);
  visit("DialogTitle", DialogTitle);
  visit("InitDir", InitDir);
  visit("DefaultExt", DefaultExt);
  visit("FilterIndex", FilterIndex);
  visit("Flags", Flags);
  visit("Color", Color);
}

bool CommonDialog::AskFile(bool save) {
  FileDialogRequest request;
  request.save = save;
  request.title = DialogTitle.Get();
  request.filter = Filter.Get();
  request.filterIndex = FilterIndex > 0 ? FilterIndex.Get() : 1;
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

bool CommonDialog::ShowColor() {
  const auto color = Owner().GetPlatform().dialogs.AskColor(static_cast<std::uint32_t>(Color.Get()));
  if (color) Color = static_cast<std::int32_t>(*color);
  return color.has_value();
}

}  // namespace lumidex
