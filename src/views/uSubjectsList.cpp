#include "uSubjectsList.h"

#include "VantrelI18n.h"
#include "ViewTexts.h"

TListPaneSettings SubjectsList() {
  using enum TVantrelFieldType;
  return {.Name = "Subjects",
          .Label = ResourceText(ViewTexts::SubjectsLabel),
          .Fields = {{.Name = "ID", .Type = ftInteger, .Caption = ResourceText(ViewTexts::SubjectId), .Shown = false},
                     {.Name = "Token", .Caption = ResourceText(ViewTexts::SubjectToken), .TakesRest = true},
                     {.Name = "Name", .Size = 300, .Caption = ResourceText(ViewTexts::SubjectName), .Shown = false},
                     {.Name = OpenGradesField,
                      .Type = ftInteger,
                      .Caption = ResourceText(ViewTexts::SubjectOpen),
                      .Width = 60}},
          .Options = {.SortedByView = true}};
}
