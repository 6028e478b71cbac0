// The fields of the global record by their names.

#include "controls/field.h"
#include "forms/app.h"

namespace lumidex {
namespace {

// Hands every field with its name to `offer`. The record may be const.
template <class Record, class Offer>
void VisitFields(Record& record, Offer&& offer) {
  offer("ColorMNU", record.ColorMNU);
  offer("SavingSettings", record.SavingSettings);
  offer("ViewMode", record.ViewMode);
  offer("AppVersion", record.AppVersion);
  offer("CurrentImagePath", record.CurrentImagePath);
  offer("CurrentIndex", record.CurrentIndex);
  offer("SearchDirectory", record.SearchDirectory);
  offer("SearchRunning", record.SearchRunning);
  offer("DirectoriesSearched", record.DirectoriesSearched);
  offer("ImageWidth", record.ImageWidth);
  offer("ImageHeight", record.ImageHeight);
  offer("ImageBitsPerPixel", record.ImageBitsPerPixel);
  offer("FilePattern", record.FilePattern);
  offer("CommandLineMode", record.CommandLineMode);
  offer("ListFilePictureCount", record.ListFilePictureCount);
  offer("ListFileFlag", record.ListFileFlag);
  offer("SlideShowInterval", record.SlideShowInterval);
  offer("SlideShowRestart", record.SlideShowRestart);
  offer("AppPath", record.AppPath);
  offer("SlideShowBusy", record.SlideShowBusy);
  offer("TopmostFlags", record.TopmostFlags);
  offer("NaturalWidth", record.NaturalWidth);
  offer("NaturalHeight", record.NaturalHeight);
}

}  // namespace

std::optional<std::string> App::ReadGlobal(std::string_view name) const {
  std::optional<std::string> text;
  VisitFields(static_cast<const GlobalRecord&>(*this), [&](std::string_view field, const auto& value) {
    if (field == name) text = FieldText(value);
  });
  return text;
}

bool App::WriteGlobal(std::string_view name, std::string_view text) {
  bool found = false;
  VisitFields(static_cast<GlobalRecord&>(*this), [&](std::string_view field, auto& value) {
    if (field != name) return;
    found = true;
    ReadField(text, value);
  });
  return found;
}

}  // namespace lumidex
