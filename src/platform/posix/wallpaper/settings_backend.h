#pragma once
// Desktops that keep their wallpaper in a settings schema: GNOME and those that read its schema, Cinnamon,
// MATE, Deepin.

#include "platform/posix/wallpaper/backend.h"

namespace lumidex {

struct SettingsSchema {
  std::string name;
  std::string pictureKey;
  std::string darkPictureKey;        // empty where there is none; newer ones only have it
  bool plainPath = false;            // the picture is told as a path, not as an address
  bool hasNone = true;               // "none" is one of the options
  std::string slideshowSchema = {};  // where the desktop can change the picture by itself
};

extern const SettingsSchema gnomeSchema, cinnamonSchema, mateSchema, deepinSchema;

// The schema is looked up through the desktop's own tool: where there is none, nothing is set and nothing
// breaks.
class SettingsBackend final : public WallpaperBackend {
 public:
  SettingsBackend(const DesktopTools& tools, const SettingsSchema& schema) : tools_(tools), schema_(schema) {}
  std::string Name() const override { return schema_.name; }
  bool ShowsOurs() override;
  std::optional<std::string> Remember() override;
  bool Set(const std::string& file, WallpaperMode mode) override;
  bool Restore(const std::optional<std::string>& remembered) override;
  // As the schema has it now, without its quotes; empty when there is none.
  std::string ShownPicture() const;

 private:
  struct Key {
    std::string schema, name;
  };
  // Those of the schema's keys that this version of the desktop has.
  std::vector<Key> Keys() const;
  bool HasKey(const std::string& schema, const std::string& key) const;
  std::optional<std::string> Get(const Key& key) const;
  bool IsDefault(const Key& key, const std::string& value) const;
  bool Write(const Key& key, const std::string& value) const;

  const DesktopTools& tools_;
  const SettingsSchema& schema_;
};

}  // namespace lumidex
