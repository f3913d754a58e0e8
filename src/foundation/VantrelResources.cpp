#include "VantrelResources.h"

#include <algorithm>
#include <iterator>

#include "FoundationTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "VantrelIO.h"

namespace {
constexpr std::string_view NamePrefix = "vantrel_";
constexpr int MaxIdentifier = 65535;

[[noreturn]] void RaiseNoBinary() {
  throw EVantrelReaderError(ResourceText(FoundationTexts::NoBinary));
}

bool Holds(TVantrelStream& binary, std::uint64_t offset, std::uint64_t size) {
  const auto fileSize = static_cast<std::uint64_t>(binary.Size());
  return offset <= fileSize && size <= fileSize - offset;
}

void ReadAt(TVantrelStream& binary, std::uint64_t offset, void* target, std::uint64_t size) {
  binary.SetPosition(static_cast<std::int64_t>(offset));
  TVantrelStreamReader(binary, 0).Read(target, static_cast<std::int64_t>(size));
}
}  // namespace

TVantrelResourceStringTable::TVantrelResourceStringTable(std::span<const std::uint8_t> resData) {
  TVantrelMemoryStream stream({resData.begin(), resData.end()});
  TVantrelStreamReader reader(stream, 0);
  while (reader.CanRead()) {
    const int identifier = reader.ReadWord();
    FTexts[identifier] = reader.ReadUtf8String();
  }
}

int TVantrelResourceStringTable::GetIdentifier(int index) const {
  if (index < 0 || index >= Count()) throw EArgumentOutOfRangeException(FormatText(FoundationTexts::ListIndex, index));
  return std::next(FTexts.begin(), index)->first;
}

std::string TVantrelResourceStringTable::GetString(int identifier) const {
  const auto found = FTexts.find(identifier);
  return found == FTexts.end() ? std::string() : found->second;
}

void TVantrelResourceStringTable::SetString(int identifier, std::string_view text) {
  if (identifier < 0 || identifier > MaxIdentifier) {
    throw EArgumentOutOfRangeException(FormatText(FoundationTexts::ListIndex, identifier));
  }
  FTexts[identifier] = text;
}

std::vector<std::uint8_t> TVantrelResourceStringTable::GenerateResData() const {
  TVantrelMemoryStream stream;
  TVantrelStreamWriter writer(stream, 0);
  for (const auto& [identifier, text] : FTexts) {
    writer.WriteWord(static_cast<std::uint16_t>(identifier));
    writer.WriteUtf8String(text);
  }
  return std::move(stream.Bytes());
}

TVantrelResourceNameEnumerator::TVantrelResourceNameEnumerator(TVantrelStream& binary) {
  const auto readAt = [&](std::uint64_t offset, void* target, std::uint64_t size) {
    const bool isThere = Holds(binary, offset, size);
    if (isThere) ReadAt(binary, offset, target, size);
    return isThere;
  };
  auto sections = System::SectionsOf(static_cast<std::uint64_t>(binary.Size()), readAt);
  if (!sections) RaiseNoBinary();
  std::ranges::copy_if(*sections, std::back_inserter(FPlaces),
                       [](const auto& section) { return section.Name.starts_with(NamePrefix); });
}

std::vector<std::string> TVantrelResourceNameEnumerator::Names() const {
  std::vector<std::string> names;
  std::ranges::transform(FPlaces, std::back_inserter(names), &System::TSection::Name);
  return names;
}

std::vector<std::uint8_t> TVantrelResourceReader::Read(std::string_view name) const {
  const auto place = std::ranges::find(FDirectory.FPlaces, name, &System::TSection::Name);
  if (place == FDirectory.FPlaces.end()) return {};
  if (!Holds(FBinary, place->Offset, place->Size)) RaiseNoBinary();
  std::vector<std::uint8_t> bytes(place->Size);
  ReadAt(FBinary, place->Offset, bytes.data(), place->Size);
  return bytes;
}
