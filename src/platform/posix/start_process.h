#pragma once
// Starting a program that lives on by itself.

#include <string>
#include <vector>

namespace lumidex {

// Starts `arguments[0]` without a shell between and does not wait for it; it is nobody's child afterwards.
// Returns 0, or the error of the attempt (ENOENT when there is no such program). `directory` is where it
// starts; empty is here.
int StartDetached(const std::vector<std::string>& arguments, const std::string& directory = {});

}  // namespace lumidex
