#pragma once
// Chance that is the same for the same seed, on every machine.

#include <random>
#include <vector>

namespace lumidex::random_user {

class Random {
 public:
  explicit Random(std::uint64_t seed) : engine_(seed) {}
  // 0 up to, but without, `end`, which is above 0.
  int Below(int end) { return static_cast<int>(engine_() % static_cast<std::uint64_t>(end)); }
  int Between(int first, int last) { return first + Below(last - first + 1); }
  bool Chance(int percent) { return Below(100) < percent; }
  template <class T>
  const T& Of(const std::vector<T>& all) {
    return all[static_cast<std::size_t>(Below(static_cast<int>(all.size())))];
  }

 private:
  std::mt19937_64 engine_;
};

}  // namespace lumidex::random_user
