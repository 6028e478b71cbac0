#include "platform/headless/memory_file_system.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "base/run_time_error.h"
#include "base/text.h"
#include "pictures/picture_data.h"
#include "platform/headless/memory_node.h"

namespace lumidex {

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
  GrowingText(const std::string& path, std::uint64_t most) : path_(path), most_(most) {}
  void Write(std::span<const std::uint8_t> bytes) override {
    if (bytes.size() > most_ - text.size()) throw RunTimeError(ErrorNumber::DiskFull).About(path_);
    text.append(bytes.begin(), bytes.end());
  }
  std::string text;

 private:
  const std::string& path_;
  std::uint64_t most_;
};

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
    if (!node->ready) throw RunTimeError(ErrorNumber::DeviceUnavailable).About(parts.Text(separator_));
    if (node->kind != EntryKind::Directory) return nullptr;
    if (node->locked) throw RunTimeError(ErrorNumber::PathFileAccess).About(parts.Text(separator_));
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
  if (!node->ready) throw RunTimeError(ErrorNumber::DeviceUnavailable).About(parts.Text(separator_));
  return node;
}

MemoryFileSystem::NodePointer MemoryFileSystem::Directory(const std::string& path) const {
  NodePointer node = Find(Parts(path), true);
  if (!node || node->kind != EntryKind::Directory) throw RunTimeError(ErrorNumber::PathNotFound).About(path);
  return node;
}

MemoryFileSystem::NodePointer MemoryFileSystem::Needed(const std::string& path) const {
  NodePointer node = Find(Parts(path), false);
  if (!node) throw RunTimeError(ErrorNumber::FileNotFound).About(path);
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

void MemoryFileSystem::ChDir(const std::string& path) {
  log_.Add("ChDir " + path);
  if (Directory(path)->locked) throw RunTimeError(ErrorNumber::PathFileAccess).About(path);
  current_ = Normalised(path);
}

std::vector<DirectoryEntry> MemoryFileSystem::ReadDirectory(const std::string& path) const {
  PathParts parts = Parts(path);
  ++reads_[parts.Text(separator_)];
  const NodePointer directory = Directory(path);
  if (directory->locked) throw RunTimeError(ErrorNumber::PathFileAccess).About(path);
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
    const std::uint64_t size = node->reportedSize.value_or(node->content->size());
    return FileFacts{KindSeen(parts, *node), size, node->modified, hidden, node->stamp};
  } catch (const RunTimeError&) {
    return {};
  }
}

std::shared_ptr<const ByteSource> MemoryFileSystem::Open(const std::string& path) const {
  const NodePointer node = Find(Parts(path), true);
  if (!node) throw RunTimeError(ErrorNumber::FileNotFound).About(path);
  if (node->kind != EntryKind::File) throw RunTimeError(ErrorNumber::PathFileAccess).About(path);
  if (node->locked) throw RunTimeError(ErrorNumber::PermissionDenied).About(path);
  return std::make_shared<SharedText>(node->content);
}

MemoryFileSystem::NodePointer MemoryFileSystem::ParentForChange(const PathParts& parts) const {
  if (parts.names.empty()) throw RunTimeError(ErrorNumber::PathFileAccess).About(parts.Text(separator_));
  NodePointer directory = Find(parts.Above(), true);
  if (!directory || directory->kind != EntryKind::Directory)
    throw RunTimeError(ErrorNumber::PathNotFound).About(parts.Text(separator_));
  if (directory->locked) throw RunTimeError(ErrorNumber::PathFileAccess).About(parts.Text(separator_));
  return directory;
}

MemoryFileSystem::NodePointer MemoryFileSystem::FileForChange(const PathParts& parts) const {
  const NodePointer directory = ParentForChange(parts);
  NodePointer file = Find(parts, true);
  if (file && file->kind != EntryKind::File)
    throw RunTimeError(ErrorNumber::PathFileAccess).About(parts.Text(separator_));
  if (!file && directory->readOnly)
    throw RunTimeError(ErrorNumber::PathFileAccess).About(parts.Text(separator_));
  return file;
}

