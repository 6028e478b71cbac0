#pragma once
// The files of the platform. Paths use `Separator()`; failures raise RunTimeError with the number that the
// program's own traps know (53, 57, 58, 61, 68, 70, 75, 76) and with the path.

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/run_time_error.h"
#include "pictures/byte_sink.h"

namespace lumidex {

class ByteSource;

enum class EntryKind {
  File,
  Directory,
  DirectoryLink,  // a symbolic link to a directory: shown, but never descended into by a search
  Other           // a device, a pipe, a socket, a dangling link
};

struct DirectoryEntry {
  std::string name;
  EntryKind kind = EntryKind::File;
  bool hidden = false;
};

struct FileFacts {
  EntryKind kind = EntryKind::File;
  std::uint64_t size = 0;     // bytes
  std::int64_t modified = 0;  // seconds since 1970, local conversions are the caller's
  bool hidden = false;        // hidden or system
  std::uint64_t stamp = 0;    // changes with the file and its content; 0 when that can't be told
};

// A file could not be written after what it held had stepped aside.
class OldContentKept : public RunTimeError {
 public:
  // `kept` is where it stands now.
  OldContentKept(const RunTimeError& error, std::string kept) : RunTimeError(error), kept_(std::move(kept)) {}
  const std::string& KeptPath() const { return kept_; }

 private:
  std::string kept_;
};

class FileSystem {
 public:
  virtual ~FileSystem() = default;

  virtual char Separator() const = 0;
  // The places that a drive list offers: "C:" or "/" and what is mounted below it.
  virtual std::vector<std::string> Drives() const = 0;
  // The drive that a path lies on, one of Drives(); empty when on none.
  virtual std::string DriveOf(const std::string& path) const = 0;
  virtual std::string CurrentDirectory() const = 0;
  // Raises PathNotFound when there is no such directory and PathFileAccess when it can not be entered.
  virtual void ChDir(const std::string& path) = 0;
  // Absolute, without "." and "..", without a separator at the end (a root keeps its own).
  virtual std::string Normalised(const std::string& path) const = 0;

  // Unsorted, without "." and "..". Raises PathNotFound when there is no such directory and PathFileAccess
  // when it can not be entered.
  virtual std::vector<DirectoryEntry> ReadDirectory(const std::string& path) const = 0;
  // Changes when the directory's content does; 0 when the directory is gone.
  virtual std::uint64_t DirectoryStamp(const std::string& path) const = 0;
  // Nothing when there is no such thing or the lookup fails.
  virtual std::optional<FileFacts> Look(const std::string& path) const = 0;

  // Raises FileNotFound, PermissionDenied or PathFileAccess; only regular files open.
  virtual std::shared_ptr<const ByteSource> Open(const std::string& path) const = 0;
  std::string ReadAll(const std::string& path) const;
  // Replaces the file's content, or makes the file. Raises PathNotFound, PathFileAccess, PermissionDenied or
  // DiskFull; the old content stands then.
  void WriteAll(const std::string& path, std::string_view content);
  // The same with the content as `produce` gives it to the sink, so that it need not be held whole; what
  // `produce` raises keeps the old content too.
  using Produce = std::function<void(ByteSink& sink)>;
  virtual void Write(const std::string& path, const Produce& produce) = 0;
  // The same for a file that is gone the moment it is opened. What it held steps aside first, by a rename to
  // AsidePath, and goes when the new content is complete. Where writing fails after that the file stays
  // empty, so that others have the room, and OldContentKept is raised with the number of the failure.
  virtual void WriteOver(const std::string& path, std::string_view content) = 0;
  virtual void Remove(const std::string& path) = 0;
  virtual void MakeDirectory(const std::string& path) = 0;

  // `path`, or where that is taken the first of "Name2.ext", "Name3.ext" and so on that is not.
  std::string FreePath(const std::string& path) const;
  // A free path "Name.Old.ext" beside "Name.ext".
  std::string AsidePath(const std::string& path) const;

  // Files that are written piece by piece under a number, and stay open until that number is closed. Opening
  // for output empties the file; both make it when it is missing. They raise FileAlreadyOpen for a number in
  // use and for a file that is open under another one, PathNotFound, PermissionDenied, and PathFileAccess for
  // what can't be opened to be written.
  void OpenForOutput(int number, const std::string& path) { OpenNumber(number, path, true); }
  void OpenForAppend(int number, const std::string& path) { OpenNumber(number, path, false); }
  // What is printed stands in the file at once. Raises BadFileNumber for a number that is not open, and
  // DiskFull.
  void Print(int number, std::string_view text);
  // Closing a number that is not open does nothing.
  void Close(int number) {
    std::erase_if(open_, [number](const OpenFile& file) { return file.number == number; });
  }

 private:
  // Writes behind what the file holds. Raises as the two above say.
  virtual std::unique_ptr<ByteSink> OpenAtEnd(const std::string& path, bool emptied) = 0;
  void OpenNumber(int number, const std::string& path, bool emptied);
  std::string WithMark(const std::string& path, const std::string& mark) const;

  struct OpenFile {
    int number = 0;
    std::string path;
    std::unique_ptr<ByteSink> sink;
  };
  std::vector<OpenFile> open_;
};

}  // namespace lumidex
