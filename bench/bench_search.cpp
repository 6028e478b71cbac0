// bench_search DIRECTORY [ROUNDS]: the directory search, list filled and sorted, with no window behind it,
// against the bare walk: getdents64 with one buffer and no sorting. Both in turn in one process; prints the
// medians and their ratio, then the time that 32,767 entries take into a sorted list.

#include <dirent.h>
#include <fcntl.h>
#include <strings.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <vector>

#include "base/text.h"
#include "forms/SelectPictureDirectoryForm.h"
#include "forms/WPaper2.h"
#include "lists/directory_search.h"
#include "platform/headless/headless_platform.h"
#include "platform/posix/posix_file_system.h"
#include "timing.h"
#include "windows/windows.h"

namespace {

using namespace lumidex;

constexpr auto endings = {".jpg",  ".jpeg", ".png", ".gif", ".bmp", ".tif",
                          ".tiff", ".ppm",  ".pcx", ".tga", ".ras"};

struct BareEntry {
  std::uint64_t inode;
  std::int64_t offset;
  unsigned short length;
  unsigned char type;
  char name[1];
};

bool IsPicture(const char* name) {
  const char* point = std::strrchr(name, '.');
  return point &&
         std::ranges::any_of(endings, [&](const char* ending) { return strcasecmp(point, ending) == 0; });
}

void BareWalk(int parent, const char* name, long& found) {
  const int directory = openat(parent, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW);
  if (directory < 0) return;
  std::vector<char> buffer(65536);
  for (long bytes; (bytes = syscall(SYS_getdents64, directory, buffer.data(), buffer.size())) > 0;) {
    for (long at = 0; at < bytes;) {
      const auto* entry = reinterpret_cast<const BareEntry*>(buffer.data() + at);
      at += entry->length;
      if (entry->type != DT_DIR) {
        found += IsPicture(entry->name) ? 1 : 0;
      } else if (std::strcmp(entry->name, ".") != 0 && std::strcmp(entry->name, "..") != 0) {
        BareWalk(directory, entry->name, found);
      }
    }
  }
  close(directory);
}

struct Search {
  Search() { WireWindows(app); }
  HeadlessPlatform headless{'/'};
  PosixFileSystem files{std::chrono::milliseconds(10)};  // as the program has it
  Platform ports{files,           headless.events,  headless.dialogs,   headless.windows,
                 headless.events, headless.process, headless.clipboard, headless.desktop,
                 headless.tray,   headless.popup,   headless.shell,     headless.settings,
                 headless.loader, headless.folders, headless.browser,   headless.decoding};
  App app{ports};

  int Run(const std::string& directory) {
    app.WPaper2.LstLeft.Clear();
    app.SelectPictureDirectoryForm.Dir1.SetPath(directory);
    SearchSubFolders(app);
    // Looking at an entry brings the list into its order.
    return app.WPaper2.LstLeft.List(0).empty() ? 0 : app.WPaper2.LstLeft.ListCount();
  }
};

double FillSortedList() {
  HeadlessPlatform platform('/');
  App app(platform.ports);
  std::vector<std::string> paths;
  for (int i = 0; i < ListBox::Capacity; ++i) {
    paths.push_back("/home/someone/Pictures/holiday/" + Number(i * 7919 % ListBox::Capacity) + ".jpg");
  }
  return Milliseconds([&] {
    for (const std::string& path : paths) app.WPaper2.LstLeft.AddItem(path);
    if (app.WPaper2.LstLeft.List(0).empty()) std::abort();
  });
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) return 2;
  const std::string directory = argv[1];
  const int rounds = argc > 2 ? std::max(1, std::atoi(argv[2])) : 11;
  std::vector<double> bare, searched, filled;
  long bareFound = 0;
  int found = 0;
  for (int round = 0; round < rounds; ++round) {
    bareFound = 0;
    bare.push_back(Milliseconds([&] { BareWalk(AT_FDCWD, directory.c_str(), bareFound); }));
    Search search;
    searched.push_back(Milliseconds([&] { found = search.Run(directory); }));
    filled.push_back(FillSortedList());
  }
  std::printf("bare walk      %8.1f ms  %ld files\n", Median(bare), bareFound);
  std::printf("search         %8.1f ms  %d entries\n", Median(searched), found);
  std::printf("ratio          %8.2f\n", Median(searched) / Median(bare));
  std::printf("sorted list    %8.1f ms  for %d entries\n", Median(filled), ListBox::Capacity);
}
