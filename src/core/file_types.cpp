#include "core/file_types.h"

#include "base/run_time_error.h"
#include "base/text.h"

namespace lumidex {

std::string BuildFilePattern(App& app) {
  app.FilePattern.clear();
  for (int type = 1; type <= FileTypeCount; ++type) {
    const CheckBox& box = app.frmPreferences.chkFileType(type);
    if (!(box.Value == 1)) continue;
    // Every caption begins with "(." and three letters, as "(.BMP) - ...".
    const std::string extension = Mid(box.Caption.Get(), 2, 4);
    app.FilePattern += (app.FilePattern.empty() ? "*" : ";*") + extension;
  }
  if (InStr(app.FilePattern, ".JPG") > 0) app.FilePattern += ";*.jpe";
  return app.FilePattern;
}

void ShowFileTypeIcon(App& app, const std::string& extension) {
  const std::string wanted = LCase(extension);
  for (const FileTypeRow& row : FileTypeTable) {
    if (wanted != "." + LCase(row.resource)) continue;
    app.WPaper2.StatusBar1.SetPicture(2, std::string(row.resource));
    app.platform.events.Yield();
    return;
  }
  throw RunTimeError(ErrorNumber::InvalidCall);
}

}  // namespace lumidex
