#include "Letters.h"

#include <locale.h>
#include <wctype.h>

namespace {
locale_t LetterLocale() {
  static const locale_t letters = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  return letters;
}
}  // namespace

char32_t System::UpperLetter(char32_t letter) {
  return LetterLocale() == nullptr ? letter : towupper_l(static_cast<wint_t>(letter), LetterLocale());
}

char32_t System::LowerLetter(char32_t letter) {
  return LetterLocale() == nullptr ? letter : towlower_l(static_cast<wint_t>(letter), LetterLocale());
}
