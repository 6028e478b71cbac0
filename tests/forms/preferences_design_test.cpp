// What stands in the preferences before anybody touches them.

#include <gmock/gmock.h>

#include "forms/frmPreferences.h"
#include "support/test_program.h"

namespace lumidex {
namespace {

using testing::ElementsAre;

struct PreferencesDesign : TestProgram {};

TEST_F(PreferencesDesign, The_captions_stand_as_designed) {
  const std::pair<const char*, const char*> captions[] = {
      {"cmdOK", "&OK"},
      {"Label1", "Select File Types:"},
      {"cmdSelectAllTypes", "Select All &Types"},
      {"cmdClearAllTypes", "C&lear All Types"},
      {"cmdInvertSelections", "&Invert Selcetions"},
      {"cmdWebFormats", "&Web Formats"},
      {"cmdMicrosoftFormats", "&Microsoft Formats"},
      {"cmdPortableFormats", "&PortableFormats"},
      {"lblScreenOptions(0)", "Main Screen Options:"},
      {"lblScreenOptions(1)", "Image Summary Form Options:"},
      {"lblWPaper2Color(0)", ""},
      {"lblWPaper2Color(7)", ""},
      {"chkStretch", "Stretc&h Viewer Image"},
      {"chkMenuAltBackground", "Display &Menu View Alternate Background"},
      {"cmdMenuSelect", "&Select"},
      {"chkCountFileTypes", "Count File Types"},
      {"chkCountFileSize", "Count File Size"},
      {"chkCountFileColorDepth", "Count File Color Depth"},
      {"cmdFileSummary", "Gra&phic Image File Information Summary"},
      {"lblJPGSaveSettings", "Save JPG Settings"},
      {"lblJPGQuality", "JPG Save Quality"},
      {"lblJPGSmoothing", "JPG Smoothing"},
      {"chkJPGOptimize", "Optimize JPG File Save Size"},
      {"fmJPGDitherMethodSaving", "JPG Dither Method"},
      {"optJPGDitherSaving(0)", "None"},
      {"optJPGDitherSaving(1)", "Ordered"},
      {"optJPGDitherSaving(2)", "Floyd-Steinberg"},
      {"fmDCTMethod", "JPG DCT Method"},
      {"optDCTMethod(0)", "Slow Integer"},
      {"optDCTMethod(1)", "Fast Integer"},
      {"optDCTMethod(2)", "Floating Point"},
      {"fmDither", "Dither Colors"},
      {"optDither(0)", "No Dithering"},
      {"optDither(1)", "Dither Always"},
      {"optDither(2)", "Dither Extra Colors"},
      {"fmJPGDither", "JPG Dither Method"},
      {"optJPGDither(0)", "None"},
      {"optJPGDither(1)", "Ordered"},
      {"optJPGDither(2)", "Floyd-Steinberg"},
      {"chkFancyUpsizing", "JPG Fancy Upsizing"},
      {"chkTwoPassQuantize", "JPG Two Pass Quantize"},
      {"chkThumbNailStyle", "Thumbnail Style"},
      {"lblThumbNailSize", "Thumbnail Size:"},
      {"Label2", "Select File Types:"},
      {"Label3", "The Association Feature is still under development.....  COMING SOON......"},
      {"cmdAssocSelectAll", "Select All &Types"},
      {"cmdAssocClearAll", "C&lear All Types"},
      {"cmdAssocInvertAll", "&Invert Selcetions"},
      {"cmdMakeAssoc", "Set Associations"},
  };
  EXPECT_EQ(app.frmPreferences.Caption.Get(), "Korvane Lumidex - Preferences");
  for (const auto& [name, caption] : captions) {
    Control* control = app.frmPreferences.Find(name);
    ASSERT_NE(control, nullptr) << name;
    EXPECT_EQ(control->ReadProperty("Caption"), caption) << name;
  }
  EXPECT_THAT(app.frmPreferences.SSTab1.Captions(),
              ElementsAre("Select View &File Types", "Background Settings / Report Info",
                          "JPEG Display / Save Settings", "Toolbar / Thumbnail Settings",
                          "Associate File Types", "File Type Icon Reference"));
}

TEST_F(PreferencesDesign, The_options_begin_at_their_design_values) {
  frmPreferencesWindow& form = app.frmPreferences;
  for (int type = 1; type <= FileTypeCount; ++type) EXPECT_EQ(form.chkFileType(type).Value, 1) << type;
  for (int type = 1; type <= FileTypeCount; ++type) EXPECT_EQ(form.chkAssocFileType(type).Value, 1) << type;
  for (const CheckBox* box :
       {&form.chkCountFileTypes, &form.chkCountFileSize, &form.chkCountFileColorDepth}) {
    EXPECT_EQ(box->Value, 1) << box->Name();
  }
  for (const CheckBox* box : {&form.chkStretch, &form.chkMenuAltBackground, &form.chkJPGOptimize,
                              &form.chkFancyUpsizing, &form.chkTwoPassQuantize, &form.chkThumbNailStyle}) {
    EXPECT_EQ(box->Value, 0) << box->Name();
  }
  for (ControlArray<OptionButton>* options :
       {&form.optJPGDitherSaving, &form.optDCTMethod, &form.optDither, &form.optJPGDither}) {
    for (int index = 0; index < 3; ++index) EXPECT_EQ((*options)(index).Value, index == 0);
  }
  for (Control* control : std::initializer_list<Control*>{&form.txtJPGQuality, &form.udJPGQuality,
                                                          &form.txtJPGSmoothing, &form.udJPGSmoothing}) {
    EXPECT_EQ(control->ToolTipText.Get(), "Value Range (1-100)") << control->Name();
  }
  for (const UpDown* steps : {&form.udJPGQuality, &form.udJPGSmoothing}) {
    EXPECT_EQ(steps->Min, 1);
    EXPECT_EQ(steps->Max, 100);
    EXPECT_EQ(steps->SmallChange, 1);
  }
  EXPECT_EQ(form.txtJPGQuality.Text.Get(), "100");
  EXPECT_EQ(form.txtJPGSmoothing.Text.Get(), "100");
  EXPECT_EQ(form.sldThumbNailSize.Min, 50);
  EXPECT_EQ(form.sldThumbNailSize.Max, 200);
  EXPECT_EQ(form.sldThumbNailSize.TickFrequency, 10);
  EXPECT_EQ(form.sldThumbNailSize.Value, 100);
  EXPECT_FALSE(form.cmdMenuSelect.Enabled);
}

TEST_F(PreferencesDesign, The_swatches_have_the_colours_of_the_windows_grounds) {
  std::vector<std::int32_t> colours;
  for (int index = 0; index < 8; ++index)
    colours.push_back(app.frmPreferences.lblWPaper2Color(index).BackColor);
  EXPECT_THAT(colours, ElementsAre(-1, 0xE0E0E0, 0x00FF00, 0x00FFFF, 0xFF0000, 0xFFFF00, 0x0000FF, 0xFF00FF));
}

TEST_F(PreferencesDesign, The_toolbar_list_names_the_nineteen_buttons) {
  std::vector<std::string> texts;
  for (int entry = 0; entry < app.frmPreferences.List1.ListCount(); ++entry) {
    texts.push_back(app.frmPreferences.List1.List(entry));
    EXPECT_TRUE(app.frmPreferences.List1.Selected(entry)) << entry;
  }
  EXPECT_THAT(texts, ElementsAre("Directory", "Load List", "Save List", "Exit Lumidex", "Copy to Clipboard",
                                 "Wallpaper Centered", "Wallpaper Stretched", "Wallpaper Tiled",
                                 "Remove Wallpaper", "Previous Image", "Next Image", "Adjust Color Balances",
                                 "Adjust Contrast and Brightness", "Rotate Image 90 degrees",
                                 "Zoom Level Decrease", "Zoom Level Increase", "Display Lumidex Options",
                                 "Display Lumidex Full Screen Zoom Viewer", "Display Help/About!"));
}

}  // namespace
}  // namespace lumidex