void MemoryFileSystem::Write(const std::string& path, const Produce& produce) {
  log_.Add("WriteAll " + path);
  NodePointer file = FileForChange(Parts(path));
  if (file && (file->readOnly || file->locked)) throw RunTimeError(ErrorNumber::PermissionDenied).About(path);
  const std::uint64_t before = file ? file->content->size() : 0;
  GrowingText content(path, freeBytes_ ? before + *freeBytes_ : std::numeric_limits<std::uint64_t>::max());
  produce(content);
  if (freeBytes_) *freeBytes_ = *freeBytes_ + before - content.text.size();
  if (!file) file = Put(path, EntryKind::File);
  file->content = std::make_shared<std::string>(std::move(content.text));
  file->reportedSize.reset();
  file->modified = now_();
  Touch(*file);
}

// What is written behind a file's content, also when the file has been removed meanwhile.
class MemoryFileSystem::EndOfFile final : public ByteSink {
 public:
  EndOfFile(MemoryFileSystem& files, std::string path, NodePointer file)
      : files_(files), path_(std::move(path)), file_(std::move(file)) {}
  void Write(std::span<const std::uint8_t> bytes) override {
    auto& free = files_.freeBytes_;
    if (free && bytes.size() > *free) throw RunTimeError(ErrorNumber::DiskFull).About(path_);
    if (free) *free -= bytes.size();
    if (file_->content.use_count() > 1) file_->content = std::make_shared<std::string>(*file_->content);
    file_->content->append(bytes.begin(), bytes.end());
    file_->modified = files_.now_();
    files_.Touch(*file_);
  }

 private:
  MemoryFileSystem& files_;
  const std::string path_;
  NodePointer file_;
};

std::unique_ptr<ByteSink> MemoryFileSystem::OpenAtEnd(const std::string& path, bool emptied) {
  log_.Add((emptied ? "OpenForOutput " : "OpenForAppend ") + path);
  NodePointer file = FileForChange(Parts(path));
  if (file && file->readOnly) throw RunTimeError(ErrorNumber::PathFileAccess).About(path);
  if (file && file->locked) throw RunTimeError(ErrorNumber::PermissionDenied).About(path);
  if (!file) file = Put(path, EntryKind::File);
  if (emptied) {
    if (freeBytes_) *freeBytes_ += file->content->size();
    file->content = std::make_shared<std::string>();
    Touch(*file);
  }
  return std::make_unique<EndOfFile>(*this, path, file);
}

void MemoryFileSystem::WriteOver(const std::string& path, std::string_view content) {
  const PathParts parts = Parts(path);
  const NodePointer directory = ParentForChange(parts);
  const NodePointer file = Find(parts, true);
  if (!file || file->kind != EntryKind::File || file->content->empty()) return WriteOrEmpty(path, content);
  if (file->readOnly || file->locked) throw RunTimeError(ErrorNumber::PermissionDenied).About(path);
  if (directory->readOnly) throw RunTimeError(ErrorNumber::PathFileAccess).About(path);
  const std::string aside = AsidePath(path);
  log_.Add("Rename " + path + " " + aside);
  directory->children.erase(Key(file->name));
  file->name = Parts(aside).names.back();
  directory->children[Key(file->name)] = file;
  Touch(*directory);
  try {
    WriteOrEmpty(path, content);
  } catch (const RunTimeError& error) {
    throw OldContentKept(error, aside);
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
  if (!node) throw RunTimeError(ErrorNumber::FileNotFound).About(path);
  if (node->kind == EntryKind::Directory) throw RunTimeError(ErrorNumber::PathFileAccess).About(path);
  if (directory->readOnly || node->readOnly) throw RunTimeError(ErrorNumber::PermissionDenied).About(path);
  if (freeBytes_) *freeBytes_ += node->content->size();
  directory->children.erase(Key(node->name));
  Touch(*directory);
}

void MemoryFileSystem::MakeDirectory(const std::string& path) {
  log_.Add("MakeDirectory " + path);
  const PathParts parts = Parts(path);
  const NodePointer directory = ParentForChange(parts);
  if (directory->readOnly || Child(*directory, parts.names.back())) {
    throw RunTimeError(ErrorNumber::PathFileAccess).About(path);
  }
  Put(path, EntryKind::Directory);
}

}  // namespace lumidex
