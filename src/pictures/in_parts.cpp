#include "pictures/in_parts.h"

#include <algorithm>
#include <system_error>
#include <thread>
#include <vector>

namespace lumidex {

void InParts(std::size_t count, std::size_t least,
             const std::function<void(std::size_t begin, std::size_t end)>& work) {
  // More do not help what is bounded by the memory's speed.
  constexpr std::size_t most = 4;
  const std::size_t parts = std::clamp<std::size_t>(
      std::min<std::size_t>(std::thread::hardware_concurrency(), count / std::max<std::size_t>(least, 1)), 1,
      most);
  const auto edge = [&](std::size_t part) { return count * part / parts; };
  std::vector<std::thread> threads;
  threads.reserve(parts - 1);
  for (std::size_t part = 1; part < parts; ++part) {
    try {
      threads.emplace_back(work, edge(part), edge(part + 1));
    } catch (const std::system_error&) {
      work(edge(part), edge(part + 1));
    }
  }
  work(0, edge(1));
  for (std::thread& thread : threads) thread.join();
}

}  // namespace lumidex
