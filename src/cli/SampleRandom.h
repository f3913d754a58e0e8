#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

/// Numbers that look like chance and are the same for the same seed on every platform (SplitMix64).
class TSampleRandom {
 public:
  explicit TSampleRandom(std::uint64_t seed) : FState(seed) {}

  std::uint64_t Next();
  /// 0 to `limit` - 1; `limit` must be above 0.
  int Below(int limit) { return static_cast<int>(Next() % static_cast<std::uint64_t>(limit)); }
  /// Both ends included.
  int Between(int low, int high) { return low + Below(high - low + 1); }
  bool Chance(int percent) { return Below(100) < percent; }
  template <class T>
  const T& Pick(std::span<const T> values) {
    return values[static_cast<std::size_t>(Below(static_cast<int>(values.size())))];
  }

 private:
  std::uint64_t FState;
};
