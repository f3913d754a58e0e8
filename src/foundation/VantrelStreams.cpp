#include "VantrelStreams.h"

#include <algorithm>
#include <cstring>

void TVantrelStream::Clear() {
  SetPosition(0);
  SetSize(0);
}

std::vector<std::uint8_t> TVantrelStream::ReadAll() {
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(std::max<std::int64_t>(Size() - Position(), 0)));
  bytes.resize(static_cast<std::size_t>(Read(bytes.data(), static_cast<std::int64_t>(bytes.size()))));
  return bytes;
}

std::int64_t TVantrelMemoryStream::Read(void* target, std::int64_t count) {
  const auto taken = std::clamp<std::int64_t>(count, 0, std::max<std::int64_t>(Size() - FPosition, 0));
  if (taken > 0) std::memcpy(target, FBytes.data() + FPosition, static_cast<std::size_t>(taken));
  FPosition += taken;
  return taken;
}

std::int64_t TVantrelMemoryStream::Write(const void* source, std::int64_t count) {
  if (count <= 0) return 0;
  const auto* bytes = static_cast<const std::uint8_t*>(source);
  if (FPosition == Size()) {
    FBytes.insert(FBytes.end(), bytes, bytes + count);
  } else {
    if (FPosition + count > Size()) FBytes.resize(static_cast<std::size_t>(FPosition + count));
    std::memcpy(FBytes.data() + FPosition, bytes, static_cast<std::size_t>(count));
  }
  FPosition += count;
  return count;
}

void TVantrelMemoryStream::SetPosition(std::int64_t position) {
  FPosition = std::max<std::int64_t>(position, 0);
}

void TVantrelMemoryStream::SetSize(std::int64_t size) {
  FBytes.resize(static_cast<std::size_t>(std::max<std::int64_t>(size, 0)));
  FPosition = std::min(FPosition, Size());
}

std::span<const std::uint8_t> TVantrelMemoryStream::Window() const {
  if (FPosition >= Size()) return {};
  return std::span(FBytes).subspan(static_cast<std::size_t>(FPosition));
}

std::uint8_t* TVantrelMemoryStream::TakeRoom(std::int64_t count) {
  const auto begin = static_cast<std::size_t>(FPosition);
  FPosition += count;
  if (FPosition > Size()) FBytes.resize(static_cast<std::size_t>(FPosition));
  return FBytes.data() + begin;
}
