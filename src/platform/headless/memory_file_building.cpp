// Building the files in memory, and changing them behind the program's back.

#include <algorithm>

#include "base/run_time_error.h"
#include "platform/headless/memory_node.h"

namespace lumidex {

MemoryFileSystem::NodePointer MemoryFileSystem::Put(const std::string& path, EntryKind kind) {
  PathParts parts = Parts(path);
  NodePointer directory = Root(parts.root);
  if (!directory) throw RunTimeError(ErrorNumber::PathNotFound).About(path);
  if (parts.names.empty()) return directory;
  const std::string name = parts.names.back();
  parts.names.pop_back();
  if (const NodePointer above = Find(parts, true)) {
    directory = above;
  } else {
    directory = Put(parts.Text(separator_), EntryKind::Directory);
  }
  NodePointer node = Child(*directory, name);
  if (node && node->kind == kind) return node;
  node = std::make_shared<Node>();
  node->name = name;
  node->kind = kind;
  Touch(*node);
  directory->children[Key(name)] = node;
  Touch(*directory);
  return node;
}

void MemoryFileSystem::AddDrive(const std::string& name, bool ready) {
  NodePointer node;
  if (separator_ == '/' && name != "/") {
    node = Put(name, EntryKind::Directory);
    const std::string mount = Normalised(name);
    if (std::ranges::find(mounts_, mount) == mounts_.end()) mounts_.push_back(mount);
  } else {
    NodePointer& root = roots_[Parts(name).root];
    if (!root) {
      root = std::make_shared<Node>();
      root->kind = EntryKind::Directory;
    }
    node = root;
  }
  node->ready = ready;
  Touch(*node);
}

void MemoryFileSystem::AddDirectory(const std::string& path) {
  Put(path, EntryKind::Directory);
}

void MemoryFileSystem::AddFile(const std::string& path, std::string content) {
  const NodePointer file = Put(path, EntryKind::File);
  file->content = std::make_shared<std::string>(std::move(content));
  file->reportedSize.reset();
  file->modified = now_();
  Touch(*file);
}

void MemoryFileSystem::AddLink(const std::string& path, const std::string& target) {
  Put(path, EntryKind::DirectoryLink)->target = target;
}

void MemoryFileSystem::AddOther(const std::string& path) {
  Put(path, EntryKind::Other);
}

void MemoryFileSystem::SetHidden(const std::string& path, bool hidden) {
  Needed(path)->hidden = hidden;
  const PathParts parts = Parts(path);
  if (!parts.names.empty()) Touch(*Find(parts.Above(), true));
}

void MemoryFileSystem::SetLocked(const std::string& path, bool locked) {
  const NodePointer node = Needed(path);
  node->locked = locked;
  node->stamp = ++lastStamp_;
}

void MemoryFileSystem::SetReadOnly(const std::string& path, bool readOnly) {
  Needed(path)->readOnly = readOnly;
}

void MemoryFileSystem::SetModified(const std::string& path, std::int64_t secondsSince1970) {
  Needed(path)->modified = secondsSince1970;
}

void MemoryFileSystem::SetReportedSize(const std::string& path, std::uint64_t bytes) {
  const NodePointer file = Put(path, EntryKind::File);
  file->reportedSize = bytes;
  Touch(*file);
}

void MemoryFileSystem::RemoveTree(const std::string& path) {
  const NodePointer node = Needed(path);
  const PathParts parts = Parts(path);
  if (parts.names.empty()) throw RunTimeError(ErrorNumber::PathFileAccess);
  const NodePointer directory = Find(parts.Above(), true);
  directory->children.erase(Key(node->name));
  Touch(*directory);
}

int MemoryFileSystem::ReadsOf(const std::string& path) const {
  const auto found = reads_.find(Normalised(path));
  return found == reads_.end() ? 0 : found->second;
}

}  // namespace lumidex
