#include "preferences/file_type_selection.h"

#include "forms/frmPreferences.h"

namespace lumidex {
namespace {

void SelectOnly(App& app, std::initializer_list<int> types) {
  FileTypeBoxes& boxes = app.frmPreferences.chkFileType;
  ClearAllTypes(boxes);
  for (const int type : types) boxes(type).Value = 1;
}

}  // namespace

void TickAllTypes(FileTypeBoxes& boxes) {
  for (const auto& box : boxes) box->Value = 1;
}

void ClearAllTypes(FileTypeBoxes& boxes) {
  for (const auto& box : boxes) box->Value = 0;
}

void InvertTypes(FileTypeBoxes& boxes) {
  for (const auto& box : boxes) box->Value = box->Value == 1 ? 0 : 1;
}

void SelectWebFormats(App& app) {
  SelectOnly(app, {8, 13, 21});
}
void SelectMicrosoftFormats(App& app) {
  SelectOnly(app, {2, 3, 5, 6, 10, 16, 25, 28});
}
void SelectPortableFormats(App& app) {
  SelectOnly(app, {17, 19, 21, 22, 23});
}

}  // namespace lumidex
