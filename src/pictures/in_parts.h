#pragma once
// Divides work on whole pictures among the processors.

#include <cstddef>
#include <functional>

namespace lumidex {

// Runs `work(begin, end)` for stretches that together are 0 to `count`, each at least `least` long, at the
// same time where there are processors for it. Returns when all is done. The work must not raise; it never
// waits for another stretch, so that it may be done one after the other where no thread can be started.
void InParts(std::size_t count, std::size_t least,
             const std::function<void(std::size_t begin, std::size_t end)>& work);

}  // namespace lumidex
