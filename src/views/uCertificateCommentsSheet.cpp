#include "uCertificateCommentsSheet.h"

#include <algorithm>
#include <utility>

#include "VantrelI18n.h"
#include "VantrelMsgBox.h"
#include "VantrelText.h"
#include "ViewTexts.h"
#include "uCXUtils.h"
#include "uUpdates.h"

using enum TVantrelFieldType;

namespace {

constexpr const char* IdField = "ID";
constexpr int DescriptionColumn = 2;

/// The commands of the page. Whether a remark may be edited is judged apart.
bool MayUseCommands(const TStudent& student) {
  constexpr int editionWithHelpers = 8;
  const int type = student.LehrerTyp();
  return type == 0 || type == 2 || (type == 1 && CurrentProject->ProductEdition() == editionWithHelpers);
}

bool MayEdit(const TStudent& student) {
  return student.LehrerTyp() == 0 || student.LehrerTyp() == 2;
}

bool IsSpace(char16_t unit) {
  constexpr std::u16string_view others = u"\u0020\u0085\u00A0\u1680\u2028\u2029\u202F\u205F\u3000";
  return (unit >= u'\t' && unit <= u'\r') || (unit >= 0x2000 && unit <= 0x200A) || others.find(unit) != others.npos;
}

bool IsBlank(std::string_view text) {
  return std::ranges::all_of(Utf8ToUtf16(text), IsSpace);
}

/// The remarks without making a list where there is none.
const TCertificateComments* CommentsOf(const TStudent* student) {
  return student == nullptr ? nullptr : student->CertificateComments();
}

int CountOf(const TCertificateComments* comments) {
  return comments == nullptr ? 0 : comments->Count();
}

bool AsksYes(const char* question) {
  return MsgBoxAsk(ResourceText(ViewTexts::ConfirmCaption), ResourceText(question)) == TVantrelMsgBoxResult::mbrYes;
}

}  // namespace

TCertificateCommentsSheet::TCertificateCommentsSheet(TGridPaneUi& ui, const TViewFrame& frame)
    : FUi(ui),
      FFrame(frame),
      AddCertificateCommentCommand(
          AddCommand(ViewTexts::AddRemark, "list-add", "Ins", &TCertificateCommentsSheet::AddCertificateComment)),
      EditCertificateCommentCommand(
          AddCommand(ViewTexts::EditRemark, "document-edit", "F2", &TCertificateCommentsSheet::EditCertificateComment)),
      DeleteCertificateCommentCommand(AddCommand(ViewTexts::DeleteRemark, "edit-delete", "Del",
                                                 &TCertificateCommentsSheet::DeleteCertificateComment)),
      DeleteAllCertificateCommentsCommand(AddCommand(ViewTexts::DeleteAllRemarks, "edit-clear-all", "Ctrl+Del",
                                                     &TCertificateCommentsSheet::DeleteAllCertificateComments)) {
  SetUpGrid();
  FUi.SetCommands({&AddCertificateCommentCommand, &EditCertificateCommentCommand, &DeleteCertificateCommentCommand,
                   &DeleteAllCertificateCommentsCommand});
  FUi.OnFit = [this] { Fit(); };
  FChanges = CurrentProject->Listen([this](const auto& change) { ShowChange(change); },
                                    [this](auto mark) { FollowMark(mark); });
  UpdateCommands();
  UpdateCount();
}

TVantrelCommand& TCertificateCommentsSheet::AddCommand(const char* caption, const char* icon, const char* shortcut,
                                                       void (TCertificateCommentsSheet::*handler)()) {
  return FCommands.Add({.Caption = ResourceText(caption), .Icon = icon, .Shortcut = shortcut, .OnExecute = [=, this] {
                          RunForUser([=, this] { (this->*handler)(); });
                        }});
}

