#pragma once
// The files of a POSIX system. Names are bytes; names beginning with a point are the hidden ones.

#include <chrono>

#include "platform/posix/recent_looks.h"
#include "ports/file_system.h"

namespace lumidex {

class PosixFileSystem final : public FileSystem {
 public:
  // What a look at a file has told stays true for a time in which nobody could tell whether the file changed
  // before or after: one step of the program looks several times, and each look is a way to the server of a
  // network folder. What this object itself changes is seen at once.
  explicit PosixFileSystem(std::chrono::nanoseconds unnoticed = {}) : looks_(unnoticed) {}

  char Separator() const override { return '/'; }
  // "/" and what is mounted below /media, /mnt and /run/media.
  std::vector<std::string> Drives() const override;
  std::string DriveOf(const std::string& path) const override;
  std::string CurrentDirectory() const override;
  void ChDir(const std::string& path) override;
  // By the text alone: symbolic links stay in the path.
  std::string Normalised(const std::string& path) const override;
  std::vector<DirectoryEntry> ReadDirectory(const std::string& path) const override;
  std::uint64_t DirectoryStamp(const std::string& path) const override;
  std::optional<FileFacts> Look(const std::string& path) const override;
  std::shared_ptr<const ByteSource> Open(const std::string& path) const override;
  void Write(const std::string& path, const Produce& produce) override;
  void WriteOver(const std::string& path, std::string_view content) override;
  void Remove(const std::string& path) override;
  void MakeDirectory(const std::string& path) override;

 private:
  std::unique_ptr<ByteSink> OpenAtEnd(const std::string& path, bool emptied) override;

  mutable RecentLooks looks_;
};

}  // namespace lumidex
