#pragma once
// The pages of the preferences, each with its widgets laid out.

#include "platform/qt/form_view.h"

namespace lumidex {

QWidget* FileTypesPage(FormView& view);
QWidget* ScreenPage(FormView& view);
QWidget* JpegPage(FormView& view);
QWidget* ToolbarPage(FormView& view);
QWidget* AssociationsPage(FormView& view);
QWidget* IconsPage(FormView& view);

}  // namespace lumidex
