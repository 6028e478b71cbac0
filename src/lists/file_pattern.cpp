#include "lists/file_pattern.h"

#include "base/text.h"
#include "forms/frmPreferences.h"

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

}  // namespace lumidex
