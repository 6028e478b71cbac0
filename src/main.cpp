// Puts the pieces together: the ports of this system, the windows, and the program on them.

#include <locale>
#include <stdexcept>

#include "core/default_report.h"
#include "forms/WPaper2.h"
#include "imaging/fit.h"
#include "platform/posix/bus_address.h"
#include "platform/posix/decoding_threads.h"
#include "platform/posix/early_picture.h"
#include "platform/posix/kept_picture_area.h"
#include "platform/posix/memory.h"
#include "platform/posix/posix_desktop.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/posix_process.h"
#include "platform/posix/posix_settings_store.h"
#include "platform/posix/posix_shell.h"
#include "platform/posix/posix_special_folders.h"
#include "platform/qt/early_fonts.h"
#include "platform/qt/qt_desktop.h"
#include "platform/qt/session_bus.h"
#include "windows/start_and_exit.h"
#include "windows/windows.h"

namespace {

// Whatever else the program writes does not depend on the user's language.
void UseLanguageForDates() {
  try {
    std::locale::global(std::locale(std::locale::classic(), std::locale(""), std::locale::time));
  } catch (const std::runtime_error&) {
    // A language that is not installed; dates stay English.
  }
}

// The size at which a picture will be shown, as long as the window becomes what it was last. The zoom begins
// at 100 %.
lumidex::DecodingService::ShownSize ShownAsLast(const lumidex::KeptPictureArea& kept) {
  const auto area = kept.Read();
  if (!area) return {};
  return [area = *area](lumidex::Size full) { return ShownIn(area, full, 1); };
}

}  // namespace

int main(int argc, char** argv) {
  using namespace lumidex;
  GiveLargeBlocksBack();
  ShareHeaps();
  SettleSessionBus();
  UseLanguageForDates();
  EarlyFonts fonts;
  PosixFileSystem files(std::chrono::milliseconds(10));
  PosixProcess process(argc, argv, LUMIDEX_INSTALLED_CONTENT);
  DecodingThreads decoding(files);
  const KeptPictureArea area;
  const EarlyPicture early(decoding, process.CommandLine(), ShownAsLast(area));
  QtSessionBus bus;
  DesktopServices services(bus);
  PosixDesktop registry(ReadEnvironment, &services);
  PosixShell shell;
  PosixSettingsStore settings;
  PictureLoader loader(files);
  PosixSpecialFolders folders;
  QtDesktop desktop(argc, argv, {files, process, registry, shell, settings, loader, folders, decoding, bus});
  const auto connecting = ConnectLibrary();
  fonts.LearnNames();

  App app(desktop.GetPlatform());
  desktop.BeforeEnd([&] {
    if (app.lastArea) area.Keep(*app.lastArea);
    // A wallpaper that was asked for last still comes, but no desktop keeps the program from ending.
    services.Finish(std::chrono::seconds(2));
  });
  desktop.Attach(app.Forms());
  WireWindows(app);
  // The conversion of whole lists is a command of the shipped program.
  app.WPaper2.mnuFileBatchConvertImages.Visible = true;
  app.WPaper2.KeepDesign();
  desktop.OnEnd([&app] { EndFromOutside(app); }, [&app] { SaveBeforeLeaving(app); });
  RunEvent(app, [&app] { app.WPaper2.Load(); });
  desktop.Run();
}
