#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The ELF hash of a byte text; 0 for an empty one, the top bit is never set.
std::int32_t ElfHash(std::string_view bytes);

/// A hash function with the byte text that it is taken of.
class TVantrelAbstractHash {
 public:
  explicit TVantrelAbstractHash(std::string value = {}) : FValue(std::move(value)) {}
  virtual ~TVantrelAbstractHash() = default;

  const std::string& Value() const { return FValue; }
  void SetValue(std::string value) { FValue = std::move(value); }
  virtual std::int32_t GetHash() const = 0;

 private:
  std::string FValue;
};

/// The ELF hash as such an object.
class TVantrelELFHash final : public TVantrelAbstractHash {
 public:
  using TVantrelAbstractHash::TVantrelAbstractHash;
  std::int32_t GetHash() const override { return ElfHash(Value()); }
};
