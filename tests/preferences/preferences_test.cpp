#include <gmock/gmock.h>

#include "forms/WPaper2.h"
#include "forms/frmPreferences.h"
#include "pictures/pixels.h"
#include "preferences/file_type_selection.h"
#include "preferences/picture_options.h"
#include "preferences/window_color.h"
#include "support/test_program.h"

namespace lumidex {
namespace {

using testing::ElementsAre;

class Preferences : public TestProgram {
 protected:
  void SetUp() override {
    ShowMainWindow();
    app.frmPreferences.Load();
  }
  std::vector<int> TickedTypes() {
    std::vector<int> ticked;
    for (int type = 1; type <= FileTypeCount; ++type) {
      if (app.frmPreferences.chkFileType(type).Value == 1) ticked.push_back(type);
    }
    return ticked;
  }
};

TEST_F(Preferences, Every_menu_item_opens_the_page_of_its_number) {
  WPaper2Window& window = app.WPaper2;
  MenuItem* const items[] = {&window.mnuOptionsFileTypes,
                             &window.mnuOptionsScreenSettings,
                             &window.mnuOptionsGraphicViewingImageQuality,
                             &window.mnuOptionsSavingJPEGFileFormat,
                             &window.mnuOptionsAssociate,
                             &window.mnuOptionsToolbarSettings};
  for (int page = 5; page >= 0; --page) {
    platform.events.NextUserAction = [&] {
      EXPECT_EQ(app.frmPreferences.SSTab1.Tab, page);
      EXPECT_TRUE(app.frmPreferences.IsModal());
      app.frmPreferences.cmdOK.UserClick();
      return true;
    };
    items[page]->OnClick();
    EXPECT_FALSE(app.frmPreferences.Visible());
  }
}

TEST_F(Preferences, Loading_takes_the_main_windows_icon_wipes_the_drawing_and_yields) {
  app.exiting = true;
  app.frmPreferences.Unload();
  app.exiting = false;
  app.WPaper2.Icon = Picture::FromPixels(Pixels::Make({16, 16}, PixelFormat::Rgb, 0), 24);
  app.frmPreferences.Draw({{0, 4, 0xFF}});
  const int yields = platform.events.Yields();
  app.frmPreferences.Load();
  EXPECT_EQ(app.frmPreferences.Icon.Get().GetSize(), (Size{16, 16}));
  EXPECT_TRUE(app.frmPreferences.Drawing().empty());
  EXPECT_EQ(platform.events.Yields(), yields + 1);
}

TEST_F(Preferences, Each_preset_ticks_exactly_its_types) {
  SelectWebFormats(app);
  EXPECT_THAT(TickedTypes(), ElementsAre(8, 13, 21));
  SelectMicrosoftFormats(app);
  EXPECT_THAT(TickedTypes(), ElementsAre(2, 3, 5, 6, 10, 16, 25, 28));
  SelectPortableFormats(app);
  EXPECT_THAT(TickedTypes(), ElementsAre(17, 19, 21, 22, 23));
}

TEST_F(Preferences, A_ramp_has_128_bands_of_4_rows_from_128_to_255) {
  PaintGradient(app.WPaper2, true, false, true);
  const auto& bands = app.WPaper2.Drawing();
  ASSERT_EQ(bands.size(), 128U);
  for (int i = 0; i < 128; ++i) {
    const DrawnBand& band = bands[static_cast<std::size_t>(i)];
    EXPECT_EQ(band.top, 4 * i);
    EXPECT_EQ(band.bottom, 4 * i + 4);
    EXPECT_EQ(band.colour, (128 + i) | (128 + i) << 16);
  }
}

TEST_F(Preferences, Any_picture_given_to_a_form_wipes_the_ramp) {
  for (const Picture& picture :
       {Picture(), Picture::FromPixels(Pixels::Make({2, 2}, PixelFormat::Rgb, 0), 24)}) {
    SetWindowColor(app, 4);
    ASSERT_FALSE(app.WPaper2.Drawing().empty());
    app.WPaper2.Picture = picture;
    EXPECT_TRUE(app.WPaper2.Drawing().empty());
  }
}

TEST_F(Preferences, A_stretched_picture_of_the_selection_list_needs_its_name_in_the_status_bar) {
  FillSelectionList(2);
  app.WPaper2.LstLeft.SetListIndex(1);
  app.WPaper2.StatusBar1.SetText(2, "Something Else");
  app.CurrentImagePath = "untouched";
  RedisplayForStretch(app);
  EXPECT_EQ(app.CurrentImagePath, "untouched");
  app.WPaper2.StatusBar1.SetText(2, "F1.Bmp");
  RedisplayForStretch(app);
  EXPECT_EQ(app.CurrentImagePath, "C:\\Found\\f1.bmp");
}

TEST_F(Preferences, The_display_list_comes_before_the_selection_list) {
  FillSelectionList(1);
  FillDisplayList(1);
  app.WPaper2.LstLeft.SetListIndex(0);
  app.WPaper2.LstRight.SetListIndex(0);
  app.WPaper2.StatusBar1.SetText(2, "F0.Bmp And P0.Bmp");
  RedisplayForStretch(app);
  EXPECT_EQ(app.CurrentImagePath, "C:\\Pics\\p0.bmp");
}

TEST_F(Preferences, The_toolbar_list_comes_back_with_the_design) {
  app.frmPreferences.List1.SetSelected(3, false);
  app.frmPreferences.List1.RemoveItem(0);
  app.frmPreferences.RestoreDesign();
  EXPECT_EQ(app.frmPreferences.List1.ListCount(), 19);
  EXPECT_EQ(app.frmPreferences.List1.List(0), "Directory");
  EXPECT_TRUE(app.frmPreferences.List1.Selected(3));
}

TEST_F(Preferences, A_drag_fires_scroll_and_only_a_drop_elsewhere_fires_change) {
  Slider& slider = app.frmPreferences.sldThumbNailSize;
  int scrolls = 0, changes = 0;
  slider.OnScroll = [&] { ++scrolls; };
  slider.OnChange = [&] { ++changes; };
  slider.UserDrag(150);
  slider.UserDrag(1000);
  EXPECT_EQ(slider.Value, 200);
  EXPECT_EQ(changes, 0);
  slider.UserDrop();
  EXPECT_EQ(changes, 1);
  slider.UserDrag(90);
  slider.UserDrag(200);
  slider.UserDrop();
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(scrolls, 4);
}

}  // namespace
}  // namespace lumidex