void TCertificateCommentsSheet::SetUpGrid() {
  const struct {
    const char* Field;
    const char* Caption;
    TVantrelFieldType Type;
    int Width;
  } columns[] = {{"Position", ViewTexts::RemarkPosition, ftInteger, 80},
                 {"Attribute", ViewTexts::RemarkAttribute, ftText, 100},
                 {"Description", ViewTexts::RemarkText, ftMemo, 300}};
  auto& grid = FUi.Grid();
  grid.SetOptions({.MultiSelect = true, .RowsFollowContent = true});
  grid.SetName(ResourceText(ViewTexts::CertificateCommentsSheet));
  FTable.AddField(IdField, ftText);
  FTable.AddField("Token", ftText);
  for (const auto& column : columns) {
    FTable.AddField(column.Field, column.Type, 0, ResourceText(column.Caption));
    grid.AddColumn({.Id = std::string("col_CertificateComments_") + column.Field,
                    .Caption = ResourceText(column.Caption),
                    .Editor = {.ValueKind = column.Type == ftInteger ? TValueKind::Integer : TValueKind::Text},
                    .Width = column.Width,
                    .Field = column.Field,
                    .TakesRest = column.Type == ftMemo});
  }
  FTable.Open();
  grid.BindTable(&FTable);
  grid.FocusColumn(DescriptionColumn);
  grid.OnDoubleClick = [this](int) { RunForUser([this] { EditCertificateComment(); }); };
}

void TCertificateCommentsSheet::ShowStudent(TStudent* student, const TClass*) {
  FStudent = student;
  Populate();
}

void TCertificateCommentsSheet::ShowPlace(const TProjectPlace& place) {
  if (place.Remark != nullptr) TCXUtils::FocusRecord(FUi.Grid(), RecordOf(place.Remark->ID()));
  FUi.Grid().SetFocus();
}

void TCertificateCommentsSheet::Fit() {
  FUi.Grid().BeginBestFit();
  FUi.Grid().EndBestFit();
}

void TCertificateCommentsSheet::UpdateCount() {
  FUi.Status().SetValue(FormatText(ViewTexts::Count, FTable.RecordCount()));
}

void TCertificateCommentsSheet::UpdateCommands() {
  const bool enabled = FStudent != nullptr && MayUseCommands(*FStudent);
  for (auto* command : {&AddCertificateCommentCommand, &EditCertificateCommentCommand})
    command->SetEnabled(enabled && FFrame.EditRemark != nullptr);
  for (auto* command : {&DeleteCertificateCommentCommand, &DeleteAllCertificateCommentsCommand})
    command->SetEnabled(enabled);
}

void TCertificateCommentsSheet::AddCertificateComment() {
  int position = 0;
  std::string attribute, description;
  if (!FFrame.EditRemark(position, attribute, description, FStudent->ViewDisplayName()) || IsBlank(description)) return;
  FStudent->AddCertificateComment(position, attribute, description);
}

void TCertificateCommentsSheet::EditCertificateComment() {
  if (FStudent == nullptr || !FFrame.EditRemark || !MayEdit(*FStudent)) return;
  const auto* comments = CommentsOf(FStudent);
  const auto& grid = FUi.Grid();
  const auto id = grid.FieldValue(grid.FocusedRecord(), IdField);
  if (comments == nullptr || id.IsEmpty()) return;
  const auto* comment = static_cast<const TCertificateComment*>(comments->Find(TextToGuid(id.AsText())));
  if (comment == nullptr) return;
  int position = comment->Position;
  auto attribute = comment->Attribute, description = comment->Description;
  if (!FFrame.EditRemark(position, attribute, description, FStudent->ViewDisplayName()) || IsBlank(description)) return;
  FStudent->EditCertificateComment(TextToGuid(id.AsText()), position, attribute, description);
}

void TCertificateCommentsSheet::DeleteCertificateComment() {
  const auto& grid = FUi.Grid();
  if (grid.SelectedCount() == 0 || !AsksYes(ViewTexts::DeleteRemarks)) return;
  std::vector<TGuid> ids;
  for (int i = 0; i < grid.SelectedCount(); ++i)
    ids.push_back(TextToGuid(TCXUtils::GetSelectedRecord(grid, i, IdField).AsText()));
  const TJoinedChanges joined(*CurrentProject);
  for (const auto& id : ids) FStudent->DeleteCertificateComment(id);
}

