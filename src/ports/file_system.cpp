#include "ports/file_system.h"

#include <algorithm>
#include <span>

#include "base/text.h"
#include "pictures/picture_data.h"

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

std::string FileSystem::WithMark(const std::string& path, const std::string& mark) const {
  const auto nameStart = path.rfind(Separator()) + 1;  // npos + 1 is 0
  const auto point = path.rfind('.');
  const bool hasExtension = point != std::string::npos && point > nameStart;
  return hasExtension ? path.substr(0, point) + mark + path.substr(point) : path + mark;
}

std::string FileSystem::FreePath(const std::string& path) const {
  std::string free = path;
  for (int number = 2; Look(free); ++number) free = WithMark(path, Number(number));
  return free;
}

std::string FileSystem::AsidePath(const std::string& path) const {
  return FreePath(WithMark(path, ".Old"));
}

void FileSystem::OpenNumber(int number, const std::string& path, bool emptied) {
  std::string whole = Normalised(path);
  for (const OpenFile& file : open_) {
    if (file.number == number || file.path == whole) {
      throw RunTimeError(ErrorNumber::FileAlreadyOpen).About(path);
    }
  }
  auto sink = OpenAtEnd(path, emptied);
  open_.push_back({number, std::move(whole), std::move(sink)});
}

void FileSystem::Print(int number, std::string_view text) {
  const auto file = std::ranges::find(open_, number, &OpenFile::number);
  if (file == open_.end()) throw RunTimeError(ErrorNumber::BadFileNumber);
  WorkOn(file->path, [&] { file->sink->WriteText(text); });
}

}  // namespace lumidex
