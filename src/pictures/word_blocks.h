#pragma once
// Pixels handled four at a time where the processor has instructions for it, one at a time elsewhere.

#include <cstddef>
#include <cstdint>

#if defined(__SSE2__)
#define LUMIDEX_WORD_BLOCKS 1
#include <emmintrin.h>
#else
#define LUMIDEX_WORD_BLOCKS 0
#endif

namespace lumidex {

#if LUMIDEX_WORD_BLOCKS
using WordBlock = __m128i;

inline WordBlock LoadBlock(const std::uint32_t* words) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(words));
}
inline void StoreBlock(std::uint32_t* words, WordBlock block) {
  _mm_storeu_si128(reinterpret_cast<__m128i*>(words), block);
}
// Writes past the cache: for lines that are written whole, but in an order that the processor would not
// foresee and so read first. `words` must be aligned to 16 bytes; StreamsDone() must follow before others
// read them.
inline void StreamBlock(std::uint32_t* words, WordBlock block) {
  _mm_stream_si128(reinterpret_cast<__m128i*>(words), block);
}
// Asks for the line that a loop over many words will come to. The processor's own foresight alone left such
// loops at a third of the memory's speed.
inline void FetchAhead(const std::uint32_t* words) {
  constexpr int wordsAhead = 256;
  _mm_prefetch(reinterpret_cast<const char*>(words + wordsAhead), _MM_HINT_T0);
}
inline bool IsAligned(const std::uint32_t* words) {
  return reinterpret_cast<std::uintptr_t>(words) % 16 == 0;
}
#endif

inline void StreamsDone() {
#if LUMIDEX_WORD_BLOCKS
  _mm_sfence();
#endif
}

// Writes change(word) for each of `count` words; `into` is `from` or a place apart from it. `change` takes
// and gives single words and, where there are blocks, blocks; it is taken by value so that its numbers stay
// in registers.
template <class Change>
void TransformWords(const std::uint32_t* from, std::uint32_t* into, std::size_t count, Change change) {
#if LUMIDEX_WORD_BLOCKS
  for (; count >= 16; count -= 16, from += 16, into += 16) {
    FetchAhead(from);
    for (int i = 0; i < 16; i += 4) StoreBlock(into + i, change(LoadBlock(from + i)));
  }
#endif
  for (; count > 0; --count) *into++ = change(*from++);
}

}  // namespace lumidex
