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
// Asks for the line that a loop over many words will come to. The processor's own foresight alone left such
// loops at a third of the memory's speed.
inline void FetchAhead(const std::uint32_t* words, int wordsAhead = 256) {
  _mm_prefetch(reinterpret_cast<const char*>(words + wordsAhead), _MM_HINT_T0);
}
// Copies past the cache, for places that are written in an order which the processor would not foresee, so
// that it would read them first. StreamsDone() must follow before others read them.
inline void StreamWords(const std::uint32_t* from, std::uint32_t* into, int count) {
  constexpr int line = 16;
  for (; count > 0 && reinterpret_cast<std::uintptr_t>(into) % (line * 4) != 0; --count) *into++ = *from++;
  for (; count >= line; count -= line, from += line, into += line) {
    for (int i = 0; i < line; i += 4)
      _mm_stream_si128(reinterpret_cast<__m128i*>(into + i), LoadBlock(from + i));
  }
  for (; count > 0; --count) *into++ = *from++;
}
inline void StreamsDone() {
  _mm_sfence();
}
#endif

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
