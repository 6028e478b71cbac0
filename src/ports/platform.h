#pragma once
// Everything the program asks of its platform, in one bundle. `main` and each test make one.

#include "ports/decoding.h"
#include "ports/dialogs.h"
#include "ports/event_queue.h"
#include "ports/file_system.h"
#include "ports/open_picture.h"
#include "ports/services.h"
#include "ports/window_control.h"

namespace lumidex {

struct Platform {
  FileSystem& files;
  EventQueue& events;
  Dialogs& dialogs;
  WindowControl& windows;
  Clock& clock;
  Process& process;
  Clipboard& clipboard;
  Desktop& desktop;
  Tray& tray;
  Popup& popup;
  Shell& shell;
  SettingsStore& settings;
  PictureLoader& loader;
  SpecialFolders& folders;
  Browser& browser;
  DecodingService& decoding;
};

}  // namespace lumidex
