#include "uCertificateFields.h"

#include <algorithm>

#include "ProjectTexts.h"
#include "VantrelI18n.h"
#include "uRecordTexts.h"

using enum TCertificateGroup;

namespace {

constexpr std::size_t BatchFields = 13;
constexpr double LowestNote = 1;
constexpr int NotePlaces = 2;

struct TGroup {
  TCertificateGroup Group;
  const char* Key;
  const char* Caption;
  int Width;
};
constexpr TGroup Groups[] = {
    {AbschlussdatenGroup, "AbschlussdatenGroup", ProjectTexts::GroupAbschlussdaten, 275},
    {ZeugnisdatenGroup, "ZeugnisdatenGroup", ProjectTexts::GroupZeugnisdaten, 201},
    {WeitereDatenGroup, "WeitereDatenGroup", ProjectTexts::GroupWeitereDaten, 250},
};

constexpr TCertificateField Token(TCertificateGroup group, std::string_view name, const char* caption,
                                  const TEditorLookup TLookupTables::*lookup) {
  return {.Fieldname = name, .Key = name, .Group = group, .Caption = caption, .Lookup = lookup};
}

constexpr TCertificateField Choice(std::string_view name, std::string_view key, const char* caption) {
  return {.Fieldname = name, .Key = key, .Group = ZeugnisdatenGroup, .Caption = caption, .Editor = TEditorKind::List};
}

constexpr TCertificateField Date(TCertificateGroup group, std::string_view name, std::string_view key,
                                 const char* caption, const char* nullText = "") {
  return {.Fieldname = name,
          .Key = key,
          .Group = group,
          .Caption = caption,
          .Editor = TEditorKind::Date,
          .ValueKind = TValueKind::Date,
          .PageNullText = nullText};
}

constexpr TCertificateField Note(std::string_view name, const char* caption) {
  return {.Fieldname = name,
          .Key = name,
          .Caption = caption,
          .Editor = TEditorKind::Spin,
          .ValueKind = TValueKind::Float,
          .Minimum = LowestNote,
          .Decimals = NotePlaces,
          .BatchStart = LowestNote};
}

constexpr TCertificateField Grade(std::string_view name, std::string_view key, const char* caption) {
  auto field = Token(WeitereDatenGroup, name, caption, &TLookupTables::gv_Grades);
  field.Key = key;
  field.ValueKind = TValueKind::Integer;
  return field;
}

constexpr TCertificateField Count(std::string_view name, const char* caption) {
  return {.Fieldname = name,
          .Key = name,
          .Group = WeitereDatenGroup,
          .Caption = caption,
          .Editor = TEditorKind::Spin,
          .ValueKind = TValueKind::Integer};
}

constexpr TCertificateField NotCleared(TCertificateField field, const char* nullText = "") {
  field.DeleteClears = false;
  field.PageNullText = nullText;
  return field;
}

constexpr TCertificateField PartOf(const char* total, TCertificateField field) {
  field.Total = total;
  return field;
}

constexpr TCertificateField Block(TCertificateField field) {
  field.StartsBlock = true;
  return field;
}

constexpr TCertificateField MovingOn(TCertificateField field) {
  field.PageReturnMovesOn = true;
  return field;
}

constexpr TCertificateField Table[] = {
    MovingOn(Token(AbschlussdatenGroup, "Abschluss1", ProjectTexts::Abschluss1, &TLookupTables::gv_Abschluesse)),
    Token(AbschlussdatenGroup, "Abschluss1Art", ProjectTexts::Abschluss1Art, &TLookupTables::gv_Abschlussarten),
    Date(AbschlussdatenGroup, "Abschluss1Datum", "Abschluss1Datum", ProjectTexts::Abschluss1Datum),
    Note("Abschluss1Note", ProjectTexts::Abschluss1Note),
    Block(Token(AbschlussdatenGroup, "Abschluss2", ProjectTexts::Abschluss2, &TLookupTables::gv_Abschluesse)),
    Token(AbschlussdatenGroup, "Abschluss2Art", ProjectTexts::Abschluss2Art, &TLookupTables::gv_Abschlussarten),
    Date(AbschlussdatenGroup, "Abschluss2Datum", "Abschluss2Datum", ProjectTexts::Abschluss2Datum),
    Note("Abschluss2Note", ProjectTexts::Abschluss2Note),
    Choice("Versetzt", "Versetzt", ProjectTexts::Versetzt),
    Token(ZeugnisdatenGroup, "Versetzungsart", ProjectTexts::Versetzungsart, &TLookupTables::gv_Versetzungsarten),
    Block(Date(ZeugnisdatenGroup, "ZeugniskonferenzAm", "Zeugniskonferenz", ProjectTexts::Zeugniskonferenz,
               ProjectTexts::NoDate)),
    Date(ZeugnisdatenGroup, "Zeugnisdatum", "Zeugnisdatum", ProjectTexts::Zeugnisdatum, ProjectTexts::NoDate),
    Block(Choice("Leistungsanforderungen", "Leistungsanforderung", ProjectTexts::Leistungsanforderung)),
    Grade("Verhalten", "VerhaltenGradeId", ProjectTexts::Verhalten),
    Grade("Mitarbeit", "MitarbeitGradeId", ProjectTexts::Mitarbeit),
    Block(NotCleared(Count("Unterrichtstage", ProjectTexts::Unterrichtstage), ProjectTexts::NullShown)),
    NotCleared(Count("Versaeumnisse", ProjectTexts::Versaeumnisse)),
    Block(Count("Fehltage", ProjectTexts::Fehltage)),
    PartOf(ProjectTexts::Fehltage, Count("FehltageU", ProjectTexts::FehltageU)),
    Block(Count("Fehlstunden", ProjectTexts::Fehlstunden)),
    PartOf(ProjectTexts::Fehlstunden, Count("FehlstundenU", ProjectTexts::Unentschuldigt)),
    Block(Count("FehltagePraktikum", ProjectTexts::FehltagePraktikum)),
    PartOf(ProjectTexts::FehltagePraktikum, Count("FehltagePraktikumU", ProjectTexts::Unentschuldigt)),
};

TEditorDescription EditorOf(const TCertificateField& field, TCertificateUse use, const TLookupTables& lookups) {
  TEditorDescription editor;
  editor.Kind = field.Editor;
  editor.ValueKind = field.ValueKind;
  if (field.Lookup != nullptr) editor.Lookup = lookups.*field.Lookup;
  if (field.Editor == TEditorKind::List) editor.Items = RecordTexts::NamedValues(field.Key);
  editor.Minimum = field.Minimum;
  editor.Decimals = field.Decimals;
  editor.RoundsShown = true;
  editor.DeleteClears = field.DeleteClears;
  if (use == TCertificateUse::Page) {
    editor.NullText = ResourceText(field.PageNullText);
    editor.ReturnMovesOn = field.PageReturnMovesOn;
  }
  return editor;
}

}  // namespace

