#include "uProjectHistory.h"

#include <set>

#include "ProjectTexts.h"
#include "VantrelI18n.h"
#include "VantrelText.h"
#include "uRecordTexts.h"

namespace {

const TStudent* OwnerOf(const TMyTessaronProject& project, const TVantrelDataList* list,
                        const TVantrelDataObject& remark) {
  for (int i = 0; i < project.Students().Count(); ++i) {
    const TStudent* student = project.Students().GetItem(i);
    const auto* comments = student->CertificateComments();
    if (comments != nullptr && (list == nullptr ? comments->IndexOf(&remark) >= 0 : list == comments)) return student;
  }
  return nullptr;
}

std::string NameOf(const TMyTessaronProject& project, const TStudent* student) {
  const auto name = student == nullptr ? std::string() : Join(student->Vorname, student->Nachname, " ");
  return name.empty() ? RecordTexts::StudentName(project, student) : RecordTexts::Printable(name);
}

}  // namespace

TProjectPlace PlaceOf(const TMyTessaronProject& project, const TVantrelDataObject& record, const TVantrelDataList* list,
                      std::string_view key) {
  TProjectPlace place{.Key = key};
  if (const auto* course = dynamic_cast<const TCourse*>(&record)) {
    place.Course = course;
    place.Student = course->Student;
  } else if (const auto* student = dynamic_cast<const TStudent*>(&record)) {
    place.Student = student;
  } else if (const auto* remark = dynamic_cast<const TCertificateComment*>(&record)) {
    place.IsRemark = true;
    place.Student = OwnerOf(project, list, *remark);
    if (place.Student != nullptr && place.Student->CertificateComments()->IndexOf(remark) >= 0) place.Remark = remark;
  }
  return place;
}

TProjectHistory::TProjectHistory(TMyTessaronProject& project)
    : FProject(project),
      FSavedAt(project.Modified() ? NowhereSaved : 0),
      FListening(project.Listen([this](const auto& change) { Keep(change); }, [this](auto mark) { Follow(mark); })) {}

void TProjectHistory::Keep(const TProjectChange& change) {
  if (FReplayed != nullptr) {
    if (change.Removed != nullptr) FReplayed->Removed = std::move(*change.Removed);
    return;
  }
  const auto isSameField = [&](const TKeptChange& kept) {
    return change.Kind == TChangeKind::Field && kept.Kind == TChangeKind::Field && kept.Record == &change.Record &&
           kept.Key == change.Key;
  };
  const bool goesOn = FIsEdit && !FIsJoined && FOpen.size() == 1 && isSameField(FOpen.front());
  if (goesOn) {
    FOpen.front().After = change.After;
  } else {
    if (!FIsJoined) Seal();
    FOpen.push_back({change.Kind, &change.Record, change.Key, change.Before, change.After, change.List, change.Index,
                     change.Target, change.Removed == nullptr ? nullptr : std::move(*change.Removed)});
  }
  if (!FIsJoined && !FIsEdit) Seal();
}

void TProjectHistory::Follow(TChangeMark mark) {
  if (FIsReplaying) return;
  Seal();
  switch (mark) {
    case TChangeMark::Begin:
    case TChangeMark::End:
      FIsJoined = mark == TChangeMark::Begin;
      break;
    case TChangeMark::EditBegin:
    case TChangeMark::EditEnd:
      FIsEdit = mark == TChangeMark::EditBegin;
      break;
    case TChangeMark::Saved:
      FSavedAt = FPosition;
      break;
  }
}

void TProjectHistory::Seal() {
  TStep step = std::exchange(FOpen, {});
  std::erase_if(step, [](const auto& change) {
    return change.Kind == TChangeKind::Field && IsSameValue(change.Before, change.After);
  });
  if (step.empty()) return;
  if (FSavedAt != NowhereSaved && FSavedAt > FPosition) FSavedAt = NowhereSaved;
  FSteps.resize(FPosition);
  FSteps.push_back(std::move(step));
  ++FPosition;
  TellChange();
}

TProjectPlace TProjectHistory::Undo() {
  Seal();
  return CanUndo() ? Replay(FSteps[FPosition - 1], false) : TProjectPlace();
}

TProjectPlace TProjectHistory::Redo() {
  Seal();
  return CanRedo() ? Replay(FSteps[FPosition], true) : TProjectPlace();
}

TProjectPlace TProjectHistory::Replay(TStep& step, bool forwards) {
  FIsReplaying = true;
  try {
    const TJoinedChanges joined(FProject);
    for (std::size_t i = 0; i < step.size(); ++i) Apply(step[forwards ? i : step.size() - 1 - i], forwards);
  } catch (const std::exception&) {
    Forget();
    throw;
  }
  FIsReplaying = false;
  FPosition = forwards ? FPosition + 1 : FPosition - 1;
  FProject.SetModified(FPosition != FSavedAt);
  TellChange();
  return PlaceOf(FProject, *step.front().Record, step.front().List, step.front().Key);
}

/// What cannot be replayed is followed by nothing that could be.
void TProjectHistory::Forget() {
  FSteps.clear();
  FPosition = 0;
  FSavedAt = NowhereSaved;
  FReplayed = nullptr;
  FIsReplaying = false;
  TellChange();
}

void TProjectHistory::Apply(TKeptChange& change, bool forwards) {
  FReplayed = &change;
  switch (change.Kind) {
    case TChangeKind::Field:
      FProject.ChangeField(static_cast<TVantrelRecord&>(*change.Record), change.Key,
                           forwards ? change.After : change.Before);
      break;
    case TChangeKind::Inserted:
    case TChangeKind::Deleted:
      if (forwards == (change.Kind == TChangeKind::Inserted))
        FProject.InsertItem(*change.List, change.Index, std::move(change.Removed));
      else
        FProject.DeleteItem(*change.List, change.Index);
      break;
    case TChangeKind::Moved:
      if (forwards)
        FProject.MoveItem(*change.List, change.Index, change.Target);
      else
        FProject.MoveItem(*change.List, change.Target, change.Index);
      break;
  }
  FReplayed = nullptr;
}

std::string TProjectHistory::TextOf(const TStep& step) const {
  std::set<const TStudent*> students;
  bool areRemarks = true;
  for (const auto& change : step) {
    const auto place = PlaceOf(FProject, *change.Record, change.List);
    students.insert(place.Student);
    areRemarks = areRemarks && place.IsRemark;
  }
  if (students.size() > 1) return FormatText(ProjectTexts::StepOfMany, step.size(), students.size());
  const auto place = PlaceOf(FProject, *step.front().Record, step.front().List, step.front().Key);
  const auto name = NameOf(FProject, place.Student);
  if (areRemarks) return FormatText(ProjectTexts::StepOfRemarks, name);
  if (step.size() > 1) return FormatText(ProjectTexts::StepOfStudent, step.size(), name);
  const auto caption = RecordTexts::FieldCaption(FProject, place.Key);
  if (place.Course == nullptr) return FormatText(ProjectTexts::StepOfField, caption, name);
  return FormatText(ProjectTexts::StepOfCourse, caption, name, RecordTexts::Printable(place.Course->SubjectName));
}
