#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ProgramFile.h"

class TVantrelStream;

// The resources of a compiled file are those sections of it (64-bit ELF) whose names begin with "vantrel_".

/// Built-in texts by identifier, as a compiled file carries them.
class TVantrelResourceStringTable {
 public:
  TVantrelResourceStringTable() = default;
  /// Reads the form of GenerateResData; raises EVantrelReaderError if it is cut or damaged.
  explicit TVantrelResourceStringTable(std::span<const std::uint8_t> resData);

  int Count() const { return static_cast<int>(FTexts.size()); }
  /// The identifier of the text at `index`, in ascending order; raises EArgumentOutOfRangeException.
  int GetIdentifier(int index) const;
  /// Empty if there is no such text.
  std::string GetString(int identifier) const;
  /// Adds or replaces. An identifier outside 0 to 65535 raises EArgumentOutOfRangeException.
  void SetString(int identifier, std::string_view text);
  /// For each text its identifier in 2 bytes, its length in bytes in 4 bytes (both little-endian), and its UTF-8.
  std::vector<std::uint8_t> GenerateResData() const;

  auto begin() const { return FTexts.begin(); }
  auto end() const { return FTexts.end(); }

 private:
  std::map<int, std::string> FTexts;
};

/// The names of the resources in a compiled file.
class TVantrelResourceNameEnumerator {
 public:
  /// Raises EVantrelReaderError if the stream is no compiled file of this machine, or a cut or damaged one.
  explicit TVantrelResourceNameEnumerator(TVantrelStream& binary);

  /// In the order of the file.
  std::vector<std::string> Names() const;

 private:
  friend class TVantrelResourceReader;
  std::vector<System::TSection> FPlaces;
};

/// Reads the resources of a compiled file out of a stream, which has to outlive it.
class TVantrelResourceReader {
 public:
  /// The name of the resource that holds the string table.
  static constexpr std::string_view StringTableName = "vantrel_strings";

  /// Raises as TVantrelResourceNameEnumerator does.
  explicit TVantrelResourceReader(TVantrelStream& binary) : FBinary(binary), FDirectory(binary) {}

  /// The bytes of a resource, none if the file has it not. Raises EVantrelReaderError if they are not all there.
  std::vector<std::uint8_t> Read(std::string_view name) const;
  /// Empty for a file without texts. Raises EVantrelReaderError if the table is damaged.
  TVantrelResourceStringTable ReadStringTable() const { return TVantrelResourceStringTable(Read(StringTableName)); }

 private:
  TVantrelStream& FBinary;
  TVantrelResourceNameEnumerator FDirectory;
};
