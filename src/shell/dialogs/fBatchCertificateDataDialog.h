#pragma once

#include <functional>
#include <memory>

#include "fBatchCertificateDataUi.h"
#include "uCertificateFields.h"
#include "uListPane.h"

/// A wizard that gives many students of CurrentProject the same certificate data: the students are chosen on its first
/// page, the fields and their values on the second. An empty field that is ticked empties it.
class TBatchCertificateDataDialog {
 public:
  /// The tables are those of CurrentProject, and outlive the dialog.
  TBatchCertificateDataDialog(std::unique_ptr<TBatchCertificateDataUi> ui, const TLookupTables& lookups);

  /// Shows it until the user ends it.
  void Execute() { FUi->Form().ShowModal(); }

 private:
  void SetUpFields(const TLookupTables& lookups);
  void Handle_Button(TBatchButton button);
  void Handle_Tick(const std::string& fieldname);
  void ShowPage(TBatchPage page);
  void UpdateButtons();
  void UpdateNotes();
  bool Any() const;
  bool Handle_CloseQuery(bool ok);
  /// False if one of the values to be given is none, which has been told then.
  bool AcceptsValues();
  /// Those of the selected rows, each once.
  std::vector<TStudent*> SelectedStudents();
  void Apply();

  TListPane FStudents;
  /// Goes first: its list shows the table.
  std::unique_ptr<TBatchCertificateDataUi> FUi;
};

/// Lets the user assign certificate data to many students. Where the file shows none of it that is told, and no window
/// opens.
void ExecuteBatchCertificateData(const std::function<std::unique_ptr<TBatchCertificateDataUi>()>& createUi,
                                 const TLookupTables& lookups);
