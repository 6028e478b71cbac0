#pragma once
// What becomes of memory that is freed.

namespace lumidex {

// From now on blocks of a megabyte and more, which are pixels, go back to the system when they are freed.
// Left to itself the C library keeps them once a larger one was freed, in a heap for each thread that
// decodes, and a show of many pictures grows by dozens of them.
void GiveLargeBlocksBack();

}  // namespace lumidex
