#pragma once

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "SampleRandom.h"

/// Names and texts that a German school could have, for sample projects.
namespace SampleNames {

/// A first name, and who bears it.
struct TFirstName {
  std::string_view Name;
  /// "M", "W" or "D"
  char16_t Gender;
};

/// A subject as the certificate names it, and its token.
struct TSubject {
  std::string_view Token;
  std::string_view Name;
};

/// A text, and what it is called for short.
struct TText {
  std::string_view Token;
  std::string_view Text;
};

/// What the grades of a sample class are.
enum class TMarking { Values, Points, Texts };
/// A class of the school.
struct TSchoolClass {
  std::string Token;
  TMarking Marking;
  /// Age of its students at the end of the school year.
  int Age;
};

/// The names that students are made of.
std::span<const TFirstName> FirstNames();
std::span<const std::string_view> Surnames();
/// The order is that of the certificate.
std::span<const TSubject> Subjects();
/// Signatures and names of teachers.
std::span<const TText> Teachers();
/// Remarks for a certificate, with the tokens that a catalogue gives them.
std::span<const TText> Remarks();
/// Assessments of a student in a subject; "{}" stands for the first name.
std::span<const TText> Assessments();

/// A name from the table, now and then a double name.
std::string Surname(TSampleRandom& random);
/// First name and gender, now and then with a second name of the same gender.
std::pair<std::string, char16_t> FirstName(TSampleRandom& random);
/// `count` classes from year 5 to the last of the upper school, spread over the years, from three on of every marking.
std::vector<TSchoolClass> Classes(int count);

}  // namespace SampleNames
