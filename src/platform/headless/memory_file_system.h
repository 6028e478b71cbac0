#pragma once
// A file system in memory, of either kind: drive letters with '\' and names that differ in case alone being
// the same, or one tree with '/' and names of any bytes. A test builds it, changes it behind the program's
// back, and counts how often directories were read.

#include <functional>
#include <map>

#include "platform/headless/call_log.h"
#include "platform/headless/memory_paths.h"
#include "ports/file_system.h"

namespace lumidex {

class MemoryFileSystem : public FileSystem {
 public:
  // `separator` is '\' (begins with the drive C:) or '/'. `now` gives the time of written files in seconds
  // since 1970.
  MemoryFileSystem(char separator, CallLog& log, std::function<std::int64_t()> now);
  ~MemoryFileSystem() override;

  char Separator() const override { return separator_; }
  std::vector<std::string> Drives() const override;
  std::string DriveOf(const std::string& path) const override;
  std::string CurrentDirectory() const override { return current_; }
  void ChDir(const std::string& path) override;
  std::string Normalised(const std::string& path) const override;
  std::vector<DirectoryEntry> ReadDirectory(const std::string& path) const override;
  std::uint64_t DirectoryStamp(const std::string& path) const override;
  std::optional<FileFacts> Look(const std::string& path) const override;
  std::shared_ptr<const ByteSource> Open(const std::string& path) const override;
  void Write(const std::string& path, const Produce& produce) override;
  void WriteOver(const std::string& path, std::string_view content) override;
  void Remove(const std::string& path) override;
  void MakeDirectory(const std::string& path) override;

  // Building and changing. All but SetCurrentDirectory make the directories above that are missing; what is
  // not there to be changed raises FileNotFound.

  // "D:", or a directory where something is mounted. What is not ready raises DeviceUnavailable when read.
  void AddDrive(const std::string& name, bool ready = true);
  void AddDirectory(const std::string& path);
  void AddFile(const std::string& path, std::string content);
  // A symbolic link to a directory, which need not exist.
  void AddLink(const std::string& path, const std::string& target);
  // A device, a pipe.
  void AddOther(const std::string& path);
  void SetHidden(const std::string& path, bool hidden);
  // A directory that can't be entered, a file that can't be opened.
  void SetLocked(const std::string& path, bool locked);
  // A directory in which nothing can be made or removed, a file that can't be replaced.
  void SetReadOnly(const std::string& path, bool readOnly);
  void SetModified(const std::string& path, std::int64_t secondsSince1970);
  // The length that a look at the file tells, whatever it holds; makes the file when it is missing.
  void SetReportedSize(const std::string& path, std::uint64_t bytes);
  // With everything below it.
  void RemoveTree(const std::string& path);
  void SetCurrentDirectory(const std::string& path) { current_ = Normalised(path); }
  // Bytes that can still be written; nothing is no limit.
  void SetFreeBytes(std::optional<std::uint64_t> bytes) { freeBytes_ = bytes; }

  // How often ReadDirectory was called for the directory.
  int ReadsOf(const std::string& path) const;

 private:
  struct Node;
  using NodePointer = std::shared_ptr<Node>;

  PathParts Parts(const std::string& path) const { return TakeApart(path, current_, separator_); }
  NodePointer Root(const std::string& root) const;
  // Null when there is no such thing. Links on the way are followed, and the last name's when `followLast`.
  // Raises DeviceUnavailable and PathFileAccess for what stands on the way.
  NodePointer Find(const PathParts& parts, bool followLast, int linksLeft = 40) const;
  NodePointer Directory(const std::string& path) const;
  NodePointer Child(const Node& directory, const std::string& name) const;
  NodePointer Needed(const std::string& path) const;
  NodePointer Put(const std::string& path, EntryKind kind);
  // The directory above, for something that is to be made or removed.
  NodePointer ParentForChange(const PathParts& parts) const;
  void WriteOrEmpty(const std::string& path, std::string_view content);
  // The file at a path, for one that is to be written; null when there is none yet.
  NodePointer FileForChange(const PathParts& parts) const;
  std::unique_ptr<ByteSink> OpenAtEnd(const std::string& path, bool emptied) override;
  class EndOfFile;
  EntryKind KindSeen(const PathParts& parts, const Node& node) const;
  // A name as it is compared with others.
  std::string Key(const std::string& name) const;
  void Touch(Node& directory);

  const char separator_;
  CallLog& log_;
  const std::function<std::int64_t()> now_;
  std::map<std::string, NodePointer> roots_;
  std::vector<std::string> mounts_;
  std::string current_;
  std::optional<std::uint64_t> freeBytes_;
  std::uint64_t lastStamp_ = 0;
  mutable std::map<std::string, int> reads_;
};

}  // namespace lumidex
