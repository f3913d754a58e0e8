#pragma once

#include <fmt/core.h>

#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <string_view>

class TVantrelResourceStringTable;

/// A dictionary for the texts of the program, by the hash of the built-in text. May be used from any thread.
class TVantrelI18nManager {
 public:
  /// HashLittle (lookup3) over the UTF-16 bytes of the text, initial value 0.
  static std::uint32_t GetStringHash(std::string_view value);
  /// Doubles backslashes; each line break becomes "\n" in two characters.
  static std::string EscapeString(std::string_view value);
  /// Halves backslashes first, then makes CR LF of "\n": a text that held a backslash before an n comes back broken.
  static std::string UnEscapeString(std::string_view value);

  void ClearStrings();
  /// Takes the section "Dictionary" of an INI file in UTF-8 in place of the present dictionary. Raises
  /// EVantrelFileHandleError if the file cannot be read and EConvertError if a key is no 32-bit hexadecimal number;
  /// the dictionary then stays as it was.
  void LoadStrings(const std::string& fileName);
  /// Replaces the file by the dictionary, without its empty texts. Raises EVantrelException if that fails; the file is
  /// then as it was.
  void SaveStrings(const std::string& fileName) const;
  /// Adds the texts that the section "Dictionary" of the file lacks; everything else in there stays. False, with
  /// nothing done, for a file without this section. Raises as LoadStrings and SaveStrings.
  bool CompleteStrings(const std::string& fileName) const;
  /// Adds the texts that the dictionary lacks, untranslated.
  void ExtractAndMergeStrings(const TVantrelResourceStringTable& table);
  /// As above, with the texts that stand in a compiled file; gives their number. Raises EVantrelFileHandleError if the
  /// file cannot be read, and EVantrelReaderError if it is no compiled file of this machine or a damaged one.
  int ExtractAndMergeStrings(const std::string& binaryFileName);
  /// As above, with the file of the running program.
  int ExtractAndMergeStrings();

  /// The translation, or the text itself.
  std::string Translate(std::string_view text) const;

 private:
  std::map<std::uint32_t, std::string> Dictionary() const;

  std::map<std::uint32_t, std::string> FDictionary;
  mutable std::mutex FDictionaryCS;
};

/// The dictionary of the program; empty at start.
TVantrelI18nManager& I18nManager();

/// A built-in text as the user shall read it.
std::string ResourceText(std::string_view builtIn);
/// As ResourceText, with its placeholders filled. A translation whose placeholders do not fit is passed over.
std::string FormatResourceText(std::string_view builtIn, fmt::format_args args);
template <class... TArgs>
std::string FormatText(std::string_view builtIn, const TArgs&... args) {
  return FormatResourceText(builtIn, fmt::make_format_args(args...));
}
