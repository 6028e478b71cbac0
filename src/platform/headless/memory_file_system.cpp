#include "platform/headless/memory_file_system.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "base/run_time_error.h"
#include "base/text.h"

namespace lumidex {

struct MemoryFileSystem::Node {
  std::string name;
  EntryKind kind = EntryKind::File;
  std::shared_ptr<const std::string> content = std::make_shared<const std::string>();
  std::string target;  // of a link
  std::int64_t modified = 0;
  std::uint64_t stamp = 0;
  bool hidden = false;
  bool locked = false;
  bool readOnly = false;
  bool ready = true;
  // By the name as it is compared; backwards, since nobody may lean on an order that real directories do
  // not keep either.
  std::map<std::string, NodePointer, std::greater<>> children;
};

namespace {

// What was opened stays readable, whatever happens to the file.
class SharedText final : public ByteSource {
 public:
  explicit SharedText(std::shared_ptr<const std::string> text) : text_(std::move(text)) {}
  std::uint64_t Size() const override { return text_->size(); }
  std::size_t ReadAt(std::uint64_t offset, std::span<std::uint8_t> into) const override {
    if (offset >= text_->size() || into.empty()) return 0;
    const auto count = std::min<std::size_t>(into.size(), text_->size() - static_cast<std::size_t>(offset));
    std::memcpy(into.data(), text_->data() + offset, count);
    return count;
  }

 private:
  std::shared_ptr<const std::string> text_;
};

// Takes what is written until the disk is full.
class GrowingText final : public ByteSink {
 public:
  explicit GrowingText(std::uint64_t most) : most_(most) {}
  void Write(std::span<const std::uint8_t> bytes) override {
    if (bytes.size() > most_ - text.size()) throw RunTimeError(ErrorNumber::DiskFull);
    text.append(bytes.begin(), bytes.end());
  }
  std::string text;

