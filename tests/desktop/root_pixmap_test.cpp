// On an X server of the test's own: the pixmap behind everything, read back and compared pixel by pixel.

#include <gmock/gmock.h>

#include "desktop/child_program.h"
#include "desktop/recorded_tools.h"
#include "pictures/pixels.h"
#include "platform/posix/screen_awake.h"
#include "platform/posix/wallpaper/canvas.h"
#include "platform/posix/wallpaper/root_pixmap_backend.h"
#include "platform/posix/x11/x_screen.h"
#include "platform/posix/x11/x_suspend.h"

namespace lumidex {
namespace {

// Red grows to the right, green downwards.
Picture Sample(int width, int height) {
  Pixels pixels = Pixels::Make({width, height}, PixelFormat::Rgb, 0xFF000040);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      pixels.Row(y)[static_cast<std::size_t>(x)] |=
          static_cast<std::uint32_t>(x % 256) << 16 | static_cast<std::uint32_t>(y % 256) << 8;
    }
  }
  return Picture::FromPixels(pixels, 24);
}

class RootPixmapTest : public testing::Test {
 protected:
  RootPixmapTest() { world_.variables["DISPLAY"] = display_; }

  // The colours of a pixmap or of the root window, rows one after the other.
  static std::vector<std::uint32_t> Read(const XScreen& screen, std::uint32_t drawable) {
    const auto cookie =
        xcb_get_image(screen.Connection(), XCB_IMAGE_FORMAT_Z_PIXMAP, drawable, 0, 0,
                      screen.Screen().width_in_pixels, screen.Screen().height_in_pixels, 0xFFFFFFFF);
    const auto reply = Owned(xcb_get_image_reply(screen.Connection(), cookie, nullptr));
    if (!reply) return {};
    const auto* words = reinterpret_cast<const std::uint32_t*>(xcb_get_image_data(reply.get()));
    std::vector<std::uint32_t> colours(words, words + xcb_get_image_data_length(reply.get()) / 4);
    for (auto& colour : colours) colour &= 0xFFFFFF;
    return colours;
  }
  static std::vector<std::uint32_t> Words(const Pixels& pixels) {
    std::vector<std::uint32_t> colours;
    for (int y = 0; y < pixels.Height(); ++y) {
      for (const auto word : pixels.Row(y)) colours.push_back(word & 0xFFFFFF);
    }
    return colours;
  }
  static std::uint32_t First(const XScreen& screen, const char* property) {
    const auto numbers = screen.RootNumbers(property, XCB_ATOM_PIXMAP);
    return numbers.empty() ? 0 : numbers.front();
  }
  bool SetTo(const Picture& picture, WallpaperMode mode) {
    picture_ = picture;
    return backend_.Set("/w.bmp", mode);
  }
  void ExpectShown(const XScreen& screen, const Picture& picture, WallpaperMode mode,
                   const std::vector<MonitorPlace>& monitors) {
    const auto wanted = Words(DrawWallpaper(picture, mode, screen.GetSize(), monitors));
    const std::uint32_t pixmap = First(screen, "_XROOTPMAP_ID");
    EXPECT_NE(pixmap, 0U);
    EXPECT_EQ(First(screen, "ESETROOT_PMAP_ID"), pixmap);
    EXPECT_TRUE(Read(screen, pixmap) == wanted);
    EXPECT_TRUE(Read(screen, screen.Screen().root) == wanted);
  }
  // Another program's wallpaper, as such programs set it; the connection closes as theirs does.
  std::uint32_t PutAnothers(std::uint32_t colour) {
    XScreen screen(display_);
    const std::uint32_t pixmap = xcb_generate_id(screen.Connection()),
                        context = xcb_generate_id(screen.Connection());
    const Size size = screen.GetSize();
    xcb_create_pixmap(screen.Connection(), screen.Screen().root_depth, pixmap, screen.Screen().root,
                      static_cast<std::uint16_t>(size.width), static_cast<std::uint16_t>(size.height));
    xcb_create_gc(screen.Connection(), context, pixmap, XCB_GC_FOREGROUND, &colour);
    const xcb_rectangle_t all{0, 0, static_cast<std::uint16_t>(size.width),
                              static_cast<std::uint16_t>(size.height)};
    xcb_poly_fill_rectangle(screen.Connection(), pixmap, context, 1, &all);
    for (const char* property : {"_XROOTPMAP_ID", "ESETROOT_PMAP_ID"}) {
      xcb_change_property(screen.Connection(), XCB_PROP_MODE_REPLACE, screen.Screen().root,
                          screen.Atom(property), XCB_ATOM_PIXMAP, 32, 1, &pixmap);
    }
    xcb_change_window_attributes(screen.Connection(), screen.Screen().root, XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_clear_area(screen.Connection(), 0, screen.Screen().root, 0, 0, 0, 0);
    xcb_set_close_down_mode(screen.Connection(), XCB_CLOSE_DOWN_RETAIN_PERMANENT);
    First(screen, "_XROOTPMAP_ID");  // everything has arrived
    return pixmap;
  }

  ChildProgram server_{
      {"Xvfb", "-displayfd", "3", "-screen", "0", "640x480x24", "-noreset", "-nolisten", "tcp"}, true};
  const std::string display_ = ":" + server_.Line();
  RecordedTools world_;
  Picture picture_;
  RootPixmapBackend backend_{world_.tools, [this](const std::string&) { return picture_; }};
};

TEST_F(RootPixmapTest, The_three_modes_cover_the_screen_and_outlive_the_connection) {
  const Picture sample = Sample(200, 100);
  for (const auto mode : {WallpaperMode::Centered, WallpaperMode::Stretched, WallpaperMode::Tiled}) {
    ASSERT_TRUE(SetTo(sample, mode));
    const XScreen screen(display_);
    ExpectShown(screen, sample, mode, {{"", 0, 0, {640, 480}}});
  }
}

TEST_F(RootPixmapTest, A_centred_picture_stands_in_the_middle_in_its_own_size_on_black) {
  const Pixels drawn =
      DrawWallpaper(Sample(200, 100), WallpaperMode::Centered, {640, 480}, {{"", 0, 0, {640, 480}}});
  EXPECT_EQ(drawn.Row(190)[220], 0xFF000040U);
  EXPECT_EQ(drawn.Row(289)[419], 0xFF000040U | 199U << 16 | 99U << 8);
  EXPECT_EQ(drawn.Row(190)[219], 0xFF000000U);
  EXPECT_EQ(drawn.Row(290)[419], 0xFF000000U);
}

TEST_F(RootPixmapTest, A_centred_picture_larger_than_the_screen_loses_its_edges_evenly) {
  const Pixels drawn = DrawWallpaper(Sample(20, 10), WallpaperMode::Centered, {10, 4}, {{"", 0, 0, {10, 4}}});
  EXPECT_EQ(drawn.Row(0)[0], 0xFF000040U | 5U << 16 | 3U << 8);
  EXPECT_EQ(drawn.Row(3)[9], 0xFF000040U | 14U << 16 | 6U << 8);
}

TEST_F(RootPixmapTest, Tiles_begin_in_the_top_left_corner_of_each_monitor) {
  const Pixels drawn = DrawWallpaper(Sample(7, 5), WallpaperMode::Tiled, {30, 12},
                                     {{"a", 0, 0, {10, 12}}, {"b", 10, 2, {20, 10}}});
  EXPECT_EQ(drawn.Row(0)[0], 0xFF000040U);
  EXPECT_EQ(drawn.Row(5)[7], 0xFF000040U);
  EXPECT_EQ(drawn.Row(2)[10], 0xFF000040U);
  EXPECT_EQ(drawn.Row(11)[29], 0xFF000040U | 5U << 16 | 4U << 8);
  EXPECT_EQ(drawn.Row(0)[10], 0xFF000000U);
}

TEST_F(RootPixmapTest, Transparent_places_are_white) {
  Pixels clear = Pixels::Make({2, 2}, PixelFormat::Argb, 0);
  const Pixels drawn =
      DrawWallpaper(Picture::FromPixels(clear, 32), WallpaperMode::Stretched, {4, 4}, {{"", 0, 0, {4, 4}}});
  EXPECT_EQ(drawn.Row(3)[3], 0xFFFFFFFFU);
}

TEST_F(RootPixmapTest, The_picture_is_centred_on_the_monitor_not_on_the_whole_screen) {
  const auto told = RunProgram(
      {"xrandr", "--display", display_, "--setmonitor", "PART", "240/60x480/120+400+0", "screen"}, 20000);
  ASSERT_TRUE(told && told->exitCode == 0);
  const XScreen screen(display_);
  ASSERT_EQ(screen.Monitors().size(), 1U);
  EXPECT_EQ(screen.Monitors().front().name, "PART");
  const Picture sample = Sample(50, 50);
  ASSERT_TRUE(SetTo(sample, WallpaperMode::Centered));
  ExpectShown(screen, sample, WallpaperMode::Centered, {{"", 400, 0, {240, 480}}});
}

TEST_F(RootPixmapTest, What_another_program_had_set_comes_back) {
  const std::uint32_t anothers = PutAnothers(0x336699);
  EXPECT_FALSE(backend_.ShowsOurs());
  SetTo(Sample(30, 30), WallpaperMode::Tiled);
  SetTo(Sample(40, 40), WallpaperMode::Tiled);
  EXPECT_TRUE(backend_.ShowsOurs());
  EXPECT_TRUE(backend_.Restore({}));
  const XScreen screen(display_);
  EXPECT_EQ(First(screen, "_XROOTPMAP_ID"), anothers);
  EXPECT_EQ(First(screen, "ESETROOT_PMAP_ID"), anothers);
  EXPECT_TRUE(Read(screen, screen.Screen().root) == std::vector<std::uint32_t>(640 * 480, 0x336699));
  EXPECT_FALSE(backend_.ShowsOurs());
}

TEST_F(RootPixmapTest, With_nothing_before_the_properties_go) {
  SetTo(Sample(30, 30), WallpaperMode::Tiled);
  EXPECT_TRUE(backend_.Restore({}));
  const XScreen screen(display_);
  EXPECT_EQ(First(screen, "_XROOTPMAP_ID"), 0U);
  EXPECT_EQ(First(screen, "ESETROOT_PMAP_ID"), 0U);
}

TEST_F(RootPixmapTest, An_earlier_pixmap_of_ours_does_not_stay_behind) {
  SetTo(Sample(30, 30), WallpaperMode::Tiled);
  const XScreen screen(display_);
  const std::uint32_t first = First(screen, "_XROOTPMAP_ID");
  SetTo(Sample(40, 40), WallpaperMode::Tiled);
  EXPECT_TRUE(Read(screen, first).empty());
}

TEST_F(RootPixmapTest, Another_program_s_wallpaper_over_ours_is_not_taken_away) {
  SetTo(Sample(30, 30), WallpaperMode::Tiled);
  const std::uint32_t anothers = PutAnothers(0x336699);
  EXPECT_FALSE(backend_.ShowsOurs());
  EXPECT_FALSE(backend_.Restore({}));
  EXPECT_EQ(First(XScreen(display_), "_XROOTPMAP_ID"), anothers);
}

TEST_F(RootPixmapTest, A_root_window_that_a_desktop_covers_is_left_alone) {
  XScreen screen(display_);
  const std::uint32_t window = screen.Screen().root;
  xcb_change_property(screen.Connection(), XCB_PROP_MODE_REPLACE, screen.Screen().root,
                      screen.Atom("XFCE_DESKTOP_WINDOW"), XCB_ATOM_WINDOW, 32, 1, &window);
  screen.Atom("flushes");
  EXPECT_FALSE(SetTo(Sample(30, 30), WallpaperMode::Tiled));
  EXPECT_EQ(First(screen, "_XROOTPMAP_ID"), 0U);
}

TEST_F(RootPixmapTest, Without_a_server_nothing_works_and_nothing_breaks) {
  world_.variables["DISPLAY"] = ":99999";
  EXPECT_FALSE(SetTo(Sample(30, 30), WallpaperMode::Tiled));
  EXPECT_FALSE(backend_.ShowsOurs());
  EXPECT_FALSE(backend_.Restore({}));
  world_.variables["DISPLAY"] = "";
  EXPECT_FALSE(SetTo(Sample(30, 30), WallpaperMode::Tiled));
}

TEST_F(RootPixmapTest, The_server_s_screen_saver_can_be_suspended) {
  EXPECT_NE(SuspendScreenSaver(world_.tools.environment), nullptr);
  world_.variables["DISPLAY"] = ":99999";
  EXPECT_EQ(SuspendScreenSaver(world_.tools.environment), nullptr);
}

}  // namespace
}  // namespace lumidex
