// A list file, whatever it holds: however far its reading gets, the list that is then there comes back whole
// from a file that the program writes.

#include <cstdint>
#include <cstdlib>

#include "base/run_time_error.h"
#include "core/list_text.h"
#include "forms/WPaper2.h"
#include "lists/list_files.h"
#include "platform/headless/headless_platform.h"
#include "windows/windows.h"

namespace {

using namespace lumidex;

struct Program {
  explicit Program(const std::string& list) {
    WireWindows(app);
    app.AppPath = "/opt/lumidex/";
    platform.files.AddFile("/opt/lumidex/Lumidex.Lst", list);
  }
  void Load() {
    ListLoad load(app);
    LoadStandardList(app, load);
    load.Stands();
  }
  HeadlessPlatform platform{'/'};
  App app{platform.ports};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Program first(std::string(data, data + size));
  IgnoreError([&] { first.Load(); });
  const ListBox& list = first.app.WPaper2.LstRight;
  Program second(ListFileText(first.app));
  second.Load();
  const ListBox& again = second.app.WPaper2.LstRight;
  if (again.ListCount() != list.ListCount()) std::abort();
  for (int position = 0; position < list.ListCount(); ++position) {
    if (again.List(position) != list.List(position)) std::abort();
  }
  return 0;
}
