#include "platform/posix/wallpaper/root_pixmap_backend.h"

#include <algorithm>
#include <bit>

#include "base/run_time_error.h"
#include "pictures/pixels.h"
#include "platform/posix/wallpaper/canvas.h"
#include "platform/posix/x11/x_screen.h"

namespace lumidex {
namespace {

constexpr const char* shownName = "_XROOTPMAP_ID";
constexpr const char* shownTooName = "ESETROOT_PMAP_ID";
constexpr const char* oursName = "_LUMIDEX_WALLPAPER";
// The values of the first two before our first change, 0 for none.
constexpr const char* beforeName = "_LUMIDEX_WALLPAPER_BEFORE";

// Nobody else draws or reads the properties while one of these lives.
class Grab {
 public:
  explicit Grab(const XScreen& screen) : connection_(screen.Connection()) { xcb_grab_server(connection_); }
  ~Grab() {
    xcb_ungrab_server(connection_);
    xcb_flush(connection_);
  }
  Grab(const Grab&) = delete;
  Grab& operator=(const Grab&) = delete;

 private:
  xcb_connection_t* connection_;
};

std::uint32_t PixmapIn(const XScreen& screen, const char* property) {
  const auto numbers = screen.RootNumbers(property, XCB_ATOM_PIXMAP);
  return numbers.empty() ? 0 : numbers.front();
}

void WritePixmaps(const XScreen& screen, const char* property, const std::vector<std::uint32_t>& pixmaps) {
  xcb_change_property(screen.Connection(), XCB_PROP_MODE_REPLACE, screen.Screen().root, screen.Atom(property),
                      XCB_ATOM_PIXMAP, 32, static_cast<std::uint32_t>(pixmaps.size()), pixmaps.data());
}

void WriteOrDelete(const XScreen& screen, const char* property, std::uint32_t pixmap) {
  if (pixmap != 0) {
    WritePixmaps(screen, property, {pixmap});
  } else {
    xcb_delete_property(screen.Connection(), screen.Screen().root, screen.Atom(property));
  }
}

bool IsPixmap(const XScreen& screen, std::uint32_t id) {
  if (id == 0 || id == screen.Screen().root) return false;
  const auto cookie = xcb_get_geometry(screen.Connection(), id);
  const auto reply = Owned(xcb_get_geometry_reply(screen.Connection(), cookie, nullptr));
  return reply && reply->depth == screen.Screen().root_depth;
}

// A window of the desktop's own covers the root: what is drawn there is never seen.
bool IsCovered(const XScreen& screen) {
  for (const char* name : {"XFCE_DESKTOP_WINDOW", "NAUTILUS_DESKTOP_WINDOW_ID"}) {
    if (!screen.RootNumbers(name, XCB_ATOM_WINDOW).empty()) return true;
  }
  const auto desktopType = screen.Atom("_NET_WM_WINDOW_TYPE_DESKTOP");
  for (const std::uint32_t window : screen.RootNumbers("_NET_CLIENT_LIST", XCB_ATOM_WINDOW)) {
    const auto types = screen.Numbers(window, screen.Atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM);
    if (std::ranges::find(types, desktopType) != types.end()) return true;
  }
  return false;
}

// Our pixels are words of eight bits each of red, green and blue; only a screen of the same is drawn on.
bool IsAsOurs(const XScreen& screen) {
  const xcb_setup_t* setup = xcb_get_setup(screen.Connection());
  constexpr int littleFirst =
      std::endian::native == std::endian::little ? XCB_IMAGE_ORDER_LSB_FIRST : XCB_IMAGE_ORDER_MSB_FIRST;
  const int depth = screen.Screen().root_depth;
  if ((depth != 24 && depth != 32) || setup->image_byte_order != littleFirst) return false;
  for (auto each = xcb_setup_pixmap_formats_iterator(setup); each.rem > 0; xcb_format_next(&each)) {
    if (each.data->depth == depth && each.data->bits_per_pixel != 32) return false;
  }
  for (auto depths = xcb_screen_allowed_depths_iterator(&screen.Screen()); depths.rem > 0;
       xcb_depth_next(&depths)) {
    for (auto each = xcb_depth_visuals_iterator(depths.data); each.rem > 0; xcb_visualtype_next(&each)) {
      if (each.data->visual_id == screen.Screen().root_visual) return each.data->red_mask == 0xFF0000;
    }
  }
  return false;
}

// The pixmap, filled; in strips that fit into a request.
std::uint32_t Upload(const XScreen& screen, const Pixels& pixels) {
  xcb_connection_t* connection = screen.Connection();
  const std::uint32_t pixmap = xcb_generate_id(connection);
  const auto width = static_cast<std::uint16_t>(pixels.Width());
  xcb_create_pixmap(connection, screen.Screen().root_depth, pixmap, screen.Screen().root, width,
                    static_cast<std::uint16_t>(pixels.Height()));
  const std::uint32_t context = xcb_generate_id(connection);
  xcb_create_gc(connection, context, pixmap, 0, nullptr);
  const std::uint32_t rowBytes = std::uint32_t{width} * 4;
  const std::uint64_t requestBytes = std::uint64_t{xcb_get_maximum_request_length(connection)} * 4 - 64;
  const int rows = static_cast<int>(std::max<std::uint64_t>(1, requestBytes / rowBytes));
  for (int top = 0; top < pixels.Height(); top += rows) {
    const int count = std::min(rows, pixels.Height() - top);
    xcb_put_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, width,
                  static_cast<std::uint16_t>(count), 0, static_cast<std::int16_t>(top), 0,
                  screen.Screen().root_depth, static_cast<std::uint32_t>(count) * rowBytes,
                  reinterpret_cast<const std::uint8_t*>(pixels.Row(top).data()));
  }
  xcb_free_gc(connection, context);
  return pixmap;
}

void ShowBehindAll(const XScreen& screen, std::uint32_t pixmap) {
  xcb_change_window_attributes(screen.Connection(), screen.Screen().root, XCB_CW_BACK_PIXMAP, &pixmap);
  xcb_clear_area(screen.Connection(), 0, screen.Screen().root, 0, 0, 0, 0);
}

bool IsOursShown(const XScreen& screen) {
  const std::uint32_t ours = PixmapIn(screen, oursName);
  return ours != 0 && ours == PixmapIn(screen, shownName);
}

}  // namespace

