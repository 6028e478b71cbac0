#pragma once
// How the system gives memory and takes it back.

#include <cstddef>
#include <span>

namespace lumidex {

// From now on blocks of a megabyte and more, which are pixels, go back to the system when they are freed.
// Left to itself the C library keeps them once a larger one was freed, in a heap for each thread that
// decodes, and a show of many pictures grows by dozens of them.
void GiveLargeBlocksBack();

// Gives the system what is free now but kept for later, in the heaps of all threads.
void GiveFreeMemoryBack();

// Has the system provide the pages that these bytes lie in, which else it does one by one as they are written
// to for the first time. What they hold stays as it is. Where the system has no such call nothing happens.
void ProvidePages(std::span<std::byte> bytes);

}  // namespace lumidex
