#include "platform/posix/wallpaper/wallpaper_changer.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "base/run_time_error.h"
#include "pictures/picture_data.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/write_file.h"

namespace lumidex {
namespace {

constexpr const char* filePrefix = "wallpaper-";
constexpr const char* nextKey = "Next";
constexpr const char* filesSection = "Files";
constexpr const char* hasKey = "Remembered";
constexpr const char* beforeKey = "Before";

// Gives the file a second name; a copy where the folders lie on different disks.
bool LinkOrCopy(const std::string& from, const std::string& to) {
  unlink(to.c_str());
  if (link(from.c_str(), to.c_str()) == 0) return true;
  try {
    const auto source = PosixFileSystem().Open(from);
    WriteFile(to, [&](ByteSink& sink) {
      constexpr std::size_t blockBytes = std::size_t{1} << 20;
      std::vector<std::uint8_t> block(blockBytes);
      for (std::uint64_t at = 0; at < source->Size();) {
        const std::size_t count = source->ReadAt(at, block);
        if (count == 0) break;
        sink.Write({block.data(), count});
        at += count;
      }
    });
    return true;
  } catch (const RunTimeError&) {
    return false;
  }
}

}  // namespace

WallpaperChanger::WallpaperChanger(std::vector<std::unique_ptr<WallpaperBackend>> ways, std::string folder)
    : ways_(std::move(ways)), folder_(std::move(folder)), kept_(folder_ + "/before.ini") {}

std::string WallpaperChanger::TakeOver(const std::string& file) {
  if (!MakeFolders(folder_)) return {};
  const bool second = kept_.Value(filesSection, nextKey).value_or("") == "B";
  const auto point = file.rfind('.');
  const std::string extension = point == std::string::npos ? "" : file.substr(point);
  const std::string ours = folder_ + "/" + filePrefix + (second ? "B" : "A") + extension;
  if (!LinkOrCopy(file, ours)) return {};
  kept_.SetValue(filesSection, nextKey, second ? "A" : "B");
  return ours;
}

bool WallpaperChanger::Set(const std::string& file, WallpaperMode mode) {
  const std::string ours = TakeOver(file);
  if (ours.empty()) return false;
  for (const auto& way : ways_) {
    // Kept before the change, so that it is there whatever happens after it.
    if (!way->ShowsOurs()) {
      const auto before = way->Remember();
      kept_.SetValue(way->Name(), hasKey, before ? "1" : "0");
      kept_.SetValue(way->Name(), beforeKey, before.value_or(""));
    }
    if (way->Set(ours, mode)) return true;
  }
  return false;
}

void WallpaperChanger::Clear() {
  for (const auto& way : ways_) {
    if (!way->ShowsOurs()) continue;
    std::optional<std::string> before;
    if (kept_.Value(way->Name(), hasKey) == "1") before = kept_.Value(way->Name(), beforeKey);
    if (way->Restore(before)) RemoveOurs();
  }
}

void WallpaperChanger::RemoveOurs() const {
  DIR* directory = opendir(folder_.c_str());
  if (!directory) return;
  while (const dirent* entry = readdir(directory)) {
    const std::string name = entry->d_name;
    if (name.starts_with(filePrefix)) unlink((folder_ + "/" + name).c_str());
  }
  closedir(directory);
}

}  // namespace lumidex
