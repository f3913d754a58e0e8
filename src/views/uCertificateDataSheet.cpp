#include "uCertificateDataSheet.h"

#include <utility>

TCertificateDataSheet::TCertificateDataSheet(TStudentsViewUi& ui, const TLookupTables& lookups)
    : FUi(ui), FForm(ui.CertificateData()) {
  FForm.SetFields(CertificateForm(TCertificateUse::Page, lookups));
  ApplyCertificateLayout();
  FForm.OnChange = [this](const std::string& fieldname) { SaveCertificateData(fieldname); };
  FForm.OnLeave = [this](const std::string&) {
    if (std::exchange(FIsEditing, false)) CurrentProject->EndEdit();
  };
  FChanges = CurrentProject->Listen([this](const TProjectChange& change) { ShowChange(change); });
}

void TCertificateDataSheet::ApplyCertificateLayout() {
  const auto& columns = CurrentProject->Options().Columns();
  ShowCertificateFields(FForm, TCertificateUse::Page, columns);
  FUi.SetPageVisible(TStudentsPage::CertificateDataSheet, ShowsCertificateFields(TCertificateUse::Page, columns));
  FillCertificateData();
}

void TCertificateDataSheet::ShowStudent(TStudent* student, const TClass*) {
  FStudent = student;
  FillCertificateData();
}

void TCertificateDataSheet::FillCertificateData() {
  const auto& columns = CurrentProject->Options().Columns();
  for (const auto& field : CertificateFields(TCertificateUse::Page)) {
    const std::string fieldname(field.Fieldname);
    FForm.SetValue(fieldname, FStudent == nullptr ? TVariant::Null() : field.Value(*FStudent));
    FForm.SetEnabled(fieldname, FStudent != nullptr && CertificateRights(field, columns).Editable);
  }
}

void TCertificateDataSheet::SaveCertificateData(const std::string& fieldname) {
  const auto* field = FindCertificateField(fieldname);
  if (field == nullptr || FStudent == nullptr || FUi.ActivePage() != TStudentsPage::CertificateDataSheet) return;
  FIsSaving = true;
  if (!std::exchange(FIsEditing, true)) CurrentProject->BeginEdit();
  RunForUser([&] { CurrentProject->ChangeField(*FStudent, field->Key, FForm.Value(fieldname)); });
  FIsSaving = false;
}

void TCertificateDataSheet::ShowPlace(const TProjectPlace& place) {
  for (const auto& field : CertificateFields(TCertificateUse::Page))
    if (field.Key == place.Key) FForm.SetFocus(std::string(field.Fieldname));
}

void TCertificateDataSheet::ShowChange(const TProjectChange& change) {
  if (FIsSaving || FStudent == nullptr || &change.Record != FStudent || change.Kind != TChangeKind::Field) return;
  for (const auto& field : CertificateFields(TCertificateUse::Page))
    if (field.Key == change.Key) FForm.SetValue(std::string(field.Fieldname), field.Value(*FStudent));
}
