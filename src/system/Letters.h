#pragma once

/// Letters of all languages, whatever the locale of the process is.
namespace System {

char32_t UpperLetter(char32_t letter);
char32_t LowerLetter(char32_t letter);

}  // namespace System
