#include "VantrelSpelling.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <hunspell/hunspell.hxx>

#include "SystemFolders.h"
#include "VantrelFileSystem.h"
#include "VantrelText.h"

struct TVantrelHunspellDictionary::THunspell {
  THunspell(const std::string& affixPath, const std::string& path) : Words(affixPath.c_str(), path.c_str()) {}

  /// The word in the dictionary's character set; none where it lacks a character.
  std::optional<std::string> Encoded(const std::string& word) const {
    if (IsUtf8) return word;
    std::string bytes;
    for (const char16_t unit : Utf8ToUtf16(word)) {
      if (unit > 0xFF) return std::nullopt;
      bytes += static_cast<char>(unit);
    }
    return bytes;
  }
  std::string Decoded(const std::string& word) const {
    if (IsUtf8) return word;
    std::u16string units;
    for (const char byte : word) units += static_cast<char16_t>(static_cast<unsigned char>(byte));
    return Utf16ToUtf8(units);
  }

  mutable Hunspell Words;
  bool IsUtf8 = Words.get_dict_encoding() == "UTF-8";
};

namespace {
/// What is no dictionary loads as well, and knows nothing: one that does knows some of the first words of its file.
bool KnowsItself(Hunspell& words, const std::string& path) {
  constexpr int tried = 100;
  std::ifstream file(System::PathOf(path));
  std::string line;
  std::getline(file, line);  // the count
  for (int i = 0; i < tried && std::getline(file, line); ++i) {
    const auto word = line.substr(0, line.find_first_of("/\t\r "));
    if (!word.empty() && words.spell(word)) return true;
  }
  return false;
}
}  // namespace

TVantrelHunspellDictionary::TVantrelHunspellDictionary() = default;
TVantrelHunspellDictionary::~TVantrelHunspellDictionary() = default;

bool TVantrelHunspellDictionary::Load() {
  FHunspell.reset();
  if (!TVantrelFileSystem::Exists(Path) || !TVantrelFileSystem::Exists(AffixPath)) return false;
  auto hunspell = std::make_unique<THunspell>(AffixPath, Path);
  const auto& encoding = hunspell->Words.get_dict_encoding();
  const bool isReadable = encoding == "UTF-8" || encoding == "ISO8859-1";
  if (isReadable && KnowsItself(hunspell->Words, Path)) FHunspell = std::move(hunspell);
  return IsLoaded();
}

bool TVantrelHunspellDictionary::Knows(const std::string& word) const {
  if (!IsLoaded()) return false;
  const auto encoded = FHunspell->Encoded(word);
  return !encoded || FHunspell->Words.spell(*encoded);
}

std::vector<std::string> TVantrelHunspellDictionary::Suggest(const std::string& word) const {
  const auto encoded = IsLoaded() ? FHunspell->Encoded(word) : std::nullopt;
  if (!encoded) return {};
  auto words = FHunspell->Words.suggest(*encoded);
  for (auto& suggestion : words) suggestion = FHunspell->Decoded(suggestion);
  return words;
}

void TVantrelSpellChecker::KnowNames(const std::vector<std::string>& names) {
  for (const auto& name : names)
    for (const auto& word : SpellWords(Utf8ToUtf16(name), {})) FNames.insert(word.Form);
  FRemembered.clear();
}

void TVantrelSpellChecker::IgnoreAll(const std::string& word) {
  FIgnored.insert(word);
  FRemembered.clear();
}

void TVantrelSpellChecker::AddToUserDictionary(const std::string& word) {
  FRemembered.clear();
  UserDictionary.Add(word);
}

bool TVantrelSpellChecker::IsName(const std::string& form) const {
  if (FNames.contains(form)) return true;
  const auto stem = std::string_view(form).substr(0, form.size() - std::min<std::size_t>(form.size(), 1));
  return form.ends_with('s') && FNames.contains(std::string(stem));
}

bool TVantrelSpellChecker::IsKnown(const std::string& form) const {
  const auto [known, isNew] = FRemembered.try_emplace(form, false);
  if (!isNew) return known->second;
  bool right = FIgnored.contains(form) || IsName(form) || UserDictionary.Knows(form) || MainDictionary.Knows(form);
  if (const auto hyphen = form.find('-', 1); !right && hyphen + 1 < form.size() && hyphen != std::string::npos) {
    const auto isRight = [this](const std::string& part) { return IsPassedOver(part) || IsKnown(part); };
    right = isRight(form.substr(0, hyphen)) && isRight(form.substr(hyphen + 1));
  }
  return FRemembered[form] = right;
}

/// What stands behind an apostrophe in "geht's", "so 'ne", "Paul's".
bool TVantrelSpellChecker::IsShortened(const std::string& form) {
  constexpr std::array<std::string_view, 6> endings{"s", "n", "ne", "nen", "m", "r"};
  return std::ranges::find(endings, form) != endings.end();
}

bool TVantrelSpellChecker::IsPassedOver(const std::string& form) const {
  const auto hasDigit = std::ranges::any_of(form, [](char c) { return c >= '0' && c <= '9'; });
  const auto upper = UpperCase(form), lower = LowerCase(form);
  if (upper == lower || Utf16Length(form) == 1) return true;
  return (IgnoreNumbers && hasDigit) || (IgnoreUpperCase && form == upper);
}

bool TVantrelSpellChecker::IsRight(const TSpellWord& word) const {
  const auto& form = word.Form;
  if (IsPassedOver(form) || IsKnown(form)) return true;
  if (word.IsDotted && IsKnown(form + ".")) return true;
  if (word.HasHyphenBehind && IsKnown(form + "-")) return true;
  if (word.HasHyphenBefore && IsKnown("-" + form)) return true;
  if (word.HasApostropheBefore && IsShortened(form)) return true;
  const auto apostrophe = form.rfind('\'');
  return apostrophe != std::string::npos && IsShortened(form.substr(apostrophe + 1)) &&
         IsKnown(form.substr(0, apostrophe));
}

std::vector<TSpellWord> TVantrelSpellChecker::Mistakes(std::u16string_view text) const {
  if (!CanCheck()) return {};
  auto words = SpellWords(text, {.EMails = IgnoreEMails, .Urls = IgnoreUrls});
  std::erase_if(words, [this](const auto& word) { return IsRight(word); });
  return words;
}
