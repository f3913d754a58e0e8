#include "fBatchCertificateDataDialog.h"

#include <algorithm>

#include "DialogTexts.h"
#include "ShellTexts.h"
#include "VantrelI18n.h"
#include "VantrelMsgBox.h"
#include "fBaseView.h"
#include "uCXUtils.h"
#include "uStudentsList.h"

using enum TBatchPage;
using enum TBatchButton;

namespace {

constexpr auto Use = TCertificateUse::Batch;

TBatchTexts Texts() {
  return {.Title = ResourceText(DialogTexts::BatchTitle),
          .Pages = {{{ResourceText(DialogTexts::SelectStudentsTitle), ResourceText(DialogTexts::SelectStudentsText)},
                     {ResourceText(DialogTexts::SelectDataTitle), ResourceText(DialogTexts::SelectDataText)}}},
          .Buttons = {ResourceText(DialogTexts::WizardBack), ResourceText(DialogTexts::WizardNext),
                      ResourceText(DialogTexts::WizardFinish), ResourceText(DialogTexts::WizardClose)},
          .Notice = ResourceText(DialogTexts::BatchNotice)};
}

std::vector<std::string> Fieldnames() {
  std::vector<std::string> names;
  for (const auto& field : CertificateFields(Use)) names.emplace_back(field.Fieldname);
  return names;
}

}  // namespace

TBatchCertificateDataDialog::TBatchCertificateDataDialog(std::unique_ptr<TBatchCertificateDataUi> ui,
                                                         const TLookupTables& lookups)
    : FStudents(ui->Students(), StudentsToSelect()), FUi(std::move(ui)) {
  FUi->SetTexts(Texts());
  SetUpFields(lookups);
  FUi->OnButton = [this](TBatchButton button) { RunForUser([&] { Handle_Button(button); }); };
  FUi->Form().OnCloseQuery = [this](bool ok) { return Handle_CloseQuery(ok); };
  FUi->Students().OnSelectAll = [this] { TCXUtils::SelectAll(FStudents.Grid(), true); };
  FStudents.Fill([](auto& table) { CurrentProject->Students().Populate(table); });
  FStudents.Grid().OnSelectionChanged = [this] { UpdateButtons(); };
  ShowPage(SelectStudentsPage);
}

void TBatchCertificateDataDialog::SetUpFields(const TLookupTables& lookups) {
  auto& form = FUi->Fields();
  auto description = CertificateForm(Use, lookups);
  description.Ticks = description.KeepsWrong = true;
  description.Note = ResourceText(DialogTexts::BatchCleared);
  form.SetFields(description);
  ShowCertificateFields(form, Use, CurrentProject->Options().Columns());
  for (const auto& field : CertificateFields(Use)) {
    const std::string fieldname(field.Fieldname);
    form.SetEnabled(fieldname, false);
    if (field.BatchStart) form.SetValue(fieldname, *field.BatchStart);
  }
  form.OnTick = [this](const std::string& fieldname) { RunForUser([&] { Handle_Tick(fieldname); }); };
  form.OnType = form.OnLeave = [this](const std::string&) { UpdateNotes(); };
}

void TBatchCertificateDataDialog::Handle_Button(TBatchButton button) {
  switch (button) {
    case Back:
      return ShowPage(SelectStudentsPage);
    case Next:
      return ShowPage(SelectDataPage);
    case Finish:
      return FUi->Form().Close(true);
    case Close:
      return FUi->Form().Close(false);
  }
}

void TBatchCertificateDataDialog::Handle_Tick(const std::string& fieldname) {
  auto& form = FUi->Fields();
  form.SetEnabled(fieldname, form.IsTicked(fieldname));
  for (const auto& each : Fieldnames())
    if (!form.IsTicked(each)) form.SetValue(each, TVariant::Null());
  UpdateNotes();
  UpdateButtons();
}

