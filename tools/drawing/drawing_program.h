#pragma once
// What the drawing programs share: writing files, and a main that takes one directory or file and reports
// errors.

#include <cstdint>
#include <filesystem>
#include <span>
#include <string_view>

namespace lumidex {

// Both make the folder when it is not there, replace the file and raise std::ios::failure when that fails.
void WriteFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);
void WriteFile(const std::filesystem::path& path, std::string_view text);

// The body of main: `program TARGET`. Returns the exit code: 0, 1 for an error, 2 for a wrong call.
int RunDrawingProgram(int count, char** arguments, void (*draw)(const std::filesystem::path& target));

}  // namespace lumidex
