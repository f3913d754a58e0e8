#pragma once

#include <string>
#include <string_view>

#include "uProject.h"

/// How records and their values are called in what the companion prints.
namespace RecordTexts {

/// On one line and harmless to a terminal: control characters become their pictures.
std::string Printable(std::string_view text);

/// Name and class; the number where there is no name; a word for null.
std::string StudentName(const TMyTessaronProject& project, const TStudent* student);
/// Subject and name of the course, or its number.
std::string CourseName(const TCourse& course);

/// The stored key names a field that holds the id of a grade.
bool IsGradeKey(std::string_view key);
/// The caption of the field's column, or else a word of our own, or else the key.
std::string FieldCaption(const TMyTessaronProject& project, std::string_view key);
/// The value as the user reads it: grades and classes by token, "leer" for null and an empty text. Exact: so that
/// different values are shown differently.
std::string FieldValue(const TMyTessaronProject& project, std::string_view key, const TVariant& value, bool exact);

}  // namespace RecordTexts
