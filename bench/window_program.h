#pragma once
// The program with its own windows, for benchmarks that act as its user does.

#include "forms/WPaper2.h"
#include "platform/posix/decoding_threads.h"
#include "platform/posix/memory.h"
#include "platform/posix/posix_desktop.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/posix_process.h"
#include "platform/posix/posix_settings_store.h"
#include "platform/posix/posix_shell.h"
#include "platform/posix/posix_special_folders.h"
#include "platform/qt/qt_desktop.h"
#include "platform/qt/session_bus.h"
#include "windows/windows.h"

namespace lumidex {

struct Program {
  Program(int& argc, char** argv)
      : process(argc, argv, ""),
        decoding(files),
        desktop(argc, argv, {files, process, registry, shell, settings, loader, folders, decoding, bus}),
        app(desktop.GetPlatform()) {
    GiveLargeBlocksBack();
    ShareHeaps();
    desktop.Attach(app.Forms());
    WireWindows(app);
    app.WPaper2.OnLoad = nullptr;
    app.WPaper2.Show();
  }
  PosixFileSystem files{std::chrono::milliseconds(10)};
  PosixProcess process;
  DecodingThreads decoding;
  QtSessionBus bus;
  PosixDesktop registry;
  PosixShell shell;
  PosixSettingsStore settings;
  PictureLoader loader{files};
  PosixSpecialFolders folders;
  QtDesktop desktop;
  App app;
};

}  // namespace lumidex
