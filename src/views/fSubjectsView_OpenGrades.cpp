// The subjects view: which grades are open, where the next one is, and what the focused column comes to.

#include <algorithm>
#include <utility>

#include "VantrelI18n.h"
#include "VantrelMsgBox.h"
#include "ViewTexts.h"
#include "fSubjectsView.h"
#include "uGradeStatistics.h"
#include "uOpenGrades.h"
#include "uSubjectsList.h"

namespace {

constexpr const char* Separator = "   ";

/// With two places, as it is written in German.
std::string DecimalText(double number) {
  auto text = fmt::format("{:.2f}", number);
  std::ranges::replace(text, '.', ',');
  return text;
}

}  // namespace

void TSubjectsView::Handle_ProjectChange(const TProjectChange& change) {
  const auto* course = dynamic_cast<const TCourse*>(&change.Record);
  if (course == nullptr) return;
  if (FIsInBracket) {
    FHasChanged = true;
    return;
  }
  const auto effect = OpenGrades::EffectOf(change);
  if (effect == OpenGrades::TEffect::Any) return UpdateSums();
  if (effect == OpenGrades::TEffect::OwnSubject) {
    const auto subject = course->SubjectId.AsInt();
    FOpenGrades[subject] = OpenGrades::CountOf(*CurrentProject, LastFilter, subject);
    ShowOpenGrades();
  }
  if (change.Key == TCourseColumns::Of(TCourseGrid::Subjects).KeyOf(Grid().FocusedColumn())) UpdateNote();
}

void TSubjectsView::Handle_ChangeMark(TChangeMark mark) {
  if (mark != TChangeMark::Begin && mark != TChangeMark::End) return;
  FIsInBracket = mark == TChangeMark::Begin;
  if (!FIsInBracket && std::exchange(FHasChanged, false)) UpdateSums();
}

void TSubjectsView::UpdateSums() {
  UpdateOpenGrades();
  UpdateNote();
}

void TSubjectsView::UpdateOpenGrades() {
  FOpenGrades = OpenGrades::CountBySubject(*CurrentProject, LastFilter);
  ShowOpenGrades();
}

void TSubjectsView::ShowOpenGrades() {
  FSubjects->SetValues(OpenGradesField, [&](const TVariant& id) {
    const auto count = FOpenGrades.find(id.IsEmpty() ? -1 : id.AsInteger());
    return count == FOpenGrades.end() || count->second == 0 ? TVariant::Null() : TVariant(count->second);
  });
}

void TSubjectsView::UpdateNote() {
  const auto hint = LastFilter.IsNull() ? ResourceText(ViewTexts::ChooseGradeType) : std::string();
  FUi->Achievements().Note().SetValue(Join(hint, ColumnSummary(), Separator));
}

/// Average, number and distribution of the grades on show in the focused column; empty for other columns.
std::string TSubjectsView::ColumnSummary() {
  const int column = Grid().FocusedColumn();
  if (!TCourseColumns::Of(TCourseGrid::Subjects).IsGrade(column)) return {};
  std::vector<TVariant> ids;
  for (const auto& row : Grid().ShownRows())
    if (row.Record >= 0) ids.push_back(Grid().Value(row.Record, column));
  const auto statistics = GradeStatisticsOf(CurrentProject->Noten(), ids);
  const auto& caption = Grid().Columns()[static_cast<std::size_t>(column)].Caption;
  auto summary = FormatText(ViewTexts::GradesEntered, caption, statistics.Count, ids.size());
  if (statistics.Average)
    summary = Join(FormatText(ViewTexts::GradesAverage, DecimalText(*statistics.Average)), summary, Separator);
  std::string shares;
  for (const auto& [token, count] : statistics.Distribution)
    shares = Join(shares, FormatText(ViewTexts::GradesShare, token, count), ", ");
  return Join(summary, shares, Separator);
}

void TSubjectsView::GotoOpenGrade() {
  PostEdits();
  const char* reason = nullptr;
  if (LastFilter.IsNull())
    reason = ViewTexts::ChooseGradeType;
  else if (OpenGrades::ColumnsOf(*CurrentProject).empty())
    reason = ViewTexts::NoGradesToEnter;
  else if (!GotoOpenCell(true))
    reason = GotoOpenGradeElsewhere();
  if (reason != nullptr) return MsgBoxInfo(ResourceText(ViewTexts::NoteCaption), ResourceText(reason));
  Grid().SetFocus();
}

/// Where nothing is open behind the focus. Why there is nowhere to go, else null.
const char* TSubjectsView::GotoOpenGradeElsewhere() {
  const auto counts = OpenGrades::CountBySubject(*CurrentProject, LastFilter);
  const auto here = counts.find(FShownSubject.IsEmpty() ? -1 : FShownSubject.AsInteger());
  // What the user's own filter hides is not passed over: another subject would end the filter.
  if (here != counts.end() && here->second > OpenCellsShown())
    return GotoOpenCell(false) ? nullptr : ViewTexts::OpenGradesHidden;
  if (counts.empty()) return ViewTexts::NoRowOfGradeType;
  return GotoOpenSubject() ? nullptr : ViewTexts::NoGradesOpen;
}

int TSubjectsView::OpenCellsShown() {
  const auto columns = OpenGrades::ColumnsOf(*CurrentProject);
  int open = 0;
  for (const auto& row : Grid().ShownRows())
    open += static_cast<int>(std::ranges::count_if(
        columns, [&](int column) { return row.Record >= 0 && Grid().Value(row.Record, column).IsEmpty(); }));
  return open;
}

/// Down the columns, from the first cell or from behind the focused one.
bool TSubjectsView::GotoOpenCell(bool behindFocus) {
  const auto columns = OpenGrades::ColumnsOf(*CurrentProject);
  const auto rows = Grid().ShownRows();
  const auto focused = std::ranges::find(columns, Grid().FocusedColumn());
  behindFocus = behindFocus && Grid().FocusedRecord() >= 0 && focused != columns.end();
  for (auto column = behindFocus ? focused : columns.begin(); column != columns.end(); ++column) {
    auto row = rows.begin();
    if (std::exchange(behindFocus, false)) {
      row = std::ranges::find(rows, Grid().FocusedRecord(), &TGridShownRow::Record);
      if (row != rows.end()) ++row;
    }
    row = std::find_if(row, rows.end(), [&](const auto& shown) {
      return shown.Record >= 0 && Grid().Value(shown.Record, *column).IsEmpty();
    });
    if (row == rows.end()) continue;
    Grid().ShowColumn(*column, true);
    Grid().FocusColumn(*column);
    Grid().FocusRecord(row->Record);
    return true;
  }
  return false;
}

/// The next subject of the list that has any, at last the focused one again.
bool TSubjectsView::GotoOpenSubject() {
  auto& list = FSubjects->Grid();
  const int open = FSubjects->Table().FieldByName(OpenGradesField).Index();
  auto rows = list.ShownRows();
  const auto focused = std::ranges::find(rows, list.FocusedRecord(), &TGridShownRow::Record);
  if (focused != rows.end()) std::rotate(rows.begin(), focused + 1, rows.end());
  return std::ranges::any_of(rows, [&](const auto& row) {
    if (FSubjects->Table().ValueAt(row.Record, open).IsEmpty()) return false;
    list.FocusRecord(row.Record);
    return GotoOpenCell(false);
  });
}
