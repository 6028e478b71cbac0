#pragma once
// What every benchmark needs of a clock.

#include <algorithm>
#include <chrono>
#include <functional>
#include <vector>

namespace lumidex {

inline double Milliseconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

inline double Median(std::vector<double> times) {
  std::ranges::sort(times);
  return times[times.size() / 2];
}

}  // namespace lumidex
