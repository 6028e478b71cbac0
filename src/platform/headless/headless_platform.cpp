#include "platform/headless/headless_platform.h"

namespace lumidex {

HeadlessPlatform::HeadlessPlatform(char separator)
    : files(separator, log, [this] { return events.SecondsSince1970(); }), ports{files,     events,  dialogs,
                                                                                 windows,   events,  process,
                                                                                 clipboard, desktop, tray,
                                                                                 popup,     shell,   settings,
                                                                                 loader,    folders, browser,
                                                                                 decoding} {
  popup.nameOf = shell.nameOf = [this](WindowHandle window) { return windows.NameOf(window); };
  const bool drives = separator == '\\';
  process.executableFolder = drives ? "C:\\Lumidex" : "/opt/lumidex";
  folders.desktop = drives ? "C:\\Desktop" : "/home/ada/Desktop";
  folders.documents = drives ? "C:\\My Documents" : "/home/ada/Documents";
  folders.favorites = drives ? "C:\\Favorites" : "/home/ada/Pictures";
  for (const std::string& folder :
       {process.executableFolder, folders.desktop, folders.documents, folders.favorites}) {
    files.AddDirectory(folder);
  }
  // Part of every installation; what is in it is not looked at here.
  files.AddFile(process.executableFolder + separator + "findcomp.avi", "");
}

}  // namespace lumidex
