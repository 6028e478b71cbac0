#include "imaging/current_picture.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "base/widths.h"
#include "core/enable_state.h"
#include "core/helpers.h"

namespace lumidex {
namespace {

// Brings the zoomed size into the picture area. Only the side that is the more oversize is brought to its
// limit, the other follows; equal overshoots, and a side that just meets its limit, keep the size as it is.
void FitToArea(std::int16_t& width, std::int16_t& height, std::int16_t areaWidth, std::int16_t areaHeight) {
  const auto byWidth = [&] {
    const auto ratio = static_cast<float>(static_cast<double>(areaWidth) / width);
    width = areaWidth;
    height = ToInt16(static_cast<double>(static_cast<float>(height) * ratio));
  };
  const auto byHeight = [&] {
    const auto ratio = static_cast<float>(static_cast<double>(areaHeight) / height);
    height = areaHeight;
    width = ToInt16(static_cast<double>(static_cast<float>(width) * ratio));
  };
  if (width > areaWidth && height < areaHeight) {
    byWidth();
  } else if (width < areaWidth && height > areaHeight) {
    byHeight();
  } else if (width > areaWidth && height > areaHeight) {
    if (width - areaWidth > height - areaHeight) {
      byWidth();
    } else if (width - areaWidth < height - areaHeight) {
      byHeight();
    }
  }
}

std::int16_t Zoomed(std::int16_t length, float zoom) {
  return ToInt16(static_cast<double>(static_cast<float>(length) * zoom));
}

int CheckedZoomLevel(App& app) {
  int level = 1;
  while (level < 11 && !app.WPaper2.mnuEditZoomLevel(level).Checked) ++level;
  return level;
}

void MoveZoomCheck(App& app, int from, int to) {
  app.WPaper2.mnuEditZoomLevel(from).Checked = false;
  app.WPaper2.mnuEditZoomLevel(to).Checked = true;
  app.WPaper2.mnuEditZoomLevel(to).Click();
}

}  // namespace

void DisplayCurrentImage(App& app, const std::string& path, bool alreadyLoaded, float zoom) {
  WPaper2Window& window = app.WPaper2;
  EventQueue& events = app.platform.events;
  const auto request = app.pictureRequests;
  UpdateEnableState(app);
  if (app.pictureRequests != request) return;
  window.Pointer = MousePointer::Hourglass;
  if (Trim(path).empty() || !FileExists(app, path)) {
    window.Pointer = MousePointer::Default;
    return;
  }
  window.Image1.Visible = false;
  if (!alreadyLoaded) LoadPictureFile(app, path);
  if (app.pictureRequests == request) {
    app.CurrentImagePath = path;
    GetImageInfo(app, path, app.ImageWidth, app.ImageHeight, app.ImageBitsPerPixel);
    events.Yield();
  }
  // Another picture was asked for in a yield, and stands there by now; or the list was emptied.
  if (app.pictureRequests != request) {
    window.Image1.Visible = true;
    window.Pointer = MousePointer::Default;
    return;
  }
  // Read after the yields: the window may have been resized in one. Its own redraw is over then, so this one
  // is for the new area too.
  const std::int16_t areaWidth = ToInt16(static_cast<double>(window.Picture1.ScaleWidth()));
  const std::int16_t areaHeight = ToInt16(static_cast<double>(window.Picture1.ScaleHeight()));
  app.NaturalWidth = app.ImageWidth;
  app.NaturalHeight = app.ImageHeight;
  window.StatusBar1.SetText(4, Number(zoom * 100.0F) + "%");
  app.ImageHeight = Zoomed(app.ImageHeight, zoom);
  app.ImageWidth = Zoomed(app.ImageWidth, zoom);
  FitToArea(app.ImageWidth, app.ImageHeight, areaWidth, areaHeight);
  if (app.frmPreferences.chkStretch.Value == 1) {
    window.Image1.Move(0, 0, areaWidth, areaHeight);
  } else {
    const auto centred = [](std::int16_t area, std::int16_t side) {
      return static_cast<float>(area) / 2.0F - static_cast<float>(side) / 2.0F;
    };
    window.Image1.Move(centred(areaWidth, app.ImageWidth), centred(areaHeight, app.ImageHeight),
                       app.ImageWidth, app.ImageHeight);
  }
  window.Image1.Visible = true;
  window.Pointer = MousePointer::Default;
  events.Yield();
}

void ReadNeighboursAhead(App& app) {
  const WPaper2Window& window = app.WPaper2;
  const ListBox& list = window.LstRight;
  const int count = list.ListCount(), current = list.ListIndex();
  std::vector<std::string> neighbours;
  for (const int step : {1, count - 1}) {
    if (current < 0 || count < 2) break;
    const std::string path = list.List((current + step) % count);
    if (path == list.Text() || (!neighbours.empty() && neighbours.front() == path)) continue;
    // Those come through the platform's own loader.
    if (InStr(UCase(path), ".GIF") == 0) neighbours.push_back(path);
  }
  const Size area{static_cast<int>(window.Picture1.ScaleWidth()),
                  static_cast<int>(window.Picture1.ScaleHeight())};
  const bool stretch = app.frmPreferences.chkStretch.Value == 1;
  const float zoom = GetZoomFactor(app);
  app.checkjpg.Picture1.ReadFilesAhead(std::move(neighbours), [=](Size full) {
    if (stretch) return area;
    Size shown = full;
    IgnoreError([&] {
      std::int16_t width = Zoomed(ToInt16(full.width), zoom), height = Zoomed(ToInt16(full.height), zoom);
      FitToArea(width, height, ToInt16(area.width), ToInt16(area.height));
      shown = {width, height};
    });
    return shown;
  });
}

void LoadPictureFile(App& app, const std::string& path) {
  try {
    const auto request = app.pictureRequests;
    app.checkjpg.Picture1.SetFileName(path);
    app.platform.events.Yield();
    if (app.pictureRequests != request) return;
    ShowWorkingPicture(app);
    if (InStr(UCase(path), ".GIF") > 0) {
      app.WPaper2.Image1.Picture = app.platform.loader.LoadPicture(path);
    } else {
      ShowWorkingPicture(app);
    }
  } catch (const RunTimeError&) {
    // An unreadable file is shown as whatever stands there already.
  }
  app.platform.events.Yield();
}

void ShowWorkingPicture(App& app) {
  app.WPaper2.Image1.Picture = app.checkjpg.Picture1.Picture();
}

void GetImageInfo(App& app, const std::string&, std::int16_t& width, std::int16_t& height, float& depth) {
  IgnoreError([&] {
    const Gvbox& control = app.checkjpg.Picture1;
    depth = control.BitsPerPixel();
    width = control.PictureWidth();
    height = control.PictureHeight();
  });
  app.platform.events.Yield();
}

std::string ProperCaseName(const App& app, const std::string& name) {
  const std::string separator(1, app.platform.files.Separator());
  std::vector<std::string> characters;
  for (std::string_view rest = name; !rest.empty(); rest.remove_prefix(CharacterBytes(rest))) {
    characters.emplace_back(rest.substr(0, CharacterBytes(rest)));
  }
  const std::size_t length = characters.size();
  // One-based, as the rule is told; positions outside are no character.
  const auto at = [&](std::size_t i) { return i >= 1 && i <= length ? characters[i - 1] : std::string(); };
  const auto raise = [&](std::size_t i) {
    if (i >= 1 && i <= length) characters[i - 1] = UCase(characters[i - 1]);
  };
  for (std::string& character : characters) character = LCase(character);
  raise(1);
  for (std::size_t i = 2; i <= length; ++i) {
    if (at(i - 1) == " ") raise(i);
    if (at(i) == ".") raise(++i);
    if (at(i - 1) == separator) raise(i);
  }
  std::string proper;
  for (const std::string& character : characters) proper += character;
  return proper;
}

std::string ProperFileName(const App& app, const std::string& path) {
  return ProperCaseName(app, path.substr(path.rfind(app.platform.files.Separator()) + 1));  // npos + 1 is 0
}

void SelectZoomLevel(App& app, int level) {
  const float factor = ZoomFactorOf(level);
  for (int i = 1; i <= 11; ++i) app.WPaper2.mnuEditZoomLevel(i).Checked = false;
  app.WPaper2.mnuEditZoomLevel(level).Checked = true;
  app.checkjpg.Picture1.ZoomLevel = factor;
  app.CurrentImagePath = app.WPaper2.LstRight.Text();
  DisplayCurrentImage(app, app.CurrentImagePath, true, factor);
}

void StepZoomDown(App& app) {
  if (const int level = CheckedZoomLevel(app); level > 1) MoveZoomCheck(app, level, level - 1);
}

void StepZoomUp(App& app) {
  if (const int level = CheckedZoomLevel(app); level < 11) MoveZoomCheck(app, level, level + 1);
}

}  // namespace lumidex
