#pragma once
// The library of colour profiles, loaded when it is first needed; see late_library.h.

#include <lcms2.h>

#include "pictures/late_library.h"

namespace lumidex {

extern LateLibrary lcmsLibrary;

LUMIDEX_LATE_FUNCTION(lcmsLibrary, cmsCloseProfile);
LUMIDEX_LATE_FUNCTION(lcmsLibrary, cmsCreateLab4Profile);
LUMIDEX_LATE_FUNCTION(lcmsLibrary, cmsCreateTransform);
LUMIDEX_LATE_FUNCTION(lcmsLibrary, cmsCreate_sRGBProfile);
LUMIDEX_LATE_FUNCTION(lcmsLibrary, cmsDeleteTransform);
LUMIDEX_LATE_FUNCTION(lcmsLibrary, cmsDoTransform);
LUMIDEX_LATE_FUNCTION(lcmsLibrary, cmsEvalToneCurveFloat);
LUMIDEX_LATE_FUNCTION(lcmsLibrary, cmsGetColorSpace);
LUMIDEX_LATE_FUNCTION(lcmsLibrary, cmsIsMatrixShaper);
LUMIDEX_LATE_FUNCTION(lcmsLibrary, cmsIsTag);
LUMIDEX_LATE_FUNCTION(lcmsLibrary, cmsOpenProfileFromMem);
LUMIDEX_LATE_FUNCTION(lcmsLibrary, cmsReadTag);
LUMIDEX_LATE_FUNCTION(lcmsLibrary, cmsSaveProfileToMem);

}  // namespace lumidex
