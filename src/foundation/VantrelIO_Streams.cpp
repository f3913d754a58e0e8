#include "FoundationTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "VantrelIO.h"

TVantrelStreamWriter::TVantrelStreamWriter(TVantrelStream& stream, int bufferSize)
    : FStream(stream), FBuffer(static_cast<std::size_t>(std::max(bufferSize, 0))) {}

TVantrelStreamWriter::~TVantrelStreamWriter() {
  try {
    FlushBuffer();
  } catch (const EVantrelException&) {
    // Whoever needs to know has called FlushBuffer.
  }
}

void TVantrelStreamWriter::WriteThrough(const std::uint8_t* source, std::int64_t count) {
  if (FStream.Write(source, count) != count) throw EVantrelWriterError(ResourceText(FoundationTexts::ShortWrite));
}

void TVantrelStreamWriter::Write(const void* source, std::int64_t count) {
  const auto* bytes = static_cast<const std::uint8_t*>(source);
  if (FBuffer.empty()) return WriteThrough(bytes, count);
  while (count > 0) {
    const auto part = std::min(count, static_cast<std::int64_t>(FBuffer.size() - FBufPos));
    std::memcpy(FBuffer.data() + FBufPos, bytes, static_cast<std::size_t>(part));
    FBufPos += static_cast<std::size_t>(part);
    bytes += part;
    count -= part;
    if (FBufPos == FBuffer.size()) FlushBuffer();
  }
}

void TVantrelStreamWriter::FlushBuffer() {
  if (FBufPos == 0) return;
  const auto count = static_cast<std::int64_t>(std::exchange(FBufPos, 0));
  if (FStream.Write(FBuffer.data(), count) != count)
    throw EVantrelStreamWriterError(ResourceText(FoundationTexts::ShortWrite));
}

TVantrelStreamReader::TVantrelStreamReader(TVantrelStream& stream, int bufferSize)
    : FStream(stream), FBuffer(static_cast<std::size_t>(std::max(bufferSize, 0))) {
  if (!FStream.Window().empty()) Fill();
}

TVantrelStreamReader::~TVantrelStreamReader() {
  try {
    FlushBuffer();
  } catch (const EVantrelException&) {
    // A stream that cannot seek any more stays where it is.
  }
}

// The stream stands behind what is held in memory, be that a buffer or the stream's own bytes.
void TVantrelStreamReader::Fill() {
  const auto window = FStream.Window();
  if (!window.empty()) {
    FNext = window.data();
    FEnd = FNext + window.size();
    FStream.SetPosition(FStream.Size());
  } else if (!FBuffer.empty()) {
    FNext = FBuffer.data();
    FEnd = FNext + FStream.Read(FBuffer.data(), std::ssize(FBuffer));
  }
}

std::int64_t TVantrelStreamReader::Position() const {
  return FStream.Position() - (FEnd - FNext);
}

void TVantrelStreamReader::FlushBuffer() {
  if (FNext != FEnd) FStream.SetPosition(Position());
  FNext = FEnd = nullptr;
}

bool TVantrelStreamReader::Available(std::int64_t count) const {
  return count <= FEnd - FNext || count <= FStream.Size() - Position();
}

void TVantrelStreamReader::Read(void* target, std::int64_t count) {
  if (count < 0 || !Available(count)) RaiseShortRead();
  auto* bytes = static_cast<std::uint8_t*>(target);
  while (count > 0) {
    if (FNext == FEnd && count < std::ssize(FBuffer)) Fill();
    const auto held = std::min<std::int64_t>(count, FEnd - FNext);
    if (held > 0) {
      std::memcpy(bytes, Take(held), static_cast<std::size_t>(held));
    } else if (FStream.Read(bytes, count) != count) {
      RaiseShortRead();
    } else {
      return;
    }
    bytes += held;
    count -= held;
  }
}
