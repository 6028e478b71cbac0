#pragma once
// How the system gives memory and takes it back.

namespace lumidex {

// From now on blocks of a quarter of a megabyte and more, which are pixels, go back to the system when they
// are freed. Left to itself the C library keeps them once a larger one was freed, in a heap for each thread
// that decodes: a show of many pictures grows by dozens of them, and the picture of one window keeps its
// memory while the next window's takes some of its own.
void GiveLargeBlocksBack();

// From now on there are no more heaps than processors: threads that seldom work at the same time share one,
// where each would keep what it has free. Heaps that are there already stay.
void ShareHeaps();

// Gives the system what is free now but kept for later, in the heaps of all threads.
void GiveFreeMemoryBack();

}  // namespace lumidex
