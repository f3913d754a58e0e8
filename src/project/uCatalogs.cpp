#include "uCatalogs.h"

#include <algorithm>

#include "ProjectTexts.h"
#include "VantrelI18n.h"
#include "uClasses.h"
#include "uFields.h"

namespace {

constexpr std::tuple CatalogFields(Fields::String("Token", &TCatalog::Token),
                                   Fields::String("Description", &TCatalog::Description));

constexpr std::tuple CommentFields(Fields::String("Attribute", &TCertificateComment::Attribute),
                                   Fields::PlainInt("Position", &TCertificateComment::Position));

void StartTable(TVantrelMemTable& memData) {
  memData.Close();
  memData.Open();
}

}  // namespace

constexpr auto TGrade::FieldTable() {
  return std::tuple(Fields::PlainInt("ID", &TGrade::TessaronId, -1),
                    Fields::PlainSingle("GradeValue", &TGrade::GradeValue, -1.0F),
                    Fields::Byte("GradeType", &TGrade::FGradeType));
}

constexpr auto TClass::FieldTable() {
  return std::tuple(Fields::PlainInt("ID", &TClass::TessaronId, -1), Fields::String("Token", &TClass::Token),
                    Fields::Byte("GradeType", &TClass::FGradeType));
}

TVariant GetGradeTypeName(TGradeTypes gradeType) {
  switch (gradeType) {
    case TGradeTypes::gtValue:
      return ResourceText(ProjectTexts::GradeTypeValue);
    case TGradeTypes::gtPoints:
      return ResourceText(ProjectTexts::GradeTypePoints);
    case TGradeTypes::gtFill:
      return ResourceText(ProjectTexts::GradeTypeFill);
  }
  return TVariant::Null();
}

void TCatalog::DoCreate() {
  DoClear();
}
void TCatalog::DoClear() {
  Fields::ClearAll(CatalogFields, *this);
}
void TCatalog::Assign(const TVantrelObject& source) {
  Fields::AssignAll(CatalogFields, *this, source);
}
void TCatalog::ReadData(TVantrelDataObjectReader& reader) {
  TVantrelDataClassOf::ReadData(reader);
  Fields::ReadAll(CatalogFields, *this, reader);
}
void TCatalog::WriteData(TVantrelDataObjectWriter& writer) const {
  Fields::WriteAll(CatalogFields, *this, writer);
}
void TCatalog::VisitFields(const Fields::TVisitor& visitor) const {
  Fields::VisitAll(CatalogFields, *this, visitor);
}

void TCertificateComment::DoClear() {
  TCatalog::DoClear();
  Fields::ClearAll(CommentFields, *this);
}
void TCertificateComment::Assign(const TVantrelObject& source) {
  TCatalog::Assign(source);
  Fields::AssignAll(CommentFields, *this, source);
}
void TCertificateComment::ReadData(TVantrelDataObjectReader& reader) {
  TCatalog::ReadData(reader);
  Fields::ReadAll(CommentFields, *this, reader);
}
void TCertificateComment::WriteData(TVantrelDataObjectWriter& writer) const {
  TCatalog::WriteData(writer);
  Fields::WriteAll(CommentFields, *this, writer);
}
void TCertificateComment::VisitFields(const Fields::TVisitor& visitor) const {
  TCatalog::VisitFields(visitor);
  Fields::VisitAll(CommentFields, *this, visitor);
}
void TCertificateComment::VisitImpossible(const Fields::TVisitor& visitor) const {
  Fields::VisitImpossible(CommentFields, *this, visitor);
}

void TGrade::DoClear() {
  TCatalog::DoClear();
  Fields::ClearAll(Fields::Of<FieldTable>, *this);
}
void TGrade::Assign(const TVantrelObject& source) {
  TCatalog::Assign(source);
  Fields::AssignAll(Fields::Of<FieldTable>, *this, source);
}
void TGrade::ReadData(TVantrelDataObjectReader& reader) {
  TCatalog::ReadData(reader);
  Fields::ReadAll(Fields::Of<FieldTable>, *this, reader);
}
void TGrade::WriteData(TVantrelDataObjectWriter& writer) const {
  TCatalog::WriteData(writer);
  Fields::WriteAll(Fields::Of<FieldTable>, *this, writer);
}
void TGrade::VisitFields(const Fields::TVisitor& visitor) const {
  TCatalog::VisitFields(visitor);
  Fields::VisitAll(FieldTable(), *this, visitor);
}
void TGrade::VisitImpossible(const Fields::TVisitor& visitor) const {
  Fields::VisitImpossible(FieldTable(), *this, visitor);
}

