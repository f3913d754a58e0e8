#pragma once

#include <span>
#include <string_view>

#include "uProject.h"

/// What the central system would send along with every sample project: catalogues, grades and columns.
namespace SampleCatalogs {

/// An entry of one of the catalogues of tokens.
struct TEntry {
  TCatalogs& (TMyTessaronProject::*List)() const;
  std::string_view Token;
  std::string_view Description;
};

/// An entry of the grade catalogue.
struct TGradeEntry {
  std::string_view Token;
  std::string_view Description;
  float Value;
  TGradeTypes Type;
};

/// What the school says of a field; an empty Customname leaves the standard caption.
struct TColumnEntry {
  std::string_view Fieldname;
  std::string_view Displayname;
  std::string_view Customname;
  bool Editable;
  bool Visible;
  bool GridColumn;
};

/// The assessments are not among them: they are SampleNames::Assessments.
std::span<const TEntry> Entries();
/// A grade's id in the project is its place from 1 on. Grades of one type stand together, the best first.
std::span<const TGradeEntry> Grades();
/// Every field that a grid or the certificate data page knows.
std::span<const TColumnEntry> Columns();

}  // namespace SampleCatalogs
