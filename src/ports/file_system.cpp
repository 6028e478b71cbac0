#include "ports/file_system.h"

#include <span>

#include "base/run_time_error.h"

namespace lumidex {

std::string FileSystem::ReadAll(const std::string& path) const {
  const auto source = Open(path);
  std::string content(static_cast<std::size_t>(source->Size()), '\0');
  auto* bytes = reinterpret_cast<std::uint8_t*>(content.data());
  content.resize(source->ReadAt(0, {bytes, content.size()}));
  return content;
}

void FileSystem::WriteAll(const std::string& path, std::string_view content) {
  Write(path, [content](ByteSink& sink) { sink.WriteText(content); });
}

}  // namespace lumidex
