#include "platform/headless/memory_services.h"

#include <algorithm>

#include "base/run_time_error.h"
#include "base/text.h"
#include "pictures/pixels.h"
#include "ports/open_picture.h"

namespace lumidex {
namespace {

std::string SizeText(const Picture& picture) {
  return picture.IsEmpty() ? "(none)"
                           : Number(picture.GetSize().width) + " x " + Number(picture.GetSize().height);
}

Picture Inverted(const Picture& picture) {
  const Pixels source = picture.FullPixels();
  Pixels pixels = Pixels::MakeUnfilled(source.GetSize(), source.Format());
  for (int y = 0; y < source.Height(); ++y) {
    std::ranges::transform(source.Row(y), pixels.Row(y).begin(),
                           [](std::uint32_t word) { return word ^ 0x00FFFFFFU; });
  }
  return Picture::FromPixels(std::move(pixels), picture.BitsPerPixel());
}

}  // namespace

void MemoryClipboard::CheckWorks() const {
  if (!works) throw RunTimeError(ErrorNumber::ClipboardUnavailable);
}

void MemoryClipboard::Clear() {
  log_.Add("Clipboard.Clear");
  CheckWorks();
  text_.clear();
  picture_ = Picture();
  format_.reset();
}

void MemoryClipboard::SetText(const std::string& text) {
  log_.Add("Clipboard.SetText " + text);
  CheckWorks();
  text_ = text;
}

void MemoryClipboard::SetData(const Picture& picture, ClipboardFormat format) {
  const std::string number =
      format == ClipboardFormat::Own ? std::string() : ", " + Number(static_cast<int>(format));
  log_.Add("Clipboard.SetData " + SizeText(picture) + number);
  CheckWorks();
  const bool isMetafile = picture.Type() != PictureType::Bitmap;
  if (picture.IsEmpty() || format == ClipboardFormat::Text ||
      (format == ClipboardFormat::Metafile && !isMetafile) ||
      (format == ClipboardFormat::Bitmap && isMetafile)) {
    throw RunTimeError(ErrorNumber::InvalidClipboardFormat);
  }
  picture_ = picture;
  format_ = format;
}

int MemoryShell::ShellExecuteA(WindowHandle window, const std::string& verb, const std::string& file,
                               const std::string& arguments, const std::string& directory, int show) {
  std::string line = "ShellExecuteA " + nameOf(window);
  for (const std::string& text : {verb, file, arguments, directory}) line += " \"" + text + "\"";
  log_.Add(line + " " + Number(show));
  return executeAnswer;
}

void MemoryShell::StartProgram(const std::string& command) {
  log_.Add("StartProgram " + command);
  if (!programsAreThere) throw RunTimeError(ErrorNumber::FileNotFound);
}

void MemorySettingsStore::CheckWorks() const {
  if (!works) throw RunTimeError(ErrorNumber::InvalidCall);
}

std::string MemorySettingsStore::GetSetting(const std::string& section, const std::string& key,
                                            const std::string& preset) const {
  CheckWorks();
  return Stored(section, key).value_or(preset);
}

void MemorySettingsStore::Put(const std::string& section, const std::string& key, const std::string& value) {
  values_[{section, key}] = value;
}

std::optional<std::string> MemorySettingsStore::Stored(const std::string& section,
                                                       const std::string& key) const {
  const auto found = values_.find({section, key});
  if (found == values_.end()) return {};
  return found->second;
}

void MemorySettingsStore::SaveSetting(const std::string& section, const std::string& key,
                                      const std::string& value) {
  log_.Add("SaveSetting " + section + ", " + key + " = " + value);
  CheckWorks();
  Put(section, key, value);
}

Picture MemoryPictureLoader::LoadPicture(const std::string& path) {
  log_.Add("LoadPicture " + path);
  if (way == Way::Failing) throw RunTimeError(ErrorNumber::InvalidPicture).About(path);
  const Picture picture = PictureLoader::LoadPicture(path);
  return way == Way::Inverted ? Inverted(picture) : picture;
}

void MemoryBrowser::Navigate(int browser, const std::string& address) {
  log_.Add("Navigate " + Number(browser) + " " + address);
  Usable(browser);
  pages[browser].address = address;
}

const MemoryBrowser::Page& MemoryBrowser::Usable(int browser) const {
  static const Page untouched;
  const auto page = pages.find(browser);
  if (page == pages.end()) return untouched;
  if (page->second.fails) throw RunTimeError(ErrorNumber::AutomationError);
  return page->second;
}

}  // namespace lumidex
