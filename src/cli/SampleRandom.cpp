#include "SampleRandom.h"

std::uint64_t TSampleRandom::Next() {
  FState += 0x9E3779B97F4A7C15ULL;
  std::uint64_t value = FState;
  value = (value ^ value >> 30) * 0xBF58476D1CE4E5B9ULL;
  value = (value ^ value >> 27) * 0x94D049BB133111EBULL;
  return value ^ value >> 31;
}
