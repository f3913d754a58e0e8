#pragma once

#include <vector>

#include "GridPaneUi.h"
#include "VantrelCommands.h"
#include "VantrelMemTable.h"
#include "uStudentsViewPages.h"

/// "Zeugnisbemerkungen": the remarks of the student's certificate, and the commands that change them. The table is a
/// copy that follows the student's own list, whoever changes that.
class TCertificateCommentsSheet final : public TStudentsViewPage {
 public:
  /// The frame outlives the page. The screen goes before it.
  TCertificateCommentsSheet(TGridPaneUi& ui, const TViewFrame& frame);

  void ShowStudent(TStudent* student, const TClass* schoolClass) override;
  void ShowPlace(const TProjectPlace& place) override;
  void Fit() override;
  void UpdateCount() override;
  void UpdateCommands() override;
  bool OffersGrades() const override { return false; }

 private:
  void SetUpGrid();
  TVantrelCommand& AddCommand(const char* caption, const char* icon, const char* shortcut,
                              void (TCertificateCommentsSheet::*handler)());
  void AddCertificateComment();
  void EditCertificateComment();
  void DeleteCertificateComment();
  void DeleteAllCertificateComments();

  /// Makes the table anew.
  void Populate();
  /// Brings the table in step with the student's list: focus and selection stay with the rows that stay.
  void Follow();
  void FollowItem(const TCertificateComment& comment);
  bool IsInStep() const;
  void ShowChange(const TProjectChange& change);
  void FollowMark(TChangeMark mark);
  int RecordOf(const TGuid& id) const;

  TGridPaneUi& FUi;
  const TViewFrame& FFrame;
  TStudent* FStudent = nullptr;
  TVantrelMemTable FTable;
  TVantrelCommands FCommands;
  TVantrelCommand& AddCertificateCommentCommand;
  TVantrelCommand& EditCertificateCommentCommand;
  TVantrelCommand& DeleteCertificateCommentCommand;
  TVantrelCommand& DeleteAllCertificateCommentsCommand;
  bool FIsInBracket = false;
  /// The student's list has changed within the bracket.
  bool FHasChanged = false;
  TProjectListeners::TToken FChanges;
};