void TClass::DoCreate() {
  DoClear();
}
void TClass::DoClear() {
  Fields::ClearAll(Fields::Of<FieldTable>, *this);
}
void TClass::Assign(const TVantrelObject& source) {
  Fields::AssignAll(Fields::Of<FieldTable>, *this, source);
}
void TClass::ReadData(TVantrelDataObjectReader& reader) {
  TVantrelDataClassOf::ReadData(reader);
  Fields::ReadAll(Fields::Of<FieldTable>, *this, reader);
}
void TClass::WriteData(TVantrelDataObjectWriter& writer) const {
  Fields::WriteAll(Fields::Of<FieldTable>, *this, writer);
}
void TClass::VisitFields(const Fields::TVisitor& visitor) const {
  Fields::VisitAll(FieldTable(), *this, visitor);
}

TCatalog* TCatalogs::AddCatalog(std::string_view token, std::string_view description) {
  auto* item = AddNew();
  item->Token = token;
  item->Description = description;
  return item;
}

void TCatalogs::Populate(TVantrelMemTable& memData) const {
  StartTable(memData);
  for (int i = 0; i < Count(); ++i) {
    memData.Append();
    memData.FieldByName("Token").SetValue(GetItem(i)->Token);
    memData.FieldByName("Description").SetValue(GetItem(i)->Description);
    memData.Post();
  }
}

TCatalog* TCatalogs::FindToken(std::string_view token) const {
  for (int i = 0; i < Count(); ++i)
    if (GetItem(i)->Token == token) return GetItem(i);
  return nullptr;
}

TCertificateComment* TCertificateComments::AddCertificateComment(std::string_view token, std::string_view description,
                                                                 std::string_view attribute, std::int32_t position) {
  auto* item = AddNew();
  item->Token = token;
  item->Description = description;
  item->Attribute = attribute;
  item->Position = position;
  return item;
}

void TCertificateComments::Populate(TVantrelMemTable& memData) const {
  StartTable(memData);
  for (int i = 0; i < Count(); ++i) {
    const auto* item = GetItem(i);
    memData.Append();
    memData.FieldByName("ID").SetValue(GuidToText(item->ID()));
    memData.FieldByName("Token").SetValue(item->Token);
    memData.FieldByName("Description").SetValue(item->Description);
    memData.FieldByName("Attribute").SetValue(item->Attribute);
    memData.FieldByName("Position").SetValue(item->Position);
    memData.Post();
  }
}

TGrade* TGrades::AddNote(std::int32_t tessaronId, std::string_view token, std::string_view description,
                         float gradeValue, TGradeTypes gradeType) {
  auto* item = AddNew();
  item->TessaronId = tessaronId;
  item->Token = token;
  item->Description = description;
  item->GradeValue = gradeValue;
  item->SetGradeType(gradeType);
  return item;
}

TGrade* TGrades::Find(std::int32_t tessaronId) const {
  if (tessaronId < 0) return nullptr;
  for (int i = 0; i < Count(); ++i)
    if (GetItem(i)->TessaronId == tessaronId) return GetItem(i);
  return nullptr;
}

void TGrades::Populate(TVantrelMemTable& memData, const std::vector<TGradeTypes>& gradeTypeFilter) const {
  StartTable(memData);
  for (int i = 0; i < Count(); ++i) {
    const auto* item = GetItem(i);
    if (!gradeTypeFilter.empty() &&
        std::find(gradeTypeFilter.begin(), gradeTypeFilter.end(), item->GradeType()) == gradeTypeFilter.end())
      continue;
    memData.Append();
    memData.FieldByName("Token").SetValue(item->Token);
    memData.FieldByName("Description").SetValue(item->Description);
    memData.FieldByName("ID").SetValue(item->TessaronId);
    memData.FieldByName("GradeValue").SetValue(double{item->GradeValue});
    memData.FieldByName("GradeType").SetValue(static_cast<std::int32_t>(item->GradeType()));
    memData.Post();
  }
}

TClass* TClasses::Find(const TVariant& tessaronId) const {
  if (tessaronId.IsNull()) return nullptr;
  for (int i = 0; i < Count(); ++i)
    if (tessaronId == TVariant(GetItem(i)->TessaronId)) return GetItem(i);
  return nullptr;
}

void TClasses::AddClass(std::int32_t tessaronId, std::string_view token, TGradeTypes gradeType) {
  if (Exists(TVariant(tessaronId))) return;
  auto* item = AddNew();
  item->TessaronId = tessaronId;
  item->Token = token;
  item->SetGradeType(gradeType);
}
