#include "ProgramFile.h"

#include <elf.h>

#include <bit>
#include <filesystem>
#include <string_view>

namespace {
constexpr const char* OwnFile = "/proc/self/exe";
constexpr unsigned char ByteOrder = std::endian::native == std::endian::little ? ELFDATA2LSB : ELFDATA2MSB;

/// A file that says itself where its parts lie.
class TCompiledFile {
 public:
  TCompiledFile(std::uint64_t size, const System::TReadAt& readAt) : FSize(size), FReadAt(readAt) {}

  std::optional<std::vector<System::TSection>> Sections() const;

 private:
  /// `count` values, taking no memory for more than the file can hold.
  template <class T>
  std::optional<std::vector<T>> ReadMany(std::uint64_t offset, std::uint64_t count) const {
    if (count > FSize / sizeof(T)) return std::nullopt;
    std::vector<T> values(count);
    if (!FReadAt(offset, values.data(), count * sizeof(T))) return std::nullopt;
    return values;
  }

  std::uint64_t FSize;
  const System::TReadAt& FReadAt;
};

bool IsKnown(const Elf64_Ehdr& header) {
  const bool isOfThisMachine = std::string_view(reinterpret_cast<const char*>(header.e_ident), SELFMAG) == ELFMAG &&
                               header.e_ident[EI_CLASS] == ELFCLASS64 && header.e_ident[EI_DATA] == ByteOrder;
  return isOfThisMachine && (header.e_shnum == 0 || header.e_shentsize == sizeof(Elf64_Shdr));
}

std::optional<std::string> NameAt(const std::vector<char>& names, std::size_t start) {
  if (start >= names.size()) return std::nullopt;
  const std::string_view rest(names.data() + start, names.size() - start);
  const auto end = rest.find('\0');
  if (end == std::string_view::npos) return std::nullopt;
  return std::string(rest.substr(0, end));
}

std::optional<std::vector<System::TSection>> TCompiledFile::Sections() const {
  std::vector<System::TSection> found;
  const auto header = ReadMany<Elf64_Ehdr>(0, 1);
  if (!header || !IsKnown(header->front())) return std::nullopt;
  const auto& head = header->front();
  if (head.e_shnum == 0) return found;
  const auto sections = ReadMany<Elf64_Shdr>(head.e_shoff, head.e_shnum);
  if (!sections || head.e_shstrndx >= sections->size()) return std::nullopt;
  const auto& nameSection = sections->at(head.e_shstrndx);
  const auto names = ReadMany<char>(nameSection.sh_offset, nameSection.sh_size);
  if (!names) return std::nullopt;
  for (const auto& section : *sections) {
    auto name = NameAt(*names, section.sh_name);
    if (!name) return std::nullopt;
    if (section.sh_type == SHT_PROGBITS) found.push_back({std::move(*name), section.sh_offset, section.sh_size});
  }
  return found;
}
}  // namespace

std::string System::OwnProgramFile() {
  return OwnFile;
}

std::string System::OwnProgramName() {
  std::error_code error;
  return std::filesystem::read_symlink(OwnFile, error).string();
}

std::optional<std::vector<System::TSection>> System::SectionsOf(std::uint64_t fileSize, const TReadAt& readAt) {
  return TCompiledFile(fileSize, readAt).Sections();
}
