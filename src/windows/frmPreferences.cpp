// The events of the preferences, and the items of the main window's Tools menu that open their pages.

#include <algorithm>

#include "base/text.h"
#include "forms/WPaper2.h"
#include "forms/checkjpg.h"
#include "forms/frmPreferences.h"
#include "forms/frmstats.h"
#include "preferences/alternate_background.h"
#include "preferences/file_type_selection.h"
#include "preferences/pages.h"
#include "preferences/picture_options.h"
#include "preferences/toolbar_list.h"
#include "preferences/window_color.h"
#include "windows/windows.h"

namespace lumidex {
namespace {

void WireForm(App& app) {
  frmPreferencesWindow& form = app.frmPreferences;
  form.OnLoad = [&] {
    form.Icon = app.WPaper2.Icon.Get();
    form.ClearDrawing();
    app.platform.events.Yield();
  };
  form.OnActivate = [&] { RefreshThumbnailPreview(app); };
  form.cmdOK.OnClick = [&] { form.Hide(); };
  // Its controls are the home of the options, so the frame only hides it.
  form.OnQueryUnload = [&](bool& cancel) {
    if (app.exiting) return;
    cancel = true;
    form.Hide();
  };
}

void WireFileTypes(App& app) {
  frmPreferencesWindow& form = app.frmPreferences;
  form.cmdSelectAllTypes.OnClick = [&] { TickAllTypes(form.chkFileType); };
  form.cmdClearAllTypes.OnClick = [&] { ClearAllTypes(form.chkFileType); };
  form.cmdInvertSelections.OnClick = [&] { InvertTypes(form.chkFileType); };
  form.cmdWebFormats.OnClick = [&] { SelectWebFormats(app); };
  form.cmdMicrosoftFormats.OnClick = [&] { SelectMicrosoftFormats(app); };
  form.cmdPortableFormats.OnClick = [&] { SelectPortableFormats(app); };
  // The associations are a selection that goes nowhere.
  form.cmdAssocSelectAll.OnClick = [&] { TickAllTypes(form.chkAssocFileType); };
  form.cmdAssocClearAll.OnClick = [&] { ClearAllTypes(form.chkAssocFileType); };
  form.cmdAssocInvertAll.OnClick = [&] { InvertTypes(form.chkAssocFileType); };
}

void WireScreenOptions(App& app) {
  frmPreferencesWindow& form = app.frmPreferences;
  form.chkStretch.OnClick = [&] { RedisplayForStretch(app); };
  form.lblWPaper2Color.Wire([&app](Label& colour, int index) {
    colour.OnClick = [&app, index] { SetWindowColor(app, static_cast<std::int16_t>(index)); };
  });
  form.chkMenuAltBackground.OnClick = [&] { SwitchAlternateBackground(app); };
  form.cmdMenuSelect.OnClick = [&] { ChooseAlternateBackground(app); };
  form.cmdFileSummary.OnClick = [&] { app.frmstats.Show(Modality::Modal); };
}

// The up-down steps from the number that stands in the text, typed or not; the text itself stays as typed.
void JoinTextAndUpDown(TextBox& text, UpDown& steps) {
  steps.OnChange = [&] { text.Text = Number(steps.Value.Get()); };
  text.OnChange = [&] {
    const double typed = Val(text.Text.Get());
    if (typed > 0) steps.Value.SetQuietly(static_cast<int>(std::clamp(typed, 1.0, 100.0)));
  };
}

void WireChoice(App& app, ControlArray<OptionButton>& options, Property<int> Gvbox::*setting) {
  options.Wire([&app, setting](OptionButton& option, int index) {
    option.OnClick = [&app, setting, index] { app.checkjpg.Picture1.*setting = index; };
  });
}

void WireJpegOptions(App& app) {
  frmPreferencesWindow& form = app.frmPreferences;
  JoinTextAndUpDown(form.txtJPGQuality, form.udJPGQuality);
  JoinTextAndUpDown(form.txtJPGSmoothing, form.udJPGSmoothing);
  WireChoice(app, form.optDCTMethod, &Gvbox::DCTMethod);
  WireChoice(app, form.optDither, &Gvbox::DitherMethod);
  WireChoice(app, form.optJPGDither, &Gvbox::JPGDitherMethod);
  // Whichever way the box stands, a click on the first switches off and a click on the second on.
  form.chkFancyUpsizing.OnClick = [&] {
    app.checkjpg.Picture1.FancyUpsizing = form.chkFancyUpsizing.Value == -1;
  };
  form.chkTwoPassQuantize.OnClick = [&] { app.checkjpg.Picture1.TwoPassQuantize = true; };
}

void WireToolbarAndThumbnails(App& app) {
  frmPreferencesWindow& form = app.frmPreferences;
  form.List1.OnItemCheck = [&](int) { ApplyToolbarList(app); };
  form.List1.OnClick = [&] { ApplyToolbarList(app); };
  form.chkThumbNailStyle.OnClick = [&] { RefreshThumbnailPreview(app); };
  form.sldThumbNailSize.OnChange = [&] { RefreshThumbnailPreview(app); };
  form.sldThumbNailSize.OnScroll = [&] { ShowThumbnailSize(app); };
}

void WirePages(App& app) {
  WPaper2Window& window = app.WPaper2;
  const auto opens = [&app](MenuItem& item, int tab) {
    item.OnClick = [&app, tab] { OpenPreferencesPage(app, tab); };
  };
  opens(window.mnuOptionsFileTypes, 0);
  opens(window.mnuOptionsScreenSettings, 1);
  opens(window.mnuOptionsGraphicViewingImageQuality, 2);
  opens(window.mnuOptionsSavingJPEGFileFormat, 3);
  opens(window.mnuOptionsAssociate, 4);
  opens(window.mnuOptionsToolbarSettings, 5);
  window.mnuOptionsDisplayOptions.OnClick = [&app] { app.platform.desktop.ShowDisplaySettings(); };
}

}  // namespace

void WirefrmPreferences(App& app) {
  WireForm(app);
  WireFileTypes(app);
  WireScreenOptions(app);
  WireJpegOptions(app);
  WireToolbarAndThumbnails(app);
  WirePages(app);
}

}  // namespace lumidex
