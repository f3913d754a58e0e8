#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "VantrelSpellWords.h"

/// The language of all dictionaries, as the system numbers it.
inline constexpr int GermanLanguage = 1031;

/// Words that a spell checker looks for. Loaded once; without its files it knows no word.
class TVantrelSpellDictionary {
 public:
  virtual ~TVantrelSpellDictionary() = default;

  std::string Path;
  int Language = GermanLanguage;
  bool Enabled = false;

  /// Reads the files. False, with nothing loaded, where they are missing or of no use.
  virtual bool Load() = 0;
  virtual bool IsLoaded() const = 0;
  virtual bool Knows(const std::string& word) const = 0;
};

/// A Hunspell dictionary: a word file, which is the Path, and an affix file.
class TVantrelHunspellDictionary final : public TVantrelSpellDictionary {
 public:
  TVantrelHunspellDictionary();
  ~TVantrelHunspellDictionary() override;

  std::string AffixPath;

  bool Load() override;
  bool IsLoaded() const override { return FHunspell != nullptr; }
  /// True also for a word that the dictionary's character set cannot spell, since nothing can be said about it.
  bool Knows(const std::string& word) const override;
  /// The nearest words, the best first. Takes up to half a second.
  std::vector<std::string> Suggest(const std::string& word) const;

 private:
  struct THunspell;
  std::unique_ptr<THunspell> FHunspell;
};

/// Words of the user's own, one a line, in UTF-8 or else in Windows-1252; a first line of digits is a count.
class TVantrelUserDictionary final : public TVantrelSpellDictionary {
 public:
  /// Where new words go if the folder of Path forbids it. Words are read from both.
  std::string OwnPath;
  /// Carried, and not used: no German text could be written in it.
  int CodePage = 1251;

  /// False where neither file exists.
  bool Load() override;
  bool IsLoaded() const override { return FLoaded; }
  /// A word that begins small is known with a capital as well.
  bool Knows(const std::string& word) const override;
  /// Knows the word from now on and appends it to the file. Raises EVantrelFileHandleError or EVantrelFileSystemError
  /// where neither file can be written; the word is known nevertheless.
  void Add(const std::string& word);

 private:
  void Read(const std::string& path);

  bool FLoaded = false;
  std::set<std::string> FWords;
};

/// Finds the words of a text that no dictionary knows. Each word is looked up once and remembered.
class TVantrelSpellChecker {
 public:
  TVantrelHunspellDictionary MainDictionary;
  TVantrelUserDictionary UserDictionary;
  bool Active = false;
  bool AutoCorrect = false;
  bool CheckAsYouType = false;
  bool IgnoreUpperCase = false;
  bool IgnoreNumbers = false;
  bool IgnoreEMails = false;
  bool IgnoreUrls = false;

  /// There is a dictionary that mistakes could be found with.
  bool CanCheck() const { return Active && MainDictionary.IsLoaded(); }
  /// Words that are no mistake, also with the "s" of a genitive. Of a name of several words each counts.
  void KnowNames(const std::vector<std::string>& names);
  /// The word is no mistake as long as this checker lives.
  void IgnoreAll(const std::string& word);
  /// As TVantrelUserDictionary::Add.
  void AddToUserDictionary(const std::string& word);

  /// The words of the text that are mistakes, in its order; none where nothing can be checked.
  std::vector<TSpellWord> Mistakes(std::u16string_view text) const;
  std::vector<std::string> Suggest(const std::string& word) const { return MainDictionary.Suggest(word); }

 private:
  static bool IsShortened(const std::string& form);
  /// Nothing is said about it, whatever the dictionaries know.
  bool IsPassedOver(const std::string& form) const;
  bool IsRight(const TSpellWord& word) const;
  bool IsKnown(const std::string& form) const;
  bool IsName(const std::string& form) const;

  std::set<std::string> FNames;
  std::set<std::string> FIgnored;
  mutable std::map<std::string, bool> FRemembered;
};
