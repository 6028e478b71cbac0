#pragma once
// Where the vendor can be reached. The host is a reserved one, which no real site ever has.

#include <string>

namespace lumidex {

inline constexpr const char* VendorHost = "korvane.example";

inline std::string VendorPage(const std::string& path) {
  std::string address = "http://www.";
  address += VendorHost;
  return address += path;
}
inline std::string VendorMail(const std::string& name) {
  return name + "@" + VendorHost;
}

}  // namespace lumidex
