#include "uCertificateDataSheet.h"

TCertificateDataSheet::TCertificateDataSheet(TStudentsViewUi& ui, const TLookupTables& lookups)
    : FUi(ui), FForm(ui.CertificateData()) {
  FForm.SetFields(CertificateForm(TCertificateUse::Page, lookups));
  ApplyCertificateLayout();
  FForm.OnChange = [this](const std::string& fieldname) { SaveCertificateData(fieldname); };
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
  RunForUser([&] { CurrentProject->ChangeField(*FStudent, field->Key, FForm.Value(fieldname)); });
  FIsSaving = false;
}

void TCertificateDataSheet::ShowChange(const TProjectChange& change) {
  if (FIsSaving || FStudent == nullptr || &change.Record != FStudent || change.Kind != TChangeKind::Field) return;
  for (const auto& field : CertificateFields(TCertificateUse::Page))
    if (field.Key == change.Key) FForm.SetValue(std::string(field.Fieldname), field.Value(*FStudent));
}
