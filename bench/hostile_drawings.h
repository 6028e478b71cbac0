#pragma once
// Metafiles made to cost as much as their size of up to one mebibyte can buy: each repeats one kind of work.

#include <cstdint>
#include <string_view>
#include <vector>

namespace lumidex {

struct HostileFile {
  std::string_view name;
  std::string_view extension;
  std::vector<std::uint8_t> (*make)();
};

const std::vector<HostileFile>& HostileDrawings();

}  // namespace lumidex
