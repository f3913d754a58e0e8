#include "VantrelGuid.h"

#include <fmt/format.h>
#include <openssl/evp.h>
#include <openssl/rand.h>

#include <algorithm>
#include <cstring>

#include "FoundationTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"

namespace {
/// Where the default text shows the bytes, in the order of the text.
struct TPlace {
  std::uint8_t Byte;
  std::uint8_t Column;
};
constexpr std::array<TPlace, 16> Places = {{{3, 1},
                                            {2, 3},
                                            {1, 5},
                                            {0, 7},
                                            {5, 10},
                                            {4, 12},
                                            {7, 15},
                                            {6, 17},
                                            {8, 20},
                                            {9, 22},
                                            {10, 25},
                                            {11, 27},
                                            {12, 29},
                                            {13, 31},
                                            {14, 33},
                                            {15, 35}}};
constexpr char Frame[] = "{00000000-0000-0000-0000-000000000000}";
static_assert(sizeof Frame == GuidTextLength + 1);

constexpr std::uint8_t NoDigit = 0x80;

constexpr std::array<std::uint8_t, 256> MakeDigitValues() {
  std::array<std::uint8_t, 256> values{};
  for (auto& value : values) value = NoDigit;
  for (std::uint8_t i = 0; i < 10; ++i) values['0' + i] = i;
  for (std::uint8_t i = 0; i < 6; ++i) values['A' + i] = values['a' + i] = static_cast<std::uint8_t>(10 + i);
  return values;
}
constexpr auto DigitValues = MakeDigitValues();

constexpr char UpperDigits[] = "0123456789ABCDEF";
constexpr char LowerDigits[] = "0123456789abcdef";

void WriteText(const TGuid& guid, char* target, const char* digits) {
  std::memcpy(target, Frame, GuidTextLength);
  for (const TPlace place : Places) {
    target[place.Column] = digits[guid.Bytes[place.Byte] >> 4];
    target[place.Column + 1] = digits[guid.Bytes[place.Byte] & 0xF];
  }
}

bool HasFrame(std::string_view text) {
  return text.size() == GuidTextLength && text[0] == '{' && text[9] == '-' && text[14] == '-' && text[19] == '-' &&
         text[24] == '-' && text[37] == '}';
}

/// Between file order and network order.
TGuid SwapFields(TGuid guid) {
  std::reverse(guid.Bytes.begin(), guid.Bytes.begin() + 4);
  std::swap(guid.Bytes[4], guid.Bytes[5]);
  std::swap(guid.Bytes[6], guid.Bytes[7]);
  return guid;
}

/// Random bytes from a store per thread, since asking libcrypto has its price.
void TakeRandom(std::array<std::uint8_t, 16>& target) {
  thread_local std::array<std::uint8_t, 4096> store;
  thread_local std::size_t left = 0;
  if (left == 0) {
    if (RAND_bytes(store.data(), static_cast<int>(store.size())) != 1) {
      throw EVantrelException(ResourceText(FoundationTexts::RandomFailed));
    }
    left = store.size();
  }
  left -= target.size();
  std::copy_n(store.begin() + static_cast<std::ptrdiff_t>(left), target.size(), target.begin());
}

void StampVersion(TGuid& networkOrder, int version) {
  networkOrder.Bytes[6] = static_cast<std::uint8_t>((networkOrder.Bytes[6] & 0x0F) | version << 4);
  networkOrder.Bytes[8] = static_cast<std::uint8_t>((networkOrder.Bytes[8] & 0x3F) | 0x80);
}
}  // namespace

TGuid NewGuid() {
  TGuid guid;
  TakeRandom(guid.Bytes);
  StampVersion(guid, 4);
  return SwapFields(guid);
}

void WriteGuidText(const TGuid& guid, char* target) {
  WriteText(guid, target, UpperDigits);
}

std::string GuidToText(const TGuid& guid, TVantrelGuidFormat format) {
  std::string text(GuidTextLength, '\0');
  WriteText(guid, text.data(), format == TVantrelGuidFormat::gfWithoutBrackets ? LowerDigits : UpperDigits);
  switch (format) {
    case TVantrelGuidFormat::gfWithoutBrackets:
      return text.substr(1, GuidTextLength - 2);
    case TVantrelGuidFormat::gfQuoted:
      return '\'' + text + '\'';
    default:
      return text;
  }
}

TGuid TextToGuid(std::string_view text) {
  TGuid guid;
  std::uint8_t faults = HasFrame(text) ? 0 : NoDigit;
  if (faults == 0) {
    for (const TPlace place : Places) {
      const std::uint8_t high = DigitValues[static_cast<unsigned char>(text[place.Column])];
      const std::uint8_t low = DigitValues[static_cast<unsigned char>(text[place.Column + 1])];
      faults |= high | low;
      guid.Bytes[place.Byte] = static_cast<std::uint8_t>(high << 4 | low);
    }
  }
  if ((faults & NoDigit) != 0) throw EConvertError(FormatText(FoundationTexts::NoGuid, text));
  return guid;
}

TGuid GuidNamespaceDns() {
  return TextToGuid("{6ba7b810-9dad-11d1-80b4-00c04fd430c8}");
}

TGuid GuidNamespaceOid() {
  return TextToGuid("{6ba7b812-9dad-11d1-80b4-00c04fd430c8}");
}

TGuid NameBasedGuid(const TGuid& nameSpace, std::string_view name, int version) {
  if (version != 3 && version != 5) throw EArgumentOutOfRangeException(ResourceText(FoundationTexts::UuidVersion));
  const TGuid head = SwapFields(nameSpace);
  std::string input(head.Bytes.begin(), head.Bytes.end());
  input += name;

  std::array<unsigned char, EVP_MAX_MD_SIZE> hash;
  const EVP_MD* const kind = version == 5 ? EVP_sha1() : EVP_md5();
  if (EVP_Digest(input.data(), input.size(), hash.data(), nullptr, kind, nullptr) != 1) {
    throw EVantrelException(ResourceText(FoundationTexts::HashFailed));
  }
  TGuid guid;
  std::copy_n(hash.begin(), guid.Bytes.size(), guid.Bytes.begin());
  StampVersion(guid, version);
  return SwapFields(guid);
}
