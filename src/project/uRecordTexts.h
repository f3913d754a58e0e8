#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <vector>

#include "VantrelEditors.h"
#include "VantrelI18n.h"
#include "uProject.h"

/// How records and their values are called in what the companion prints.
namespace RecordTexts {

/// On one line, harmless to a terminal and well-formed UTF-8: control characters become their pictures.
std::string Printable(std::string_view text);
/// The lines of a text, each printable.
std::vector<std::string> PrintableLines(std::string_view text);
/// FormatText with texts that are printable before they are put in.
template <class... TArgs>
std::string PrintableText(std::string_view builtIn, const TArgs&... args) {
  constexpr auto shown = []<class T>(const T& arg) {
    if constexpr (std::convertible_to<const T&, std::string_view>)
      return Printable(arg);
    else
      return arg;
  };
  return FormatText(builtIn, shown(args)...);
}

/// Name and class; the number where there is no name; a word for null.
std::string StudentName(const TMyTessaronProject& project, const TStudent* student);
/// Subject and name of the course, or its number.
std::string CourseName(const TCourse& course);
/// A remark of a certificate, by its text.
std::string RemarkName(const TCertificateComment& remark);

/// The stored key names a field that holds the id of a grade.
bool IsGradeKey(std::string_view key);
/// A word of our own for the field, or else the key.
std::string OwnCaption(std::string_view key);
/// The caption of the column that shows the field of a student or a course, or else OwnCaption.
std::string FieldCaption(const TMyTessaronProject& project, std::string_view key);
/// The values of a field that have names of their own, as a list offers them; none for other fields.
std::vector<TEditorItem> NamedValues(std::string_view key);
/// The value as the user reads it: grades and classes by token, "leer" for null and an empty text. Exact: so that
/// different values are shown differently.
std::string FieldValue(const TMyTessaronProject& project, std::string_view key, const TVariant& value, bool exact);

}  // namespace RecordTexts
