#include "fClassesView.h"

#include "VantrelI18n.h"
#include "ViewTexts.h"
#include "uClassOverview.h"
#include "uUpdates.h"

namespace {

// Number and name of a student stand still while the subjects scroll.
constexpr int LeadingColumns = 3, LastNameColumn = 2;

TListPaneSettings ClassesList() {
  using enum TVantrelFieldType;
  return {.Name = "Classes",
          .Label = ResourceText(ViewTexts::ClassesLabel),
          .Fields = {{.Name = "ID", .Type = ftInteger, .Caption = ResourceText(ViewTexts::ClassId), .Shown = false},
                     {.Name = "Token", .Caption = ResourceText(ViewTexts::ClassToken), .TakesRest = true},
                     {.Name = "GradeType",
                      .Type = ftSmallInt,
                      .Caption = ResourceText(ViewTexts::ClassGradeType),
                      .Shown = false}},
          .Options = {.SortedByView = true}};
}

TGridColumn ColumnOf(const TVantrelField& field) {
  using enum TVantrelFieldType;
  constexpr int numberWidth = 60, dateWidth = 100, gradeWidth = 60, nameWidth = 120;
  TGridColumn column;
  column.Id = "col_Subjects_" + field.Name();
  column.Caption = field.DisplayLabel();
  column.Field = field.Name();
  const bool isNumber = field.Type() == ftInteger, isDate = field.Type() == ftDateTime;
  // Names of subjects' fields, and no others, have a point.
  column.Centred = field.Name().find('.') != std::string::npos;
  column.Editor.ValueKind = isNumber ? TValueKind::Integer : isDate ? TValueKind::Date : TValueKind::Text;
  column.Width = isNumber ? numberWidth : isDate ? dateWidth : column.Centred ? gradeWidth : nameWidth;
  column.TakesRest = field.Type() == ftMemo;
  return column;
}

}  // namespace

TClassesView::TClassesView(TViewFrame& frame, std::unique_ptr<TListViewUi> ui)
    : TBaseView(frame, "ClassesView"), FUi(std::move(ui)) {
  FClasses.emplace(FUi->List(), ClassesList());
  Grid().SetOptions({.Filtering = true});
  Grid().SetName(ResourceText(ViewTexts::ClassOverview));
  Grid().BindTable(&FSubjects);
  // The letters of a search begin a name.
  Grid().FocusColumn(LastNameColumn);
  Grid().OnFocusChanged = [this](int, int) { UpdateViewCommands(); };
  Grid().OnRowsChanged = [this] { UpdateViewCommands(); };
  FClasses->OnChange = [this](TListChange change) { DataChange_ClassesSource(change); };
  FUi->Achievements().OnFit = [this] {
    Grid().BeginBestFit();
    Grid().BestFitAll();
    Grid().EndBestFit();
  };
}

TClassesView::~TClassesView() {
  TClassesView::TeardownView();
}

void TClassesView::CreateData() {
  RunForUser([this] { FClasses->Fill([](auto& table) { CurrentProject->Students().PopulateClasses(table); }); });
}

void TClassesView::SetupView() {
  TBaseView::SetupView();
  FStorageKey = FStorageFormdir + "\\" + FName;
  FOnLoadProperties = [this] { DataChange_ClassesSource(TListChange::Record); };
  ClassesView = this;
}

void TClassesView::TeardownView() {
  if (ClassesView == this) ClassesView = nullptr;
}

void TClassesView::UpdateStatus(const TVantrelMemTable* dataSet) {
  if (dataSet == &FClasses->Table()) return FClasses->UpdateCount();
  FUi->Achievements().Status().SetValue(FormatText(ViewTexts::Count, Grid().RecordCount()));
}

void TClassesView::UpdateViewCommands() {
  UpdateGotoCommands();
  FFrame.EditZeugnisbeurteilungenCommand.SetEnabled(false);
  FFrame.ExportToExcelCommand.SetEnabled(FFrame.ExportGrid != nullptr);
}

void TClassesView::UpdateContent() {
  if (FClasses->IsFilling()) return;
  ShowClass();
  UpdateStatus(&FSubjects);
  UpdateTitle();
  UpdateViewCommands();
}

void TClassesView::ShowClass() {
  const TGridUpdate update(Grid());
  CurrentClass = CurrentProject->Classes().Find(FClasses->FocusedValue());
  if (CurrentClass == nullptr && !FSubjects.Fields().empty()) return;
  Grid().ClearColumns();
  {
    const TTableUpdate rows(FSubjects);
    FillSubjects();
  }
  CreateColumns();
}

void TClassesView::FillSubjects() {
  const auto courses = CurrentClass == nullptr ? CreateVantrel<TCourses>(false)
                                               : CurrentProject->CoursesByClass(CurrentClass->TessaronId);
  // A class without courses keeps the fields of the class before it.
  if (courses->Count() > 0 || FSubjects.Fields().empty()) DefineFields(*courses);
  if (CurrentClass != nullptr) CurrentProject->PopulateClassSubjects(FSubjects, *CurrentClass);
  FSubjects.First();
}

void TClassesView::DefineFields(const TCourses& courses) {
  FSubjects.Close();
  FSubjects.ClearFields();
  for (const auto& field : ClassOverview::FieldsOf(courses))
    FSubjects.AddField(field.Name, field.Type, 0, field.Caption);
  FSubjects.Open();
}

void TClassesView::CreateColumns() {
  for (const auto& field : FSubjects.Fields()) {
    auto column = ColumnOf(*field);
    column.Frozen = field->Index() < LeadingColumns;
    Grid().AddColumn(std::move(column));
  }
}

void TClassesView::UpdateTitle() {
  FUi->TitleLabel().SetValue(CurrentClass == nullptr ? ResourceText(ViewTexts::ClassesTitle) : CurrentClass->Token);
}

void TClassesView::DataChange_ClassesSource(TListChange change) {
  if (change == TListChange::Record) RunForUser([this] { UpdateContent(); });
}
