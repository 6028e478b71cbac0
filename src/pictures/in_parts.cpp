#include "pictures/in_parts.h"

#include <algorithm>
#include <vector>

#include "base/start_thread.h"

namespace lumidex {

void InParts(std::size_t count, std::size_t least,
             const std::function<void(std::size_t begin, std::size_t end)>& work) {
  // More do not help what is bounded by the memory's speed.
  constexpr std::size_t most = 4;
  const std::size_t parts = std::clamp<std::size_t>(
      std::min<std::size_t>(std::thread::hardware_concurrency(), count / std::max<std::size_t>(least, 1)), 1,
      most);
  const auto edge = [&](std::size_t part) { return count * part / parts; };
  std::vector<std::jthread> threads;
  threads.reserve(parts - 1);
  for (std::size_t part = 1; part < parts; ++part) {
    auto thread = StartThread([&work, begin = edge(part), end = edge(part + 1)] { work(begin, end); });
    if (thread) {
      threads.push_back(std::move(*thread));
    } else {
      work(edge(part), edge(part + 1));
    }
  }
  work(0, edge(1));
}

}  // namespace lumidex
