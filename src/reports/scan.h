#pragma once
// The scan of the Display list: counts its files by type, size and depth while the user watches, writes the
// two report files and fills the grid of the report window.

#include "forms/app.h"

namespace lumidex {

// Walks the list once. Every error is ignored where it arises. Ends early when ScanRunning is cleared or the
// window is closed; the HTML report gets its end all the same, and the text report stays open.
void ScanFiles(App& app);

// Loads a file into the working image; one that can't be loaded leaves it empty.
void LoadScratchImage(App& app, std::string path);

}  // namespace lumidex