 private:
  std::uint64_t most_;
};

PathParts Above(PathParts parts) {
  parts.names.pop_back();
  return parts;
}

}  // namespace

MemoryFileSystem::MemoryFileSystem(char separator, CallLog& log, std::function<std::int64_t()> now)
    : separator_(separator), log_(log), now_(std::move(now)), current_(separator == '/' ? "/" : "C:\\") {
  AddDrive(separator == '/' ? "/" : "C:");
}

MemoryFileSystem::~MemoryFileSystem() = default;

std::string MemoryFileSystem::Key(const std::string& name) const {
  return separator_ == '/' ? name : LCase(name);
}

void MemoryFileSystem::Touch(Node& directory) {
  directory.stamp = ++lastStamp_;
  directory.modified = now_();
}

MemoryFileSystem::NodePointer MemoryFileSystem::Root(const std::string& root) const {
  const auto found = roots_.find(root);
  return found == roots_.end() ? nullptr : found->second;
}

MemoryFileSystem::NodePointer MemoryFileSystem::Child(const Node& directory, const std::string& name) const {
  const auto found = directory.children.find(Key(name));
  return found == directory.children.end() ? nullptr : found->second;
}

MemoryFileSystem::NodePointer MemoryFileSystem::Find(const PathParts& parts, bool followLast,
                                                     int linksLeft) const {
  NodePointer node = Root(parts.root);
  if (!node) return nullptr;
  for (std::size_t i = 0; i < parts.names.size(); ++i) {
    if (!node->ready) throw RunTimeError(ErrorNumber::DeviceUnavailable);
    if (node->kind != EntryKind::Directory) return nullptr;
    if (node->locked) throw RunTimeError(ErrorNumber::PathFileAccess);
    node = Child(*node, parts.names[i]);
    if (!node) return nullptr;
    if (node->kind == EntryKind::DirectoryLink && (followLast || i + 1 < parts.names.size())) {
      if (linksLeft == 0) return nullptr;
      const PathParts above{parts.root,
                            {parts.names.begin(), parts.names.begin() + static_cast<std::ptrdiff_t>(i)}};
      node = Find(TakeApart(node->target, above.Text(separator_), separator_), true, linksLeft - 1);
      if (!node) return nullptr;
    }
  }
  if (!node->ready) throw RunTimeError(ErrorNumber::DeviceUnavailable);
  return node;
}

MemoryFileSystem::NodePointer MemoryFileSystem::Directory(const std::string& path) const {
  NodePointer node = Find(Parts(path), true);
  if (!node || node->kind != EntryKind::Directory) throw RunTimeError(ErrorNumber::PathNotFound);
  return node;
}

MemoryFileSystem::NodePointer MemoryFileSystem::Needed(const std::string& path) const {
  NodePointer node = Find(Parts(path), false);
  if (!node) throw RunTimeError(ErrorNumber::FileNotFound, "no " + path);
  return node;
}

std::vector<std::string> MemoryFileSystem::Drives() const {
  std::vector<std::string> drives;
  for (const auto& [root, node] : roots_) drives.push_back(separator_ == '/' ? root : root.substr(0, 2));
  drives.insert(drives.end(), mounts_.begin(), mounts_.end());
  return drives;
}

std::string MemoryFileSystem::DriveOf(const std::string& path) const {
  const PathParts parts = Parts(path);
  if (!roots_.contains(parts.root)) return {};
  if (separator_ != '/') return parts.root.substr(0, 2);
  std::string drive = "/";
  const std::string text = parts.Text(separator_) + "/";
  for (const std::string& mount : mounts_) {
    if (text.starts_with(mount + "/") && mount.size() > drive.size()) drive = mount;
  }
  return drive;
}

std::string MemoryFileSystem::Normalised(const std::string& path) const {
  return Parts(path).Text(separator_);
}

EntryKind MemoryFileSystem::KindSeen(const PathParts& parts, const Node& node) const {
  if (node.kind != EntryKind::DirectoryLink) return node.kind;
  try {
    const NodePointer target = Find(parts, true);
    return target && target->kind == EntryKind::Directory ? EntryKind::DirectoryLink : EntryKind::Other;
  } catch (const RunTimeError&) {
    return EntryKind::Other;
  }
}

std::vector<DirectoryEntry> MemoryFileSystem::ReadDirectory(const std::string& path) const {
  PathParts parts = Parts(path);
  ++reads_[parts.Text(separator_)];
  const NodePointer directory = Directory(path);
  if (directory->locked) throw RunTimeError(ErrorNumber::PathFileAccess);
  std::vector<DirectoryEntry> entries;
  for (const auto& [key, child] : directory->children) {
    parts.names.push_back(child->name);
    const bool hidden = child->hidden || (separator_ == '/' && child->name.starts_with('.'));
    entries.push_back({child->name, KindSeen(parts, *child), hidden});
    parts.names.pop_back();
  }
  return entries;
}

std::uint64_t MemoryFileSystem::DirectoryStamp(const std::string& path) const {
  try {
    return Directory(path)->stamp;
  } catch (const RunTimeError&) {
    return 0;
  }
}

std::optional<FileFacts> MemoryFileSystem::Look(const std::string& path) const {
  try {
    const PathParts parts = Parts(path);
    const NodePointer node = Find(parts, false);
    if (!node) return {};
    const bool hidden = node->hidden || (separator_ == '/' && node->name.starts_with('.'));
    return FileFacts{KindSeen(parts, *node), node->content->size(), node->modified, hidden, node->stamp};
  } catch (const RunTimeError&) {
    return {};
  }
}

std::shared_ptr<const ByteSource> MemoryFileSystem::Open(const std::string& path) const {
  const NodePointer node = Find(Parts(path), true);
  if (!node) throw RunTimeError(ErrorNumber::FileNotFound);
  if (node->kind != EntryKind::File) throw RunTimeError(ErrorNumber::PathFileAccess);
  if (node->locked) throw RunTimeError(ErrorNumber::PermissionDenied);
  return std::make_shared<SharedText>(node->content);
}

MemoryFileSystem::NodePointer MemoryFileSystem::ParentForChange(const PathParts& parts) const {
  if (parts.names.empty()) throw RunTimeError(ErrorNumber::PathFileAccess);
  NodePointer directory = Find(Above(parts), true);
  if (!directory || directory->kind != EntryKind::Directory) throw RunTimeError(ErrorNumber::PathNotFound);
  if (directory->locked) throw RunTimeError(ErrorNumber::PathFileAccess);
  return directory;
}

void MemoryFileSystem::Write(const std::string& path, const Produce& produce) {
  log_.Add("WriteAll " + path);
  const PathParts parts = Parts(path);
  const NodePointer directory = ParentForChange(parts);
  NodePointer file = Find(parts, true);
  if (file && file->kind != EntryKind::File) throw RunTimeError(ErrorNumber::PathFileAccess);
  if (file && (file->readOnly || file->locked)) throw RunTimeError(ErrorNumber::PermissionDenied);
  if (!file && directory->readOnly) throw RunTimeError(ErrorNumber::PathFileAccess);
  const std::uint64_t before = file ? file->content->size() : 0;
  GrowingText content(freeBytes_ ? before + *freeBytes_ : std::numeric_limits<std::uint64_t>::max());
  produce(content);
  if (freeBytes_) *freeBytes_ = *freeBytes_ + before - content.text.size();
  if (!file) file = Put(path, EntryKind::File);
  file->content = std::make_shared<const std::string>(std::move(content.text));
  file->modified = now_();
  Touch(*file);
}

void MemoryFileSystem::WriteOver(const std::string& path, std::string_view content) {
  const PathParts parts = Parts(path);
  const NodePointer directory = ParentForChange(parts);
  const NodePointer file = Find(parts, true);
  if (!file || file->kind != EntryKind::File || file->content->empty()) return WriteOrEmpty(path, content);
  if (file->readOnly || file->locked) throw RunTimeError(ErrorNumber::PermissionDenied);
  if (directory->readOnly) throw RunTimeError(ErrorNumber::PathFileAccess);
  const std::string aside = AsidePath(path);
  log_.Add("Rename " + path + " " + aside);
  directory->children.erase(Key(file->name));
  file->name = Parts(aside).names.back();
  directory->children[Key(file->name)] = file;
  Touch(*directory);
  try {
    WriteOrEmpty(path, content);
  } catch (const RunTimeError& error) {
    throw OldContentKept(error.Number(), aside);
  }
  Remove(aside);
}

void MemoryFileSystem::WriteOrEmpty(const std::string& path, std::string_view content) {
  try {
    WriteAll(path, content);
  } catch (const RunTimeError& error) {
    if (error.Number() == ErrorNumber::DiskFull) Write(path, [](ByteSink&) {});
    throw;
  }
}

void MemoryFileSystem::Remove(const std::string& path) {
  log_.Add("Remove " + path);
  const PathParts parts = Parts(path);
  const NodePointer directory = ParentForChange(parts);
  const NodePointer node = Child(*directory, parts.names.back());
  if (!node) throw RunTimeError(ErrorNumber::FileNotFound);
  if (node->kind == EntryKind::Directory) throw RunTimeError(ErrorNumber::PathFileAccess);
  if (directory->readOnly || node->readOnly) throw RunTimeError(ErrorNumber::PermissionDenied);
  if (freeBytes_) *freeBytes_ += node->content->size();
  directory->children.erase(Key(node->name));
  Touch(*directory);
}

void MemoryFileSystem::MakeDirectory(const std::string& path) {
  log_.Add("MakeDirectory " + path);
  const PathParts parts = Parts(path);
  const NodePointer directory = ParentForChange(parts);
  if (directory->readOnly || Child(*directory, parts.names.back())) {
    throw RunTimeError(ErrorNumber::PathFileAccess);
  }
  Put(path, EntryKind::Directory);
}

MemoryFileSystem::NodePointer MemoryFileSystem::Put(const std::string& path, EntryKind kind) {
  PathParts parts = Parts(path);
  NodePointer directory = Root(parts.root);
  if (!directory) throw RunTimeError(ErrorNumber::PathNotFound, "no drive for " + path);
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
  file->content = std::make_shared<const std::string>(std::move(content));
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
  if (!parts.names.empty()) Touch(*Find(Above(parts), true));
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

void MemoryFileSystem::RemoveTree(const std::string& path) {
  const NodePointer node = Needed(path);
  const PathParts parts = Parts(path);
  if (parts.names.empty()) throw RunTimeError(ErrorNumber::PathFileAccess);
  const NodePointer directory = Find(Above(parts), true);
  directory->children.erase(Key(node->name));
  Touch(*directory);
}

int MemoryFileSystem::ReadsOf(const std::string& path) const {
  const auto found = reads_.find(Normalised(path));
  return found == reads_.end() ? 0 : found->second;
}

}  // namespace lumidex
