#pragma once
// Days as they are written out.

#include "ports/services.h"

namespace lumidex {

// A day with its name and that of its month, in the language and the order of the process's locale for dates:
// "Friday, March 15, 2002".
std::string LongDate(const DateTime& moment);

}  // namespace lumidex
