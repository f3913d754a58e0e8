#include "VantrelResources.h"

#include <elf.h>

#include <algorithm>
#include <bit>
#include <iterator>

#include "FoundationTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "VantrelIO.h"

namespace {
constexpr std::string_view NamePrefix = "vantrel_";
constexpr int MaxIdentifier = 65535;
constexpr unsigned char ByteOrder = std::endian::native == std::endian::little ? ELFDATA2LSB : ELFDATA2MSB;

[[noreturn]] void RaiseNoBinary() {
  throw EVantrelReaderError(ResourceText(FoundationTexts::NoBinary));
}

void ReadAt(TVantrelStream& binary, std::uint64_t offset, void* target, std::uint64_t size) {
  const auto fileSize = static_cast<std::uint64_t>(binary.Size());
  if (offset > fileSize || size > fileSize - offset) RaiseNoBinary();
  binary.SetPosition(static_cast<std::int64_t>(offset));
  TVantrelStreamReader(binary, 0).Read(target, static_cast<std::int64_t>(size));
}

/// `count` values, taking no memory for more than the file can hold.
template <class T>
std::vector<T> ReadMany(TVantrelStream& binary, std::uint64_t offset, std::uint64_t count) {
  if (count > static_cast<std::uint64_t>(binary.Size()) / sizeof(T)) RaiseNoBinary();
  std::vector<T> values(count);
  ReadAt(binary, offset, values.data(), count * sizeof(T));
  return values;
}

Elf64_Ehdr ReadHeader(TVantrelStream& binary) {
  Elf64_Ehdr header;
  ReadAt(binary, 0, &header, sizeof header);
  const bool known = std::string_view(reinterpret_cast<const char*>(header.e_ident), SELFMAG) == ELFMAG &&
                     header.e_ident[EI_CLASS] == ELFCLASS64 && header.e_ident[EI_DATA] == ByteOrder;
  if (!known || (header.e_shnum != 0 && header.e_shentsize != sizeof(Elf64_Shdr))) RaiseNoBinary();
  return header;
}

std::string_view NameAt(const std::vector<char>& names, std::size_t start) {
  if (start >= names.size()) RaiseNoBinary();
  const std::string_view rest(names.data() + start, names.size() - start);
  const auto end = rest.find('\0');
  if (end == std::string_view::npos) RaiseNoBinary();
  return rest.substr(0, end);
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
  const Elf64_Ehdr header = ReadHeader(binary);
  if (header.e_shnum == 0) return;
  const auto sections = ReadMany<Elf64_Shdr>(binary, header.e_shoff, header.e_shnum);
  if (header.e_shstrndx >= sections.size()) RaiseNoBinary();
  const Elf64_Shdr& nameSection = sections[header.e_shstrndx];
  const auto names = ReadMany<char>(binary, nameSection.sh_offset, nameSection.sh_size);
  for (const Elf64_Shdr& section : sections) {
    const std::string_view name = NameAt(names, section.sh_name);
    if (section.sh_type == SHT_PROGBITS && name.starts_with(NamePrefix))
      FPlaces.push_back({std::string(name), section.sh_offset, section.sh_size});
  }
}

std::vector<std::string> TVantrelResourceNameEnumerator::Names() const {
  std::vector<std::string> names;
  std::ranges::transform(FPlaces, std::back_inserter(names), &TPlace::Name);
  return names;
}

std::vector<std::uint8_t> TVantrelResourceReader::Read(std::string_view name) const {
  const auto& places = FDirectory.FPlaces;
  const auto place = std::ranges::find(places, name, &TVantrelResourceNameEnumerator::TPlace::Name);
  return place == places.end() ? std::vector<std::uint8_t>()
                               : ReadMany<std::uint8_t>(FBinary, place->Offset, place->Size);
}
