#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// One word of a text.
struct TSpellWord {
  std::size_t Start = 0;   ///< in UTF-16 units
  std::size_t Length = 0;  ///< in UTF-16 units, without a hyphen at its ends
  /// What is looked up: composed letters, plain apostrophes, no soft hyphens, and a form for both genders
  /// ("Schüler*innen") as the longer one.
  std::string Form = {};
  bool IsDotted = false;             ///< a point follows: it may be an abbreviation
  bool HasApostropheBefore = false;  ///< a letter or two may be left out ("so 'ne")
  bool HasHyphenBefore = false;      ///< the second half of what was said at once ("Vor- und -nachteile")
  bool HasHyphenBehind = false;      ///< the first half
};

/// Which addresses are no words.
struct TSpellAddresses {
  bool EMails = true;
  bool Urls = true;
};

/// The words of a text, in its order. What stands in an address that is to be ignored is none.
std::vector<TSpellWord> SpellWords(std::u16string_view text, TSpellAddresses ignored);
