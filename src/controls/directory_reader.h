#pragma once
// Reads directories for the directory and file lists, each once per visit: what was read stays valid while
// the directory's stamp stays the same.

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "ports/file_system.h"

namespace lumidex {

class DirectoryReader {
 public:
  struct Listing {
    std::string path;
    std::uint64_t stamp = 0;
    struct Directory {
      std::string name;
      bool isLink = false;
    };
    std::vector<Directory> directories;  // ascending by name
    std::vector<std::string> files;      // as read, without hidden ones
  };
  using Shared = std::shared_ptr<const Listing>;

  explicit DirectoryReader(const FileSystem& files) : files_(files) {}

  // Raises what FileSystem::ReadDirectory raises.
  Shared Read(const std::string& path);

 private:
  // A walk goes down and comes back up, so the last few on the way are what is asked for again.
  static constexpr std::size_t Kept = 64;

  const FileSystem& files_;
  std::list<Shared> recent_;  // newest first
};

}  // namespace lumidex
