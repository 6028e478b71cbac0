#include "imaging/file_properties.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/line_reader.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "core/long_date.h"
#include "core/paths.h"
#include "core/still_open.h"
#include "forms/WPaper2.h"
#include "forms/checkjpg.h"
#include "forms/frmFileProperties.h"
#include "imaging/picture_texts.h"
#include "imaging/side_files.h"
#include "imaging/working_image.h"

namespace lumidex {
namespace {

constexpr int thumbnailSize = 100;
constexpr std::int32_t longestPath = 30;

enum Fact { Path, Length, Width, Height, Colours, Date, Time };

void Write(App& app, Fact fact, std::string text) {
  app.frmFileProperties.lblFileInfo(fact).Caption = std::move(text);
}

std::string ClockText(const DateTime& moment) {
  const int hour = moment.hour % 12 == 0 ? 12 : moment.hour % 12;
  return Number(hour) + ":" + Right("0" + Number(moment.minute), 2) + (moment.hour < 12 ? " AM" : " PM");
}

// Ends early when the dialog is closed in a yield.
void ShowOwnFacts(App& app, std::string path, const StillOpen<frmFilePropertiesWindow>& dialogIsOpen) {
  Gvbox& control = app.checkjpg.Picture1;
  control.SetFileName(path);
  app.platform.events.Yield();
  if (!dialogIsOpen) return;
  const auto facts = app.platform.files.Look(path);
  if (!facts) throw RunTimeError(ErrorNumber::FileNotFound).About(path);
  Write(app, Length, DigitsInGroups(static_cast<std::int64_t>(facts->size)));
  GetImageInfo(app, path, app.ImageWidth, app.ImageHeight, app.ImageBitsPerPixel);
  if (!dialogIsOpen) return;
  Write(app, Width, LengthText(app.ImageWidth));
  Write(app, Height, LengthText(app.ImageHeight));
  Write(app, Colours, ColoursText(app.ImageBitsPerPixel));
  const DateTime modified = app.platform.clock.LocalTime(facts->modified);
  Write(app, Date, LongDate(modified));
  Write(app, Time, ClockText(modified));
  control.ThumbnailSize = thumbnailSize;
  app.platform.events.Yield();
  if (!dialogIsOpen) return;
  app.frmFileProperties.imgThumbNail.Picture = control.Picture();
  app.platform.events.Yield();
}

// A number in groups of digits; other text as it stands.
std::string StoredLengthText(const std::string& line) {
  constexpr double most = 1e15;
  const auto number = NumberAtStart(line);
  return number && std::abs(*number) < most ? DigitsInGroups(std::llrint(*number)) : line;
}

std::string StoredSideText(const std::string& line) {
  return Val(line) == 0 ? "Unknown" : line;
}

std::string StoredColoursText(const std::string& line) {
  constexpr double beyondAll = 1e6;
  return ColoursText(static_cast<float>(std::clamp(Val(line), -beyondAll, beyondAll)));
}

std::string StoredMomentText(const std::string& line) {
  return line.empty() ? "Unknown" : line;
}

void ShowStoredFacts(App& app, std::string factsPath) {
  LineReader lines(app.platform.files.ReadAll(factsPath));
  lines.Next();
  Write(app, Length, StoredLengthText(lines.Next()));
  Write(app, Width, StoredSideText(lines.Next()));
  Write(app, Height, StoredSideText(lines.Next()));
  Write(app, Colours, StoredColoursText(lines.Next()));
  Write(app, Date, StoredMomentText(lines.Next()));
  Write(app, Time, StoredMomentText(lines.Next()));
}

}  // namespace

void ShowFileProperties(App& app) {
  const StillOpen dialogIsOpen(app.frmFileProperties);
  const std::string path = app.WPaper2.LstRight.Text();
  Gvbox& control = app.checkjpg.Picture1;
  control.SetFileName("");
  Write(app, Path, UCase(ShortenPath(app, path, longestPath)));
  if (FileExists(app, path)) {
    // A file that is no picture ends this part, and the dialog says what it knows.
    IgnoreError([&] { ShowOwnFacts(app, path, dialogIsOpen); });
    control.ThumbnailSize = 0;
    app.platform.events.Yield();
    if (!dialogIsOpen) return;
  } else if (!path.empty() && FileExists(app, StoredFactsPath(app, path))) {
    const std::string factsPath = StoredFactsPath(app, path);
    WorkOn(factsPath, [&] { ShowStoredFacts(app, factsPath); });
  }
  for (int fact = Length; fact <= Time; ++fact) {
    Property<std::string>& caption = app.frmFileProperties.lblFileInfo(fact).Caption;
    if (caption.Get().empty()) caption = "UnAvailable";
  }
  if (path.empty() || !FileExists(app, StoredThumbnailPath(app, path))) return;
  app.frmFileProperties.imgThumbNail.Picture =
      app.platform.loader.LoadPicture(StoredThumbnailPath(app, path));
}

}  // namespace lumidex
