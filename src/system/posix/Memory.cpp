#include "Memory.h"

#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>

void System::TakeHeapInLargePages() {
  constexpr int step = 64 << 20;  // bytes; the system gives them only where they are written to
  constexpr std::size_t some = 100 << 10;
  constexpr std::uintptr_t page = 2 << 20;
  mallopt(M_TOP_PAD, step);
  mallopt(M_TRIM_THRESHOLD, step);
  // The first ones may still fit what the heap has left; the last one makes it grow.
  void* blocks[] = {std::malloc(some), std::malloc(some), std::malloc(some)};
  const auto begin = (reinterpret_cast<std::uintptr_t>(blocks[2]) + page - 1) & ~(page - 1);
  const auto end = reinterpret_cast<std::uintptr_t>(sbrk(0)) & ~(page - 1);
  if (begin < end) madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
  for (void* block : blocks) std::free(block);
}
