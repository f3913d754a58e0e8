#include "uCatalogs.h"

#include <algorithm>

#include "ProjectTexts.h"
#include "VantrelI18n.h"
#include "uFields.h"

// The order of these tables is the file format.
constexpr auto TCatalog::FieldTable() {
  return std::tuple(Fields::String("Token", &TCatalog::Token), Fields::String("Description", &TCatalog::Description));
}

constexpr auto TCertificateComment::FieldTable() {
  return std::tuple(Fields::String("Attribute", &TCertificateComment::Attribute),
                    Fields::PlainInt("Position", &TCertificateComment::Position));
}

constexpr auto TGrade::FieldTable() {
  return std::tuple(Fields::PlainInt("ID", &TGrade::TessaronId, -1),
                    Fields::PlainSingle("GradeValue", &TGrade::GradeValue, -1.0F),
                    Fields::Byte("GradeType", &TGrade::FGradeType));
}

template class TVantrelRecordOf<TCatalog>;
template class TVantrelRecordOf<TCertificateComment, TCatalog>;
template class TVantrelRecordOf<TGrade, TCatalog>;

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

TCatalog* TCatalogs::AddCatalog(std::string_view token, std::string_view description) {
  auto* item = AddNew();
  item->Token = token;
  item->Description = description;
  return item;
}

void TCatalogs::Populate(TVantrelMemTable& memData) const {
  memData.Reopen();
  for (int i = 0; i < Count(); ++i)
    memData.AppendRow({{"Token", GetItem(i)->Token}, {"Description", GetItem(i)->Description}});
}

TVantrelPtr<TCertificateComment> TCertificateComments::NewComment(std::string_view token, std::string_view description,
                                                                  std::string_view attribute, std::int32_t position) {
  auto item = CreateVantrel<TCertificateComment>(this);
  item->Token = token;
  item->Description = description;
  item->Attribute = attribute;
  item->Position = position;
  return item;
}

TCertificateComment* TCertificateComments::AddCertificateComment(std::string_view token, std::string_view description,
                                                                 std::string_view attribute, std::int32_t position) {
  auto item = NewComment(token, description, attribute, position);
  Add(item.get());
  return item.release();
}

void TCertificateComments::Populate(TVantrelMemTable& memData) const {
  memData.Reopen();
  for (int i = 0; i < Count(); ++i) {
    const auto* item = GetItem(i);
    memData.AppendRow({{"ID", GuidToText(item->ID())},
                       {"Token", item->Token},
                       {"Description", item->Description},
                       {"Attribute", item->Attribute},
                       {"Position", item->Position}});
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
  memData.Reopen();
  for (int i = 0; i < Count(); ++i) {
    const auto* item = GetItem(i);
    if (!gradeTypeFilter.empty() &&
        std::find(gradeTypeFilter.begin(), gradeTypeFilter.end(), item->GradeType()) == gradeTypeFilter.end())
      continue;
    memData.AppendRow({{"Token", item->Token},
                       {"Description", item->Description},
                       {"ID", item->TessaronId},
                       {"GradeValue", double{item->GradeValue}},
                       {"GradeType", static_cast<std::int32_t>(item->GradeType())}});
  }
}