bool RootPixmapBackend::ShowsOurs() {
  const XScreen screen(tools_.environment("DISPLAY"));
  return screen.IsOpen() && IsOursShown(screen);
}

bool RootPixmapBackend::Set(const std::string& file, WallpaperMode mode) {
  const XScreen screen(tools_.environment("DISPLAY"));
  if (!screen.IsOpen() || !IsAsOurs(screen) || IsCovered(screen)) return false;
  Pixels pixels;
  try {
    pixels = DrawWallpaper(open_(file), mode, screen.GetSize(), screen.Monitors());
  } catch (const RunTimeError&) {
    return false;
  }
  const std::uint32_t pixmap = Upload(screen, pixels);
  const Grab alone(screen);
  const std::uint32_t shown = PixmapIn(screen, shownName), shownToo = PixmapIn(screen, shownTooName);
  const std::uint32_t ours = PixmapIn(screen, oursName);
  // Another program's pixmap stays in the server, to be given back. An earlier one of ours has done its work.
  if (ours == 0 || ours != shown) WritePixmaps(screen, beforeName, {shown, shownToo});
  for (const char* property : {shownName, shownTooName, oursName}) WritePixmaps(screen, property, {pixmap});
  ShowBehindAll(screen, pixmap);
  if (ours == shown && IsPixmap(screen, ours)) xcb_kill_client(screen.Connection(), ours);
  xcb_set_close_down_mode(screen.Connection(), XCB_CLOSE_DOWN_RETAIN_PERMANENT);
  return PixmapIn(screen, shownName) == pixmap && xcb_connection_has_error(screen.Connection()) == 0;
}

bool RootPixmapBackend::Restore(const std::optional<std::string>&) {
  const XScreen screen(tools_.environment("DISPLAY"));
  if (!screen.IsOpen()) return false;
  const Grab alone(screen);
  // Once another program has put its own there, the number may belong to somebody else by now.
  if (!IsOursShown(screen)) return false;
  const std::uint32_t ours = PixmapIn(screen, oursName);
  auto before = screen.RootNumbers(beforeName, XCB_ATOM_PIXMAP);
  before.resize(2, 0);
  const bool isThere = IsPixmap(screen, before[0]);
  WriteOrDelete(screen, shownName, isThere ? before[0] : 0);
  WriteOrDelete(screen, shownTooName, isThere && IsPixmap(screen, before[1]) ? before[1] : 0);
  ShowBehindAll(screen, isThere ? before[0] : std::uint32_t{XCB_BACK_PIXMAP_NONE});
  for (const char* property : {oursName, beforeName}) WriteOrDelete(screen, property, 0);
  if (IsPixmap(screen, ours)) xcb_kill_client(screen.Connection(), ours);
  return true;
}

}  // namespace lumidex
