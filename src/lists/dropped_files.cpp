#include "lists/dropped_files.h"

#include "core/paths.h"
#include "lists/directory_search.h"
#include "lists/image_lists.h"

namespace lumidex {

void TakeInDropped(App& app, std::vector<std::string> paths) {
  std::vector<std::string> files, folders;
  for (const std::string& path : paths) {
    const auto facts = app.platform.files.Look(path);
    if (!facts) continue;
    if (facts->kind == EntryKind::File) files.push_back(path);
    // A link that was chosen by hand is as good as its folder.
    if (facts->kind == EntryKind::Directory || facts->kind == EntryKind::DirectoryLink)
      folders.push_back(path);
  }
  if (!files.empty()) AddToDisplayList(app, files);
  if (!folders.empty()) SearchFolders(app, folders);
}

}  // namespace lumidex
