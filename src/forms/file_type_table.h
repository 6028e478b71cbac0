#pragma once
// The texts of the 29 picture file types, in the order of their index (1 to 29, here 0 to 28).

#include <array>
#include <string_view>

namespace lumidex {

struct FileTypeRow {
  std::string_view resource;     // upper-case name of the type's bitmap
  std::string_view caption;      // of chkFileType and chkAssocFileType; characters 2 to 5 are the extension
  std::string_view description;  // of lblIconType
};

inline constexpr int FileTypeCount = 29;

extern const std::array<FileTypeRow, FileTypeCount> FileTypeTable;

// The index from 1 of the type whose files end so, a point and three letters of either case; 0 for none.
int FileTypeOf(std::string_view ending);

}  // namespace lumidex
