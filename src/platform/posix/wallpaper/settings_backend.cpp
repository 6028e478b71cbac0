#include "platform/posix/wallpaper/settings_backend.h"

#include "platform/posix/wallpaper/lines.h"

namespace lumidex {
namespace {

constexpr const char* optionsKey = "picture-options";
constexpr const char* slideshowKey = "slideshow-enabled";

const char* Option(WallpaperMode mode) {
  switch (mode) {
    case WallpaperMode::Centered:
      return "centered";
    case WallpaperMode::Stretched:
      return "stretched";
    default:
      return "wallpaper";
  }
}

// A text as the tool reads it.
std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char character : text) {
    if (character == '\'' || character == '\\') quoted += '\\';
    quoted += character;
  }
  return quoted + "'";
}

// A text as the tool tells it: in quotes of either kind.
std::string Unquoted(const std::string& quoted) {
  std::string text;
  for (std::size_t i = 1; i + 1 < quoted.size(); ++i) {
    if (quoted[i] == '\\' && i + 2 < quoted.size()) ++i;
    text += quoted[i];
  }
  return text;
}

std::string WithoutLineEnd(std::string text) {
  while (text.ends_with('\n')) text.pop_back();
  return text;
}

}  // namespace

const SettingsSchema gnomeSchema{"org.gnome.desktop.background", "picture-uri", "picture-uri-dark"};
const SettingsSchema cinnamonSchema{
    "org.cinnamon.desktop.background",          "picture-uri", "", false, true,
    "org.cinnamon.desktop.background.slideshow"};
const SettingsSchema mateSchema{"org.mate.background", "picture-filename", "", true, false};
const SettingsSchema deepinSchema{"com.deepin.wrap.gnome.desktop.background", "picture-uri", ""};

bool SettingsBackend::HasKey(const std::string& schema, const std::string& key) const {
  const auto answer = tools_.run({"gsettings", "list-keys", schema});
  if (!answer || answer->exitCode != 0) return false;
  for (const std::string& line : Lines(answer->output)) {
    if (line == key) return true;
  }
  return false;
}

std::vector<SettingsBackend::Key> SettingsBackend::Keys() const {
  if (!HasKey(schema_.name, schema_.pictureKey)) return {};
  // The options come first, so that the new picture is never shown in the old way.
  std::vector<Key> keys = {{schema_.name, optionsKey}, {schema_.name, schema_.pictureKey}};
  if (!schema_.darkPictureKey.empty() && HasKey(schema_.name, schema_.darkPictureKey)) {
    keys.push_back({schema_.name, schema_.darkPictureKey});
  }
  if (!schema_.slideshowSchema.empty() && HasKey(schema_.slideshowSchema, slideshowKey)) {
    keys.push_back({schema_.slideshowSchema, slideshowKey});
  }
  return keys;
}

std::optional<std::string> SettingsBackend::Get(const Key& key) const {
  const auto answer = tools_.run({"gsettings", "get", key.schema, key.name});
  if (!answer || answer->exitCode != 0) return {};
  return WithoutLineEnd(answer->output);
}

bool SettingsBackend::IsDefault(const Key& key, const std::string& value) const {
  const auto answer =
      tools_.run({"env", "GSETTINGS_BACKEND=memory", "gsettings", "get", key.schema, key.name});
  return answer && answer->exitCode == 0 && WithoutLineEnd(answer->output) == value;
}

bool SettingsBackend::Write(const Key& key, const std::string& value) const {
  return tools_.Runs({"gsettings", "set", key.schema, key.name, value});
}

std::string SettingsBackend::ShownPicture() const {
  return Unquoted(Get({schema_.name, schema_.pictureKey}).value_or(""));
}

bool SettingsBackend::ShowsOurs() {
  return tools_.NamesOurs(ShownPicture());
}

std::optional<std::string> SettingsBackend::Remember() {
  std::string remembered;
  for (const Key& key : Keys()) {
    const auto value = Get(key);
    if (!value) continue;
    // A value that is the distribution's own is reset later, not written: it may be another one by then.
    remembered += key.schema + ' ' + key.name + ' ' + (IsDefault(key, *value) ? "" : *value) + '\n';
  }
  if (remembered.empty()) return {};
  return remembered;
}

bool SettingsBackend::Set(const std::string& file, WallpaperMode mode) {
  const std::string picture = schema_.plainPath ? file : FileAddress(file);
  bool shown = false;
  for (const Key& key : Keys()) {
    if (key.name == optionsKey) {
      Write(key, Quoted(Option(mode)));
    } else if (key.name == slideshowKey) {
      Write(key, "false");
    } else {
      shown = Write(key, Quoted(picture)) && Unquoted(Get(key).value_or("")) == picture;
      if (!shown) return false;
    }
  }
  return shown;
}

bool SettingsBackend::Restore(const std::optional<std::string>& remembered) {
  if (!remembered) {
    const Key picture{schema_.name, schema_.pictureKey};
    return schema_.hasNone ? Write({schema_.name, optionsKey}, "'none'") : Write(picture, "''");
  }
  bool restored = true;
  for (const std::string& line : Lines(*remembered)) {
    const auto schemaEnd = line.find(' ');
    const auto keyEnd = schemaEnd == std::string::npos ? schemaEnd : line.find(' ', schemaEnd + 1);
    if (keyEnd == std::string::npos) continue;
    const Key key{line.substr(0, schemaEnd), line.substr(schemaEnd + 1, keyEnd - schemaEnd - 1)};
    const std::string value = line.substr(keyEnd + 1);
    const bool written =
        value.empty() ? tools_.Runs({"gsettings", "reset", key.schema, key.name}) : Write(key, value);
    restored = restored && written;
  }
  return restored;
}

}  // namespace lumidex
