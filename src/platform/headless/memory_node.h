#pragma once
// One file, directory or link of the file system in memory.

#include "platform/headless/memory_file_system.h"

namespace lumidex {

struct MemoryFileSystem::Node {
  std::string name;
  EntryKind kind = EntryKind::File;
  // Written in place only as long as nobody reads it.
  std::shared_ptr<std::string> content = std::make_shared<std::string>();
  std::optional<std::uint64_t> reportedSize;
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

}  // namespace lumidex
