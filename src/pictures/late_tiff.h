#pragma once
// The library that reads TIFF files, loaded when it is first needed; see late_library.h.

#include <tiffio.h>

#include "pictures/late_library.h"

namespace lumidex {

extern LateLibrary tiffLibrary;

LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFClientOpenExt);
LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFClose);
LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFComputeStrip);
LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFGetField);
LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFGetFieldDefaulted);
LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFIsCODECConfigured);
LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFIsTiled);
LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFOpenOptionsAlloc);
LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFOpenOptionsFree);
LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFOpenOptionsSetErrorHandlerExtR);
LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFOpenOptionsSetMaxSingleMemAlloc);
LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFOpenOptionsSetWarningHandlerExtR);
LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFRGBAImageBegin);
LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFRGBAImageEnd);
LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFRGBAImageGet);
LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFReadEncodedStrip);
LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFReadScanline);
LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFReadTile);
LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFScanlineSize64);
LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFSetDirectory);
LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFSetField);
LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFTileRowSize64);
LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFTileSize64);
LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFYCbCrToRGBInit);
LUMIDEX_LATE_FUNCTION(tiffLibrary, TIFFYCbCrtoRGB);
LUMIDEX_LATE_FUNCTION(tiffLibrary, _TIFFfree);
LUMIDEX_LATE_FUNCTION(tiffLibrary, _TIFFmalloc);

}  // namespace lumidex
