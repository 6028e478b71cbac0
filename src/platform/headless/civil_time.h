#pragma once
// Moments as date and time of day, without any time zone.

#include <cstdint>

#include "ports/services.h"

namespace lumidex {

std::int64_t SecondsSince1970(const DateTime& moment);
DateTime CivilTime(std::int64_t secondsSince1970);

}  // namespace lumidex
