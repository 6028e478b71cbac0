#pragma once
// Makes a failing scenario shorter, as long as it fails in the same way.

#include "random_user/child.h"

namespace lumidex::random_user {

// Leaves out what can be left out: single lines, and blocks with their first lines. Tries no more often than
// that.
std::string Shrunk(const std::string& scenario, const std::string& kind, int mostTries);

}  // namespace lumidex::random_user
