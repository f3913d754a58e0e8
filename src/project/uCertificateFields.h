#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "VantrelFieldForm.h"
#include "mLookup.h"

/// Where certificate data is entered: all fields of one student, or some of them for many students at once.
enum class TCertificateUse { Page, Batch };
enum class TCertificateGroup { AbschlussdatenGroup, ZeugnisdatenGroup, WeitereDatenGroup };

/// A field of the certificate.
struct TCertificateField {
  /// The column of the file that says whether the field is shown and may be edited, letter by letter; its key in forms.
  std::string_view Fieldname;
  std::string_view Key;  ///< the stored field of the student
  TCertificateGroup Group = TCertificateGroup::AbschlussdatenGroup;
  const char* Caption = "";
  const char* Total = "";  ///< the caption of the count that it is a part of

  TEditorKind Editor = TEditorKind::Lookup;
  TValueKind ValueKind = TValueKind::Text;
  const TEditorLookup TLookupTables::*Lookup = nullptr;
  double Minimum = 0;
  int Decimals = 0;
  bool DeleteClears = true;
  bool StartsBlock = false;
  const char* PageNullText = "";
  bool PageReturnMovesOn = false;
  std::optional<double> BatchStart = {};  ///< what the empty form begins with

  /// What a student holds there; null for an empty text as well.
  TVariant Value(const TStudent& student) const;
};

/// What the file lets the teacher do with a field. A field that it does not tell of is shown and open.
struct TCertificateRights {
  bool Visible = true;
  bool Editable = true;
};

/// The fields in the order of the forms.
std::span<const TCertificateField> CertificateFields(TCertificateUse use);
/// Null for a name that no field has.
const TCertificateField* FindCertificateField(std::string_view fieldname);
/// The form for them, without ticks. The lookup tables outlive it.
TFormDescription CertificateForm(TCertificateUse use, const TLookupTables& lookups);

/// Columns of grids count for nothing; of several that name the field the last one does.
TCertificateRights CertificateRights(const TCertificateField& field, const TColumns& columns);
/// Whether the file shows any of the fields.
bool ShowsCertificateFields(TCertificateUse use, const TColumns& columns);
/// Shows what the file shows of them in their form, and the groups in which there is something.
void ShowCertificateFields(TVantrelFieldForm& form, TCertificateUse use, const TColumns& columns);
