#include "controls/directory_reader.h"

#include <algorithm>

#include "base/text.h"

namespace lumidex {

DirectoryReader::Shared DirectoryReader::Read(const std::string& path) {
  const std::uint64_t stamp = files_.DirectoryStamp(path);
  const auto known = std::ranges::find(
      recent_, path, [](const Shared& listing) -> const std::string& { return listing->path; });
  if (known != recent_.end()) {
    if ((*known)->stamp == stamp && stamp != 0) {
      recent_.splice(recent_.begin(), recent_, known);
      return recent_.front();
    }
    recent_.erase(known);
  }
  auto listing = std::make_shared<Listing>();
  listing->path = path;
  listing->stamp = stamp;
  for (DirectoryEntry& entry : files_.ReadDirectory(path)) {
    if (entry.hidden) continue;
    switch (entry.kind) {
      case EntryKind::Directory:
      case EntryKind::DirectoryLink:
        listing->directories.push_back({std::move(entry.name), entry.kind == EntryKind::DirectoryLink});
        break;
      case EntryKind::File:
        listing->files.push_back(std::move(entry.name));
        break;
      case EntryKind::Other:
        break;
    }
  }
  std::ranges::sort(listing->directories,
                    [](const auto& a, const auto& b) { return CompareText(a.name, b.name) < 0; });
  recent_.push_front(listing);
  if (recent_.size() > Kept) recent_.pop_back();
  return listing;
}

}  // namespace lumidex
