#pragma once
// The working image: the file in the shared image control, and its facts.

#include "forms/app.h"

namespace lumidex {

// Loads the file into the working image and gives Image1 its picture; files with ".GIF" anywhere in their
// path come through the platform's own loader. Errors are dropped.
void LoadPictureFile(App& app, std::string path);

// Has the file in the working image again, where a preview in the yields of a display has left another one; a
// working image of this file stays as it is. Errors are dropped.
void KeepWorkingFile(App& app, std::string path);

// Gives Image1 the picture that the working image now holds.
void ShowWorkingPicture(App& app);

// Facts of what the working image holds: size in pixels, bits per pixel. An error leaves the outputs as they
// were; yields. The path is not used.
void GetImageInfo(App& app, std::string path, std::int16_t& width, std::int16_t& height, float& depth);
// The same without the yield.
void ReadImageInfo(App& app, std::int16_t& width, std::int16_t& height, float& depth);

}  // namespace lumidex
