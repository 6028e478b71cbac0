#pragma once
// Has the files that an image control is going to open read beforehand, for whoever goes through a list.

#include <utility>

#include "controls/gvbox.h"

namespace lumidex {

class FilesAhead {
 public:
  // In the order in which they will be opened; a file that is not asked for after all does no harm. Ends with
  // this object, and when the control is given other wishes.
  FilesAhead(Gvbox& control, PathList paths, DecodingExtent extent) : control_(control) {
    control_.ReadFilesAhead(DecodingPriority::Batch, std::move(paths), extent);
  }
  ~FilesAhead() { control_.ReadFilesAhead(DecodingPriority::Batch, {}, DecodingExtent::Header); }
  FilesAhead(const FilesAhead&) = delete;
  FilesAhead& operator=(const FilesAhead&) = delete;

 private:
  Gvbox& control_;
};

// The entries of a list of paths.
inline PathList EntriesOf(const ListBox& list) {
  PathList entries;
  for (int row = 0; row < list.ListCount(); ++row) entries.Add(list.List(row));
  return entries;
}

}  // namespace lumidex
