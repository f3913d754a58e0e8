#include "VantrelGraphics.h"

#include "FoundationTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"

void TStoredGraphic::LoadFromStream(TVantrelStream& stream, std::int64_t size) {
  if (size < 0 || size > stream.Size() - stream.Position())
    throw EVantrelReaderError(ResourceText(FoundationTexts::ShortRead));
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size));
  if (stream.Read(bytes.data(), size) != size) throw EVantrelReaderError(ResourceText(FoundationTexts::ShortRead));
  FBytes = std::move(bytes);
}

void TStoredGraphic::SaveToStream(TVantrelStream& stream) const {
  const auto size = static_cast<std::int64_t>(FBytes.size());
  if (stream.Write(FBytes.data(), size) != size) throw EVantrelWriterError(ResourceText(FoundationTexts::ShortWrite));
}
