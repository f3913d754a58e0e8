#pragma once

#include "fStudentsViewUi.h"
#include "uCertificateFields.h"
#include "uStudentsViewPages.h"

/// "Zeugnisdaten": what stands on the certificate of one student, as a form. Each change is written at once; a field
/// that changes elsewhere is shown anew. Its lookups offer the ordinary grades, whatever the class.
class TCertificateDataSheet final : public TStudentsViewPage {
 public:
  /// The tables are those of CurrentProject, and outlive the page. The screen goes before it.
  TCertificateDataSheet(TStudentsViewUi& ui, const TLookupTables& lookups);

  void ShowStudent(TStudent* student, const TClass* schoolClass) override;
  void ShowPlace(const TProjectPlace& place) override;
  void PostEdits() override { FForm.Check(); }
  std::vector<TGradeTypes> GradeTypes(const TClass&) const override {
    return {TGradeTypes::gtValue, TGradeTypes::gtFill};
  }

 private:
  void ApplyCertificateLayout();
  void FillCertificateData();
  void SaveCertificateData(const std::string& fieldname);
  void ShowChange(const TProjectChange& change);

  TStudentsViewUi& FUi;
  TVantrelFieldForm& FForm;
  TStudent* FStudent = nullptr;
  /// The form itself is the source of a change.
  bool FIsSaving = false;
  /// A field has been changed since the keyboard came to it.
  bool FIsEditing = false;
  TProjectListeners::TToken FChanges;
};
