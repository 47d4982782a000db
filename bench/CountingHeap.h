// CountingHeap.h: a count of the bytes in use through operator new, for the benchmarks' memory
// figures. Include it in exactly one source file of a benchmark program: it replaces the global
// operator new and delete of that program.
//
// Blocks are counted by their usable size, what the allocator really hands out, so the figures
// include its rounding. Single-threaded: the benchmarks start no thread while they count.
#ifndef VYRBENCH_COUNTINGHEAP_H
#define VYRBENCH_COUNTINGHEAP_H

#include <malloc.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace vyrbench {

inline std::size_t gHeapInUse = 0;
inline std::size_t gHeapPeak = 0;

}  // namespace vyrbench

void* operator new(std::size_t size) {
  void* block = std::malloc(size == 0 ? 1 : size);
  if (!block) throw std::bad_alloc();
  vyrbench::gHeapInUse += malloc_usable_size(block);
  vyrbench::gHeapPeak = std::max(vyrbench::gHeapPeak, vyrbench::gHeapInUse);
  return block;
}
// Kept out of line: inlined into its callers it makes the compiler pair free() with new.
__attribute__((noinline)) void operator delete(void* block) noexcept {
  if (!block) return;
  vyrbench::gHeapInUse -= malloc_usable_size(block);
  std::free(block);
}
void operator delete(void* block, std::size_t) noexcept { operator delete(block); }

#endif
