#pragma once
// A whole platform for tests: simulated time, scripted dialogs, files in memory, and a log of every call.

#include "platform/headless/inline_decoding.h"
#include "platform/headless/memory_desktop.h"
#include "platform/headless/memory_file_system.h"
#include "platform/headless/memory_services.h"
#include "platform/headless/memory_tray.h"
#include "platform/headless/scripted_dialogs.h"
#include "platform/headless/simulated_events.h"
#include "platform/headless/watched_windows.h"

namespace lumidex {

struct HeadlessPlatform {
  // `separator` is '\' or '/'. The program's folder and the three special folders exist from the start.
  explicit HeadlessPlatform(char separator = '\\');
  HeadlessPlatform(const HeadlessPlatform&) = delete;
  HeadlessPlatform& operator=(const HeadlessPlatform&) = delete;

  CallLog log;
  SimulatedEvents events{log};
  MemoryFileSystem files;
  ScriptedDialogs dialogs{log};
  WatchedWindows windows{log};
  ScriptedProcess process;
  MemoryClipboard clipboard{log};
  MemoryDesktop desktop{log};
  MemoryTray tray{log};
  MemoryPopup popup{log, events};
  MemoryShell shell{log};
  MemorySettingsStore settings{log};
  MemoryPictureLoader loader{files, log};
  FixedFolders folders;
  MemoryBrowser browser{log};
  InlineDecoding decoding{files};

  // All of them as the program is given them.
  Platform ports;
};

}  // namespace lumidex