TVariant TCertificateField::Value(const TStudent& student) const {
  auto value = TStudent::FieldOf(Key)->Value(student);
  return value == TVariant("") ? TVariant::Null() : value;
}

std::span<const TCertificateField> CertificateFields(TCertificateUse use) {
  const std::span<const TCertificateField> all(Table);
  return use == TCertificateUse::Page ? all : all.first(BatchFields);
}

const TCertificateField* FindCertificateField(std::string_view fieldname) {
  const auto* found = std::ranges::find(Table, fieldname, &TCertificateField::Fieldname);
  return found == std::end(Table) ? nullptr : found;
}

TFormDescription CertificateForm(TCertificateUse use, const TLookupTables& lookups) {
  TFormDescription form;
  for (const auto& group : Groups) {
    TFormGroup shown{.Key = group.Key, .Caption = ResourceText(group.Caption), .Fields = {}, .Width = group.Width};
    for (const auto& field : CertificateFields(use)) {
      if (field.Group != group.Group) continue;
      shown.Fields.push_back({.Key = std::string(field.Fieldname),
                              .Caption = ResourceText(field.Caption),
                              .Editor = EditorOf(field, use, lookups),
                              .StartsBlock = field.StartsBlock,
                              .Name = Join(ResourceText(field.Total), ResourceText(field.Caption), ", ")});
    }
    if (!shown.Fields.empty()) form.Groups.push_back(std::move(shown));
  }
  return form;
}

TCertificateRights CertificateRights(const TCertificateField& field, const TColumns& columns) {
  TCertificateRights rights;
  for (int i = 0; i < columns.Count(); ++i) {
    const auto& column = *columns.GetItem(i);
    if (!column.GridColumn && column.Fieldname == field.Fieldname) rights = {column.Visible, column.Editable};
  }
  return rights;
}

bool ShowsCertificateFields(TCertificateUse use, const TColumns& columns) {
  return std::ranges::any_of(CertificateFields(use),
                             [&](const auto& field) { return CertificateRights(field, columns).Visible; });
}

void ShowCertificateFields(TVantrelFieldForm& form, TCertificateUse use, const TColumns& columns) {
  for (const auto& group : Groups) {
    bool any = false;
    for (const auto& field : CertificateFields(use)) {
      if (field.Group != group.Group) continue;
      const bool visible = CertificateRights(field, columns).Visible;
      form.SetVisible(std::string(field.Fieldname), visible);
      any = any || visible;
    }
    form.SetGroupVisible(group.Key, any);
  }
}
