#pragma once
// Addresses of files, as file managers hand them over.

#include <string>
#include <string_view>
#include <vector>

namespace lumidex {

// "file:///a", "file://localhost/a" and "file:/a" give "/a", with every escaped byte as it is; what is no
// address of a file here comes back unchanged.
std::string PathOfAddress(const std::string& address);

// The paths in a list of addresses, one a line; lines that are no addresses of files here are left out.
std::vector<std::string> PathsOfAddresses(std::string_view list);

}  // namespace lumidex