void TBatchCertificateDataDialog::ShowPage(TBatchPage page) {
  FUi->SetActivePage(page);
  const auto count = SelectedStudents().size();
  FUi->Affected().SetValue(count == 1 ? ResourceText(DialogTexts::BatchOneStudent)
                                      : FormatText(DialogTexts::BatchStudents, count));
  UpdateButtons();
}

void TBatchCertificateDataDialog::UpdateButtons() {
  const bool onStudents = FUi->ActivePage() == SelectStudentsPage;
  FUi->SetButtonEnabled(Back, !onStudents);
  FUi->SetButtonEnabled(Next, onStudents && FStudents.Grid().SelectedCount() > 0);
  FUi->SetButtonEnabled(Finish, !onStudents && Any());
}

void TBatchCertificateDataDialog::UpdateNotes() {
  auto& form = FUi->Fields();
  for (const auto& each : Fieldnames())
    form.ShowNote(each, form.IsTicked(each) && form.IsValid(each) && form.Value(each).IsEmpty());
}

bool TBatchCertificateDataDialog::Any() const {
  return std::ranges::any_of(Fieldnames(), [this](const auto& each) { return FUi->Fields().IsTicked(each); });
}

bool TBatchCertificateDataDialog::Handle_CloseQuery(bool ok) {
  if (!ok) return true;
  if (!AcceptsValues()) return false;
  struct TClosed {
    TBatchCertificateDataUi& Ui;
    explicit TClosed(TBatchCertificateDataUi& ui) : Ui(ui) { Ui.SetButtonEnabled(Close, false); }
    TClosed(const TClosed&) = delete;
    TClosed& operator=(const TClosed&) = delete;
    ~TClosed() { Ui.SetButtonEnabled(Close, true); }
  } const closed(*FUi);
  Apply();
  const auto again = MsgBoxAsk(ResourceText(DialogTexts::Confirm), ResourceText(DialogTexts::BatchDone));
  if (again != TVantrelMsgBoxResult::mbrYes) return true;
  ShowPage(SelectStudentsPage);
  return false;
}

bool TBatchCertificateDataDialog::AcceptsValues() {
  auto& form = FUi->Fields();
  for (const auto& each : Fieldnames()) {
    if (!form.IsTicked(each) || form.IsValid(each)) continue;
    const auto& field = *FindCertificateField(each);
    const auto caption = ResourceText(field.Caption);
    MsgBoxWarning(ResourceText(ShellTexts::NoteCaption),
                  field.Minimum > 0 ? FormatText(DialogTexts::BatchTooSmall, caption, field.Minimum)
                                    : FormatText(DialogTexts::BatchNoValue, caption));
    form.SetFocus(each);
    form.Check();
    return false;
  }
  return true;
}

std::vector<TStudent*> TBatchCertificateDataDialog::SelectedStudents() {
  const auto& grid = FStudents.Grid();
  std::vector<TStudent*> students;
  for (int row = 0; row < grid.SelectedCount(); ++row) {
    auto* student = CurrentProject->Students().Find(TCXUtils::GetSelectedRecord(grid, row, "ID"));
    if (student != nullptr && std::ranges::find(students, student) == students.end()) students.push_back(student);
  }
  return students;
}

void TBatchCertificateDataDialog::Apply() {
  const auto& form = FUi->Fields();
  const TJoinedChanges joined(*CurrentProject);
  for (auto* student : SelectedStudents()) {
    for (const auto& field : CertificateFields(Use)) {
      const std::string fieldname(field.Fieldname);
      if (form.IsTicked(fieldname)) CurrentProject->ChangeField(*student, field.Key, form.Value(fieldname));
    }
  }
}

void ExecuteBatchCertificateData(const std::function<std::unique_ptr<TBatchCertificateDataUi>()>& createUi,
                                 const TLookupTables& lookups) {
  if (!ShowsCertificateFields(Use, CurrentProject->Options().Columns()))
    return MsgBoxInfo(ResourceText(ShellTexts::NoteCaption), ResourceText(DialogTexts::BatchNoRights));
  TBatchCertificateDataDialog(createUi(), lookups).Execute();
}
