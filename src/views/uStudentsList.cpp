#include "uStudentsList.h"

#include <algorithm>

#include "VantrelI18n.h"
#include "ViewTexts.h"
#include "uProject.h"

namespace {

constexpr int NameSize = 100;

std::string Students_KlasseGetText(const TVariant& value) {
  const auto* schoolClass = CurrentProject->Classes().Find(value);
  return schoolClass == nullptr ? value.AsTextOrEmpty() : schoolClass->Token;
}

}  // namespace

TListPaneSettings StudentsList() {
  using enum TVantrelFieldType;
  return {
      .Name = "Students",
      .Label = ResourceText(ViewTexts::StudentsLabel),
      .Fields =
          {{.Name = "ID",
            .Type = ftInteger,
            .Caption = ResourceText(ViewTexts::StudentId),
            .Width = 60,
            .Shown = false},
           {.Name = "Klasse",
            .Type = ftInteger,
            .Caption = ResourceText(ViewTexts::StudentClass),
            .Width = 80,
            .OnGetText = Students_KlasseGetText},
           {.Name = "Vorname", .Size = NameSize, .Caption = ResourceText(ViewTexts::StudentFirstName), .Width = 120},
           {.Name = "Nachname", .Size = NameSize, .Caption = ResourceText(ViewTexts::StudentLastName), .Width = 120},
           {.Name = "Geburtsdatum",
            .Type = ftDateTime,
            .Caption = ResourceText(ViewTexts::StudentBirthday),
            .Width = 80}},
      .Options = {.SortedByView = true, .Filtering = true, .MovingColumns = true},
      .FocusedField = "Nachname"};
}

TListPaneSettings StudentsToSelect() {
  auto settings = StudentsList();
  settings.Options.MultiSelect = true;
  settings.Fields.back().TakesRest = true;
  std::ranges::find(settings.Fields, "Klasse", &TListField::Name)->OnGetText = [](const TVariant& value) {
    const auto* schoolClass = CurrentProject->Classes().Find(value);
    return schoolClass == nullptr ? std::string() : schoolClass->Token;
  };
  return settings;
}
