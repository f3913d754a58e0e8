#include "mLookup.h"

#include "ProjectTexts.h"
#include "VantrelI18n.h"

using enum TVantrelFieldType;

namespace {

// No field has a size: what a lookup cuts would be stored cut.
void AddToken(TVantrelMemTable& table) {
  table.AddField("Token", ftText, 0, ResourceText(ProjectTexts::TokenLabel));
}

}  // namespace

TLookupTables::TLookupTables(TMyTessaronProject& project) : ProjectObj(&project) {
  for (auto* table : {&Abschluesse, &Abschlussarten, &Empfehlungen, &Fachstati, &Niveaus, &Unterrichtsarten,
                      &Versetzungsarten, &Zeugnisbeurteilungen, &Leistungsarten}) {
    AddToken(*table);
    table->AddField("Description", ftText);
  }

  Grades.AddField("ID", ftInteger);
  AddToken(Grades);
  Grades.AddField("Description", ftText);
  Grades.AddField("GradeValue", ftFloat);
  Grades.AddField("GradeType", ftSmallInt);
  Grades.SetKeptSortedBy("Token");

  CertificateComments.AddField("ID", ftGuid);
  AddToken(CertificateComments);
  CertificateComments.AddField("Description", ftMemo);
  CertificateComments.AddField("Attribute", ftText);
  CertificateComments.AddField("Position", ftSmallInt);
}

TLookupModule::TLookupModule(TMyTessaronProject& project) : TLookupTables(project) {
  LookupModule = this;
}

void TLookupModule::Retire() {
  if (LookupModule == this) LookupModule = nullptr;
}

void TLookupTables::Initialize() {
  const auto& project = *ProjectObj;
  project.Abschluesse().Populate(Abschluesse);
  project.Abschlussarten().Populate(Abschlussarten);
  project.Empfehlungen().Populate(Empfehlungen);
  project.Fachstati().Populate(Fachstati);
  project.Niveaus().Populate(Niveaus);
  project.Noten().Populate(Grades, {});
  project.Unterrichtsarten().Populate(Unterrichtsarten);
  project.Versetzungsarten().Populate(Versetzungsarten);
  project.Zeugnisbeurteilungen().Populate(Zeugnisbeurteilungen);
  project.CertificateComments().Populate(CertificateComments);
  project.Leistungsarten().Populate(Leistungsarten);
}

TVantrelPtr<TLookupModule> CreateLookupModule(TMyTessaronProject& project) {
  auto module = CreateVantrel<TLookupModule>(project);
  module->Initialize();
  return module;
}
