#include "scenario/values.h"

#include <map>

#include "base/text.h"
#include "pictures/pixels.h"
#include "platform/headless/civil_time.h"
#include "ports/open_picture.h"
#include "scenario/popup_menu.h"
#include "scenario/targets.h"

namespace lumidex::scenario {
namespace {

constexpr const char* none = "(none)";

std::string TimeText(const DateTime& moment) {
  char text[64];
  std::snprintf(text, sizeof text, "%02d:%02d:%02d", moment.hour, moment.minute, moment.second);
  return text;
}

std::string DayText(const DateTime& moment) {
  char text[64];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d", moment.year, moment.month, moment.day);
  return text;
}

std::string ColourText(const Picture& picture, const std::string& place) {
  const auto comma = place.find(',');
  if (comma == std::string::npos) throw Failure{"the place is told as column,row"};
  const auto x = WholeNumber(place.substr(0, comma));
  const auto y = WholeNumber(place.substr(comma + 1));
  const Size size = picture.GetSize();
  if (x < 0 || y < 0 || x >= size.width || y >= size.height)
    throw Failure{"the place is outside the picture"};
  const Pixels pixels = picture.FullPixels();
  const std::uint32_t word = pixels.Row(static_cast<int>(y))[static_cast<std::size_t>(x)];
  char text[16];
  std::snprintf(text, sizeof text, "#%06X", word & 0xFFFFFFU);
  return text;
}

std::string SizeText(const Picture& picture) {
  if (picture.IsEmpty()) return none;
  return Number(picture.GetSize().width) + " x " + Number(picture.GetSize().height);
}

std::string Whole(std::uint64_t number) {
  return Number(static_cast<std::int64_t>(number));
}

std::string GlobalValue(Execution& run, Arguments& words) {
  const std::string& name = words.Next("the name");
  const auto value = run.Program().ReadGlobal(name);
  if (!value) throw Failure{"there is no global " + name};
  return *value;
}

// "pixel frmTip.Image1 at 3,4", "pixel file C:\a.bmp at 3,4", "pixel clipboard at 3,4"
std::string PixelValue(Execution& run, Arguments& words) {
  const Picture picture = TakePicture(run, words);
  words.Need("at");
  return ColourText(picture, words.Next("the place"));
}

FileFacts FactsOf(const MemoryFileSystem& files, const std::string& path) {
  const auto facts = files.Look(path);
  if (!facts) throw NotThere{{"there is no " + path}};
  return *facts;
}

std::string FileValue(Execution& run, Arguments& words) {
  const MemoryFileSystem& files = run.World().files;
  const std::string& path = words.Next("the path");
  if (words.AtEnd()) return files.ReadAll(path);
  switch (words.Choice({"size", "hidden", "picture", "modified"})) {
    case 0:
      return Whole(FactsOf(files, path).size);
    case 1:
      return files.Look(path) && files.Look(path)->hidden ? "True" : "False";
    case 2: {
      const Picture picture = OpenPicture(files, path);
      return SizeText(picture) + " x " + Number(picture.BitsPerPixel()) + " " + std::string(picture.Format());
    }
    default: {
      const DateTime moment = CivilTime(FactsOf(files, path).modified);
      return DayText(moment) + " " + TimeText(moment);
    }
  }
}

std::string ClipboardValue(Execution& run, Arguments& words) {
  const MemoryClipboard& clipboard = run.World().clipboard;
  switch (words.Choice({"text", "picture", "format"})) {
    case 0:
      return clipboard.Text();
    case 1:
      return SizeText(clipboard.GetPicture());
    default:
      return clipboard.Format() ? Number(static_cast<int>(*clipboard.Format())) : none;
  }
}

std::string TrayValue(Execution& run, Arguments& words) {
  const auto& icon = run.World().tray.icon;
  const std::size_t what =
      words.Choice({"icon", "tip", "window", "id", "flags", "message", "size", "picture"});
  if (what == 0) return icon ? "shown" : none;
  if (!icon) return what == 1 ? "" : none;
  switch (what) {
    case 1:
      return {icon->szTip.begin(), icon->szTip.end()};
    case 2:
      return run.World().windows.NameOf(icon->hWnd);
    case 3:
      return Whole(icon->uID);
    case 4:
      return Whole(icon->uFlags);
    case 5:
      return Whole(icon->uCallbackMessage);
    case 6:
      return Whole(icon->cbSize);
    default:
      return SizeText(icon->hIcon);
  }
}

std::string BytesText(const std::string& bytes) {
  std::string text;
  for (const char byte : bytes) {
    char digits[4];
    std::snprintf(digits, sizeof digits, "%02X", static_cast<unsigned>(static_cast<unsigned char>(byte)));
    text += (text.empty() ? "" : " ") + std::string(digits);
  }
  return text;
}

// The text of a string value without its zero, the number of a 32-bit one, the bytes of others.
std::string ValueText(const MemoryDesktop::Value& value) {
  if (value.type == REG_SZ) return value.bytes.substr(0, value.bytes.find('\0'));
  if (value.type != REG_DWORD || value.bytes.size() != 4) return BytesText(value.bytes);
  std::uint32_t number = 0;
  for (int i = 3; i >= 0; --i) {
    number = number << 8 | static_cast<unsigned char>(value.bytes[static_cast<std::size_t>(i)]);
  }
  return Whole(number);
}

std::string RegistryValue(Execution& run, Arguments& words) {
  const MemoryDesktop& desktop = run.World().desktop;
  if (words.Take("access")) return Whole(desktop.lastAccess);
  if (words.Take("keys")) {
    words.Need("open");
    return Whole(desktop.OpenKeys());
  }
  const bool asksType = words.Take("type"), asksBytes = !asksType && words.Take("bytes");
  const auto found = desktop.registry.find(words.Next("the path and the name"));
  if (found == desktop.registry.end()) return none;
  if (asksType) return Whole(found->second.type);
  return asksBytes ? BytesText(found->second.bytes) : ValueText(found->second);
}

std::string SettingValue(Execution& run, Arguments& words) {
  const std::string& section = words.Next("the section");
  return run.World().settings.Stored(section, words.Next("the key")).value_or(none);
}

std::string ReadsValue(Execution& run, Arguments& words) {
  words.Need("of");
  return Number(run.World().files.ReadsOf(words.Next("the directory")));
}

std::string BrowserValue(Execution& run, Arguments& words) {
  const auto& pages = run.World().browser.pages;
  const auto page = pages.find(words.NextInt("the browser's number"));
  words.Need("address");
  return page == pages.end() ? none : page->second.address;
}

std::string CurrentDirectory(Execution& run, Arguments& words) {
  words.Need("directory");
  return run.World().files.CurrentDirectory();
}

std::string ScreenValue(Execution& run, Arguments& words) {
  words.Need("awake");
  return run.World().desktop.keepsScreenAwake ? "True" : "False";
}

std::string ModalValue(Execution& run, Arguments&) {
  const Form* modal = run.World().windows.FrontModal();
  return modal ? modal->Name() : none;
}

std::string FrontValue(Execution& run, Arguments&) {
  const Form* front = run.World().windows.Front();
  return front ? front->Name() : none;
}

using Reader = std::string (*)(Execution& run, Arguments& words);

const std::map<std::string, Reader, std::less<>>& Readers() {
  static const std::map<std::string, Reader, std::less<>> readers{
      {"global", GlobalValue},
      {"file", FileValue},
      {"pixel", PixelValue},
      {"clipboard", ClipboardValue},
      {"tray", TrayValue},
      {"popup", [](Execution& run, Arguments&) { return OpenPopupName(run); }},
      {"registry", RegistryValue},
      {"wallpaper", [](Execution& run, Arguments&) { return run.World().desktop.wallpaper; }},
      {"screen", ScreenValue},
      {"setting", SettingValue},
      {"clock", [](Execution& run, Arguments&) { return TimeText(run.World().events.Now()); }},
      {"yields", [](Execution& run, Arguments&) { return Number(run.World().events.Yields()); }},
      {"reads", ReadsValue},
      {"browser", BrowserValue},
      {"current", CurrentDirectory},
      {"focus",
       [](Execution& run, Arguments&) { return run.World().windows.NameOf(run.World().windows.GetFocus()); }},
      {"front", FrontValue},
      {"modal", ModalValue},
  };
  return readers;
}

}  // namespace

std::string TakeOneValue(Execution& run, Arguments& words) {
  const std::string& subject = words.Next("what is expected");
  const auto reader = Readers().find(subject);
  return reader == Readers().end() ? ReadProperty(run.Program(), subject) : reader->second(run, words);
}

std::string TakeValue(Execution& run, Arguments& words) {
  std::string value = TakeOneValue(run, words);
  words.End();
  return value;
}

Picture TakePicture(Execution& run, Arguments& words) {
  if (words.Take("file")) return OpenPicture(run.World().files, words.Next("the path"));
  if (words.Take("clipboard")) return run.World().clipboard.GetPicture();
  const ImageControls::Pause pause(run.GetImageControls());
  return PictureOf(FindElement(run.Program(), words.Next("the control")));
}

}  // namespace lumidex::scenario
