// The services of the world: what they hold, and how they fail when a scenario wants it.

#include "base/run_time_error.h"
#include "forms/WPaper2.h"
#include "forms/checkjpg.h"
#include "forms/frmBackground.h"
#include "number_raised.h"
#include "scenario_driver/driver_test.h"

namespace lumidex::scenario {
namespace {

// The outcome of lines around a click on the main window, which runs `call`; the error that it raises, or 0,
// stands in ViewMode.
std::string AroundClick(const std::string& before, std::function<void(App&)> call, const std::string& after) {
  return OutcomeStarted(before + "click WPaper2\n" + after, [call](App& app) {
    app.WPaper2.OnClick = [&app, call] {
      app.ViewMode = static_cast<std::int16_t>(NumberRaisedBy([&] { call(app); }));
    };
  });
}

// Asks the registry as the program does; the answers of the calls, the type and the bytes go into the record.
void AskRegistry(App& app) {
  RegistryKey key = 0;
  Desktop& desktop = app.platform.desktop;
  app.ImageWidth = static_cast<std::int16_t>(
      desktop.RegOpenKeyExA(HKEY_LOCAL_MACHINE, "SOFTWARE\\Tools", KEY_READ_WRITE, key));
  std::uint32_t type = 0;
  std::string bytes(8, ' ');
  app.ImageHeight = static_cast<std::int16_t>(desktop.RegQueryValueExA(key, "value", type, bytes));
  app.CurrentIndex = static_cast<std::int32_t>(type);
  app.SearchDirectory = bytes;
  desktop.RegCloseKey(key);
}

TEST(Registry, A_number_has_its_type_and_its_bytes_lowest_first) {
  EXPECT_EQ(AroundClick("registry \"SOFTWARE\\Tools\\value\" dword 2018915346\n", AskRegistry,
                        "expect global ImageWidth = 0\nexpect global ImageHeight = 0\n"
                        "expect global CurrentIndex = 4\nexpect global SearchDirectory = \"%124Vx\"\n"
                        "expect registry \"SOFTWARE\\Tools\\value\" = 2018915346\n"
                        "expect registry type \"SOFTWARE\\Tools\\value\" = 4\n"
                        "expect registry bytes \"SOFTWARE\\Tools\\value\" = 12 34 56 78\n"
                        "expect registry access = 131135\nexpect registry keys open = 0\n"),
            "passes");
}

TEST(Registry, A_text_ends_in_a_zero_and_other_bytes_stand_as_they_are) {
  EXPECT_EQ(AroundClick("registry SOFTWARE\\Tools\\value string \"text\"\n", AskRegistry,
                        "expect global CurrentIndex = 1\nexpect global SearchDirectory = \"text%00\"\n"
                        "expect registry SOFTWARE\\Tools\\value = text\n"),
            "passes");
  EXPECT_EQ(
      AroundClick("registry SOFTWARE\\Tools\\value bytes 0A 00 FF\n", AskRegistry,
                  "expect global CurrentIndex = 3\nexpect registry SOFTWARE\\Tools\\value = 0A 00 FF\n"),
      "passes");
}

TEST(Registry, Keys_values_and_buffers_that_do_not_fit_are_refused) {
  EXPECT_EQ(AroundClick("", AskRegistry, "expect global ImageWidth = 2\nexpect global ImageHeight = 6\n"),
            "passes")
      << "a key of the machine exists only with values";
  EXPECT_EQ(AroundClick("registry SOFTWARE\\Tools\\value string \"longer text\"\n", AskRegistry,
                        "expect global ImageHeight = 234\n"),
            "passes");
  EXPECT_EQ(AroundClick("registry SOFTWARE\\Tools\\other string \"x\"\n", AskRegistry,
                        "expect global ImageWidth = 0\nexpect global ImageHeight = 2\n"),
            "passes");
}

TEST(Registry, Single_calls_fail_when_they_are_told_to) {
  const std::string value = "registry SOFTWARE\\Tools\\value string \"x\"\n";
  EXPECT_EQ(
      AroundClick(value + "desktop fails RegOpenKeyExA\n", AskRegistry, "expect global ImageWidth = 2\n"),
      "passes");
  EXPECT_EQ(AroundClick(value + "desktop fails RegQueryValueExA\n", AskRegistry,
                        "expect global ImageWidth = 0\nexpect global ImageHeight = 5\n"),
            "passes");
  EXPECT_EQ(
      AroundClick(value + "desktop fails RegCloseKey\n", AskRegistry, "expect registry keys open = 1\n"),
      "passes");
  EXPECT_EQ(
      AroundClick(value + "desktop fails\ndesktop works\n", AskRegistry, "expect global ImageWidth = 0\n"),
      "passes");
}

void SetWallpaper(App& app) {
  RegistryKey key = 0;
  Desktop& desktop = app.platform.desktop;
  app.ImageWidth = static_cast<std::int16_t>(
      desktop.RegOpenKeyExA(HKEY_CURRENT_USER, "Control Panel\\Desktop", KEY_SET_VALUE, key));
  app.ImageHeight = static_cast<std::int16_t>(desktop.RegSetValueExA(key, "TileWallpaper", REG_SZ, "0"));
  desktop.RegCloseKey(key);
  app.SearchRunning = desktop.SystemParametersInfoA(SPI_SETDESKWALLPAPER, 0, "C:\\a.bmp", 3);
}

TEST(DesktopCalls, What_is_set_can_be_told_with_type_bytes_and_access) {
  EXPECT_EQ(AroundClick("", SetWallpaper,
                        "expect registry \"Control Panel\\Desktop\\TileWallpaper\" = 0\n"
                        "expect registry bytes \"Control Panel\\Desktop\\TileWallpaper\" = 30\n"
                        "expect registry type \"Control Panel\\Desktop\\TileWallpaper\" = 1\n"
                        "expect registry access = 2\nexpect wallpaper = C:\\a.bmp\n"
                        "expect global SearchRunning = True\n"),
            "passes");
}

TEST(DesktopCalls, The_wallpaper_stays_when_the_call_fails) {
  EXPECT_EQ(AroundClick("desktop fails SystemParametersInfoA\n", SetWallpaper,
                        "expect wallpaper =\nexpect global SearchRunning = False\n"
                        "expect registry \"Control Panel\\Desktop\\TileWallpaper\" = 0\n"),
            "passes");
  EXPECT_EQ(AroundClick("desktop fails RegSetValueExA\n", SetWallpaper,
                        "expect global ImageHeight = 5\n"
                        "expect registry \"Control Panel\\Desktop\\TileWallpaper\" = (none)\n"),
            "passes");
}

TEST(Settings, A_store_that_can_not_be_had_raises) {
  const auto save = [](App& app) { app.platform.settings.SaveSetting("Options", "Key", "1"); };
  const auto get = [](App& app) {
    app.SearchDirectory = app.platform.settings.GetSetting("Options", "Key", "preset");
  };
  EXPECT_EQ(AroundClick("", save, "expect global ViewMode = 0\nexpect setting Options Key = 1\n"), "passes");
  EXPECT_EQ(AroundClick("settings fail\n", save,
                        "expect global ViewMode = 5\nexpect setting Options Key = (none)\n"),
            "passes");
  EXPECT_EQ(AroundClick("setting Options Key 7\n", get, "expect global SearchDirectory = 7\n"), "passes");
  EXPECT_EQ(AroundClick("settings fail\n", get, "expect global ViewMode = 5\n"), "passes");
  EXPECT_EQ(AroundClick("settings fail\nsettings work\n", get, "expect global SearchDirectory = preset\n"),
            "passes");
}

// Puts the picture of the file onto the clipboard.
std::function<void(App&)> Copy(ClipboardFormat format) {
  return [format](App& app) {
    app.platform.clipboard.Clear();
    app.platform.clipboard.SetData(app.platform.loader.LoadPicture("C:\\a.bmp"), format);
  };
}

TEST(ClipboardPort, It_keeps_the_picture_with_its_pixels_and_the_format_number) {
  const std::string picture = "file C:\\a.bmp picture 8x4\n";
  EXPECT_EQ(AroundClick(picture, Copy(ClipboardFormat::Own),
                        "expect global ViewMode = 0\nexpect clipboard picture = 8 x 4\n"
                        "expect clipboard format = 0\nexpect pixel clipboard at 7,3 = #FFFF40\n"
                        "expect same picture clipboard file C:\\a.bmp\n"
                        "expect log contains Clipboard.SetData 8 x 4\n"),
            "passes");
  EXPECT_EQ(OutcomeStarted("expect clipboard format = 0\n"),
            "1: expect clipboard format = 0\n    but it is \"(none)\"");
}

TEST(ClipboardPort, A_bitmap_is_refused_as_a_metafile) {
  EXPECT_EQ(AroundClick("file C:\\a.bmp picture 8x4\n", Copy(ClipboardFormat::Metafile),
                        "expect global ViewMode = 460\nexpect clipboard picture = (none)\n"
                        "expect log contains Clipboard.SetData 8 x 4, 3\n"),
            "passes");
}

TEST(ClipboardPort, One_that_can_not_be_had_raises) {
  EXPECT_EQ(AroundClick(
                "clipboard fails\n", [](App& app) { app.platform.clipboard.SetText("x"); },
                "expect global ViewMode = 521\nexpect clipboard text =\n"),
            "passes");
  EXPECT_EQ(AroundClick(
                "clipboard fails\nclipboard works\n", [](App& app) { app.platform.clipboard.SetText("x"); },
                "expect global ViewMode = 0\nexpect clipboard text = x\n"),
            "passes");
}

TEST(Loader, It_can_decode_differently_so_that_its_pictures_can_be_told) {
  const auto load = [](App& app) {
    app.WPaper2.Image1.Picture = app.platform.loader.LoadPicture("C:\\a.bmp");
  };
  const std::string picture = "file C:\\a.bmp picture 8x4\n";
  EXPECT_EQ(AroundClick(picture, load, "expect pixel Image1 at 0,0 = #000040\n"), "passes");
  EXPECT_EQ(AroundClick(picture + "loader inverts\n", load, "expect pixel Image1 at 0,0 = #FFFFBF\n"),
            "passes");
  EXPECT_EQ(AroundClick(picture + "loader fails\n", load, "expect global ViewMode = 481\n"), "passes");
}

TEST(BrowserPort, Each_browser_has_a_state_of_its_own) {
  const auto ask = [](App& app) {
    Browser& browser = app.platform.browser;
    browser.Navigate(0, "http://one");
    app.SearchDirectory = browser.LocationName(1);
    app.SearchRunning = browser.Busy(2);
  };
  EXPECT_EQ(AroundClick("browser 1 named \"A page\"\nbrowser 2 busy\n", ask,
                        "expect global SearchDirectory = A page\nexpect global SearchRunning = True\n"
                        "expect browser 0 address = http://one\nexpect browser 1 address =\n"
                        "expect log contains Navigate 0 http://one\n"),
            "passes");
  EXPECT_EQ(AroundClick("browser 2 busy\nbrowser 2 ready\n", ask, "expect global SearchRunning = False\n"),
            "passes");
  EXPECT_EQ(AroundClick("browser 0 fails\n", ask,
                        "expect global ViewMode = 440\nexpect log contains Navigate 0 http://one\n"),
            "passes");
  EXPECT_EQ(Outcome("drives\nbrowser 0 gone\n"),
            "2: \"gone\" is not \"busy\", \"ready\", \"named\", \"fails\" or \"works\"");
}

TEST(Files, A_reported_size_needs_no_content) {
  EXPECT_EQ(OutcomeStarted(
                "file C:\\a.bmp picture 8x4\nfile C:\\a.bmp reported 1500000000\n"
                "expect file C:\\a.bmp size = 1500000000\nexpect file C:\\a.bmp picture = 8 x 4 x 24 BMP\n"
                "file C:\\new reported 5\nexpect file C:\\new size = 5\nexpect file C:\\new =\n"
                "file C:\\new empty\nexpect file C:\\new size = 0\n"),
            "passes");
}

TEST(Files, The_time_of_a_file_is_set) {
  EXPECT_EQ(OutcomeStarted("file C:\\a empty\nexpect file C:\\a modified = 2002-03-15 10:00:05\n"
                           "modified C:\\a 2001-03-05 14:07:00\n"
                           "expect file C:\\a modified = 2001-03-05 14:07:00\n"),
            "passes");
  EXPECT_EQ(OutcomeStarted("modified C:\\none 2001-03-05\n"), "1: error 53, File not found: C:\\none");
}

TEST(Files, A_sample_picture_has_the_depth_that_is_asked_for) {
  EXPECT_EQ(OutcomeStarted("file C:\\a.png picture 8x4x32\nexpect file C:\\a.png picture = 8 x 4 x 32 PNG\n"
                           "file C:\\b.png picture 8x4x24\nexpect file C:\\b.png picture = 8 x 4 x 24 PNG\n"
                           "file C:\\c.ico picture 8x4x32\nexpect file C:\\c.ico picture = 8 x 4 x 32 ICO\n"
                           "expect same picture file C:\\a.png file C:\\b.png\n"),
            "passes");
  EXPECT_EQ(Outcome("drives\nfile C:\\a.bmp picture 8x4x32\n"),
            "2: no sample picture can be made of the kind \".bmp\" with 32 bits a pixel");
}

TEST(DesignPictures, A_picture_is_drawn_into_the_design) {
  EXPECT_EQ(Outcome("drives\npicture of frmBackground.Image1 64x48\nstart\npress Escape in frmTip\n"
                    "expect pixel frmBackground.Image1 at 63,47 = #FFFF40\n"
                    "choose mnuFileDirectory\n"
                    "expect same picture frmBackground.Image1 SelectPictureDirectoryForm.Image1\n"),
            "passes");
  EXPECT_EQ(OutcomeStarted("picture of cmdUp 4x4\n"), "1: cmdUp takes no picture");
  EXPECT_EQ(OutcomeStarted("picture of imgNothing 4x4\n"), "1: there is no control \"imgNothing\"");
}

TEST(ImageControlStatements, The_second_turn_fails_and_the_others_do_not) {
  const auto turn = [](App& app) {
    Gvbox& box = app.checkjpg.Picture1;
    box.SetFileName("C:\\a.bmp");
    for (int i = 0; i < 3; ++i) app.CurrentIndex += NumberRaisedBy([&] { box.Rotate(1); }) == 0 ? 1 : 10;
  };
  const std::string picture = "file C:\\a.bmp picture 8x4\n";
  EXPECT_EQ(AroundClick(picture + "image control fails Rotate 2\nlog image control\n", turn,
                        "expect global CurrentIndex = 12\nexpect log contains Picture1.Rotate 1\n"),
            "passes");
  EXPECT_EQ(AroundClick(picture, turn, "expect global CurrentIndex = 3\n"), "passes");
  EXPECT_EQ(AroundClick(picture + "image control fails Rotate\n", turn, "expect global CurrentIndex = 3\n"),
            "4: expect global CurrentIndex = 3\n    but it is \"12\"");
}

TEST(ImageControlStatements, Painting_is_told_with_its_numbers) {
  const auto flip = [](App& app) {
    Gvbox& box = app.checkjpg.Picture1;
    box.SetFileName("C:\\a.bmp");
    box.AutoRedraw = 1;
    box.PaintPicture(box.Picture(), 639, 0, -640, 480, 0, 0, 640, 480);
  };
  EXPECT_EQ(AroundClick("file C:\\a.bmp picture 8x4\nlog image control\nclear log\n", flip,
                        "expect log:\n  Picture1.FileName = C:\\a.bmp\n  Picture1.AutoRedraw = 1\n"
                        "  Picture1.Picture\n  Picture1.PaintPicture 639 0 -640 480 0 0 640 480\n"),
            "passes");
}

TEST(ImageControlStatements, Words_that_make_no_sense_are_refused) {
  EXPECT_EQ(Outcome("drives\nimage control breaks\n"), "2: \"breaks\" stands where \"fails\" belongs");
  EXPECT_EQ(Outcome("drives\nimage control fails 3718\n"), "2: \"on\" is missing");
  EXPECT_EQ(Outcome("drives\nlog everything\n"), "2: \"everything\" stands where \"image\" belongs");
}

}  // namespace
}  // namespace lumidex::scenario
