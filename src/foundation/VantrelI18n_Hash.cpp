#include <array>
#include <bit>
#include <cstring>

#include "VantrelI18n.h"
#include "VantrelText.h"

namespace {
/// The three running words of lookup3.
struct TLookup3 {
  static constexpr std::size_t BlockSize = 12;
  std::uint32_t A, B, C;

  void Add(const char* block) {
    std::array<std::uint32_t, 3> words;
    std::memcpy(words.data(), block, BlockSize);
    A += words[0];
    B += words[1];
    C += words[2];
  }

  void Mix() {
    MixStep(A, C, B, 4);
    MixStep(B, A, C, 6);
    MixStep(C, B, A, 8);
    MixStep(A, C, B, 16);
    MixStep(B, A, C, 19);
    MixStep(C, B, A, 4);
  }

  void Finish() {
    FinishStep(C, B, 14);
    FinishStep(A, C, 11);
    FinishStep(B, A, 25);
    FinishStep(C, B, 16);
    FinishStep(A, C, 4);
    FinishStep(B, A, 14);
    FinishStep(C, B, 24);
  }

 private:
  static void MixStep(std::uint32_t& x, std::uint32_t& y, std::uint32_t& z, int turn) {
    x -= y;
    x ^= std::rotl(y, turn);
    y += z;
  }
  static void FinishStep(std::uint32_t& x, std::uint32_t y, int turn) {
    x ^= y;
    x -= std::rotl(y, turn);
  }
};
}  // namespace

std::uint32_t TVantrelI18nManager::GetStringHash(std::string_view value) {
  constexpr std::uint32_t seed = 0xDEADBEEF;
  const std::u16string units = Utf8ToUtf16(value);
  const char* at = reinterpret_cast<const char*>(units.data());
  std::size_t left = units.size() * sizeof(char16_t);
  const std::uint32_t start = seed + static_cast<std::uint32_t>(left);
  TLookup3 state{start, start, start};
  if (left == 0) return state.C;
  for (; left > TLookup3::BlockSize; left -= TLookup3::BlockSize, at += TLookup3::BlockSize) {
    state.Add(at);
    state.Mix();
  }
  std::array<char, TLookup3::BlockSize> tail{};
  std::memcpy(tail.data(), at, left);
  state.Add(tail.data());
  state.Finish();
  return state.C;
}
