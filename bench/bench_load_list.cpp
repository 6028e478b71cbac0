// How long a list file of 30,000 entries takes to load, without a window system; the limit is 300 ms.

#include <chrono>
#include <cstdio>

#include "base/delimited.h"
#include "base/text.h"
#include "forms/WPaper2.h"
#include "lists/list_files.h"
#include "platform/headless/headless_platform.h"
#include "windows/windows.h"

int main() {
  using namespace lumidex;
  constexpr int entries = 30000;
  constexpr double limit = 300.0;
  HeadlessPlatform headless;
  App app(headless.ports);
  WireWindows(app);
  std::string text = "[File List]\r\nNo. Of Pictures=" + Number(entries) + "\r\nCurrent Index=1\r\n";
  for (int i = 0; i < entries; ++i) {
    text += DelimitedItem(Number(i) + " =| C:\\My Documents\\Pictures\\Album " + Number(i / 100) + "\\img" +
                          Number(i) + ".jpg") +
            "\r\n";
  }
  text += "*** End of List ***\r\n";
  headless.files.AddFile("C:\\Lists\\long.lst", text);
  const auto start = std::chrono::steady_clock::now();
  ListLoad load(app);
  LoadUserList(app, load, "C:\\Lists\\long.lst");
  const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
  std::printf("%d entries in %.1f ms, %.2f of the limit of %.0f ms\n", app.WPaper2.LstRight.ListCount(),
              taken.count(), taken.count() / limit, limit);
  return app.WPaper2.LstRight.ListCount() == entries ? 0 : 1;
}