void TCertificateCommentsSheet::DeleteAllCertificateComments() {
  TCXUtils::SelectAll(FUi.Grid(), true);
  if (FUi.Grid().SelectedCount() > 0 && AsksYes(ViewTexts::DeleteEveryRemark)) FStudent->DeleteAllCertificateComments();
}

void TCertificateCommentsSheet::Populate() {
  const TGridUpdate update(FUi.Grid());
  {
    const TTableUpdate rows(FTable);
    if (const auto* comments = CommentsOf(FStudent)) {
      comments->Populate(FTable);
    } else {
      FTable.Close();
      FTable.Open();
    }
    FTable.First();
  }
  UpdateCount();
}

int TCertificateCommentsSheet::RecordOf(const TGuid& id) const {
  const TVariant text = GuidToText(id);
  for (int record = 0; record < FTable.RecordCount(); ++record)
    if (FTable.ValueAt(record, 0) == text) return record;
  return -1;
}

bool TCertificateCommentsSheet::IsInStep() const {
  const auto* comments = CommentsOf(FStudent);
  if (CountOf(comments) != FTable.RecordCount()) return false;
  for (int i = 0; i < FTable.RecordCount(); ++i)
    if (RecordOf(comments->GetItem(i)->ID()) != i) return false;
  return true;
}

void TCertificateCommentsSheet::Follow() {
  const auto* comments = CommentsOf(FStudent);
  {
    const TGridUpdate update(FUi.Grid());
    const TTableUpdate rows(FTable);
    for (int record = FTable.RecordCount() - 1; record >= 0; --record) {
      if (comments->Contains(TextToGuid(FTable.ValueAt(record, 0).AsText()))) continue;
      const auto current = FTable.RecordId(FTable.RecNo() - 1);
      FTable.SetRecNo(record + 1);
      FTable.Delete();
      if (const int kept = FTable.RecordOf(current); kept >= 0) FTable.SetRecNo(kept + 1);
    }
    for (int i = 0; i < CountOf(comments); ++i) FollowItem(*comments->GetItem(i));
  }
  if (!IsInStep()) return Populate();
  UpdateCount();
}

void TCertificateCommentsSheet::FollowItem(const TCertificateComment& comment) {
  const int record = RecordOf(comment.ID());
  const std::pair<const char*, TVariant> values[] = {{IdField, GuidToText(comment.ID())},
                                                     {"Token", comment.Token},
                                                     {"Position", comment.Position},
                                                     {"Attribute", comment.Attribute},
                                                     {"Description", comment.Description}};
  const bool isKnown = record >= 0 && std::ranges::all_of(values, [&](const auto& value) {
                         return FTable.ValueAt(record, FTable.FieldByName(value.first).Index()) == value.second;
                       });
  if (isKnown) return;
  // What has changed has the focus.
  if (record >= 0) FTable.SetRecNo(record + 1);
  record < 0 ? FTable.Append() : FTable.Edit();
  for (const auto& [field, value] : values) FTable.FieldByName(field).SetValue(value);
  FTable.Post();
}

void TCertificateCommentsSheet::ShowChange(const TProjectChange& change) {
  const auto* comments = CommentsOf(FStudent);
  const bool isOwn = comments != nullptr &&
                     (change.List == nullptr ? comments->IndexOf(&change.Record) >= 0 : change.List == comments);
  if (!isOwn) return;
  FHasChanged = true;
  if (!FIsInBracket) FollowMark(TChangeMark::End);
}

void TCertificateCommentsSheet::FollowMark(TChangeMark mark) {
  if (mark != TChangeMark::Begin && mark != TChangeMark::End) return;
  FIsInBracket = mark == TChangeMark::Begin;
  if (!FIsInBracket && std::exchange(FHasChanged, false)) Follow();
}
