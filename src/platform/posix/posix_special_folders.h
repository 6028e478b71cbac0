#pragma once
// The user's desktop, documents and pictures, as the desktop has written them into user-dirs.dirs.

#include "platform/posix/environment.h"
#include "ports/services.h"

namespace lumidex {

class PosixSpecialFolders final : public SpecialFolders {
 public:
  explicit PosixSpecialFolders(Environment environment = ReadEnvironment)
      : environment_(std::move(environment)) {}
  std::string Desktop() const override { return Folder("XDG_DESKTOP_DIR", "Desktop"); }
  std::string Documents() const override { return Folder("XDG_DOCUMENTS_DIR", "Documents"); }
  // Favourites are a thing of another desktop: here they are the pictures.
  std::string Favorites() const override { return Folder("XDG_PICTURES_DIR", "Pictures"); }

 private:
  // The named folder, else the one of that name in the home folder, else the home folder.
  std::string Folder(const std::string& key, const std::string& usualName) const;
  Environment environment_;
};

}  // namespace lumidex
