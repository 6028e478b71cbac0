#pragma once
// The pages of the preferences, each with its widgets laid out.

#include "forms/frmPreferences.h"
#include "platform/qt/form_view.h"

namespace lumidex {

QWidget* FileTypesPage(FormView& view, frmPreferencesWindow& form);
QWidget* ScreenPage(FormView& view, frmPreferencesWindow& form);
QWidget* JpegPage(FormView& view, frmPreferencesWindow& form);
QWidget* ToolbarPage(FormView& view, frmPreferencesWindow& form);
QWidget* AssociationsPage(FormView& view, frmPreferencesWindow& form);
QWidget* IconsPage(FormView& view, frmPreferencesWindow& form);

}  // namespace lumidex
