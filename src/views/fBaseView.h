#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "VantrelClasses.h"
#include "VantrelCommands.h"
#include "VantrelForms.h"
#include "VantrelMainWindow.h"
#include "VantrelMemTable.h"
#include "fBaseViewUi.h"

/// What the tables of a view are at: while one is dmFill or dmUpdate, changes of its data are not answered.
enum class TDataMode { dmNone, dmBrowse, dmFill, dmAdd, dmEdit, dmDuplicate, dmUpdate };

class TLookupTables;
class TVantrelGrid;
struct TProjectPlace;

/// What the main window lends to its views. It outlives them.
struct TViewFrame {
  TVantrelStorage& Storage;
  std::string ProgramVersion;

  TVantrelCommand& GotoFirstCommand;
  TVantrelCommand& GotoPrevCommand;
  TVantrelCommand& GotoNextCommand;
  TVantrelCommand& GotoLastCommand;
  TVantrelCommand& EditZeugnisbeurteilungenCommand;
  TVantrelCommand& ExportToExcelCommand;

  /// The lookup tables of CurrentProject, which stay while it is open.
  std::function<TLookupTables&()> Lookups = {};

  /// Lets the user change an assessment text; nothing if it was cancelled. `student` is the name that the user reads
  /// beside it. Its command is disabled while this is unset.
  std::function<std::optional<std::string>(const std::string& subjectToken, const std::string& text,
                                           const std::string& student)>
      EditAssessment = {};
  /// Lets the user change a certificate remark of the student of that name; a position of 0 or less counts as none.
  /// False, with all values as they were, if it was cancelled.
  std::function<bool(int& position, std::string& attribute, std::string& description, const std::string& student)>
      EditRemark = {};
  /// Lets the user write the grid to a file; its command is disabled while this is unset.
  std::function<void(TVantrelGrid& grid, const std::string& title)> ExportGrid = {};

  /// The recent documents, and how one of them is opened.
  std::function<std::vector<TRecentItem>()> RecentFiles = [] { return std::vector<TRecentItem>(); };
  std::function<void(int index)> OpenRecentFile = [](int) {};
};

/// Runs what the user has asked for; what it raises is shown in an error box.
void RunForUser(const std::function<void()>& action);

/// Base of the forms inside the main window: the order of their life, and where their layout is stored. It keeps no
/// placement.
///
/// FormCreate runs CreateData, SetupView and UpdateViewCommands, FormDestroy runs DestroyData and TeardownView.
class TBaseForm : public TVantrelForm {
 public:
  TBaseForm(TVantrelStorage& storage, std::string name) : TVantrelForm(&storage, nullptr), FName(std::move(name)) {}

  void Show();
  void Hide() { Ui().SetVisible(false); }
  /// Shown at least once.
  bool IsInitialized() const { return FIsInitialized; }
  /// Whether the form may close. Ends open editors, which post.
  virtual bool CloseQuery();
  /// The complete path of the form's own place in the store: see GetStoragePath.
  std::string StoragePath() const;

  /// Writes what open editors hold to where it belongs.
  virtual void PostEdits() {}
  /// As PostEdits, and no editor is open any more.
  virtual void EndEdits() {}
  /// PostEdits would write something.
  virtual bool HasDraft() { return false; }

  virtual void CreateData() {}
  virtual void SetupView() {}
  virtual void ViewShown() {}
  virtual void DestroyData() {}
  virtual void TeardownView() {}
  /// Shows the counts that belong to the table; null means those of the dependent grids.
  virtual void UpdateStatus(const TVantrelMemTable* dataSet);
  virtual void UpdateViewCommands() {}

  // The contract of the family of programs. A form that lacks one of these raises EVantrelException.
  virtual void New() { AbstractCall("New"); }
  virtual void Edit() { AbstractCall("Edit"); }
  virtual void Save() { AbstractCall("Save"); }
  virtual void Delete() { AbstractCall("Delete"); }
  virtual void Cancel() { AbstractCall("Cancel"); }
  virtual void Heart() { AbstractCall("Heart"); }
  virtual void Unheart() { AbstractCall("Unheart"); }
  virtual void Refresh() { AbstractCall("Refresh"); }
  virtual void Print() { AbstractCall("Print"); }
  virtual void PrintCertificate() { AbstractCall("PrintCertificate"); }
  virtual void PrintCertificateForms() { AbstractCall("PrintCertificateForms"); }
  virtual void Execute() { AbstractCall("Execute"); }
  virtual void ExportToHtml() { AbstractCall("ExportToHtml"); }
  /// Rebuilds the form from CurrentProject.
  virtual void UpdateContent() { AbstractCall("UpdateContent"); }

  // The commands of the main window that go to the form on show. One that has no use for a command does nothing.
  /// Move the focus along the rows that the form is worked through by.
  virtual void GotoFirst() {}
  virtual void GotoPrev() {}
  virtual void GotoNext() {}
  virtual void GotoLast() {}
  virtual void ExportToExcel() {}
  /// Lets the user change the assessment text of the focused course.
  virtual void EditZeugnisbeurteilungen() {}
  /// Shows the courses of classes of one grade type (0 to 2; -1 and null for all), and of one class alone (null for
  /// all).
  virtual void UpdateFilter(const TVariant& /*gradeType*/, const TVariant& /*classValue*/) {}
  /// Focuses the next grade that is still to be entered.
  virtual void GotoOpenGrade() {}
  /// Goes to a place of the project, and lifts a filter of the user that hides it. False where the form cannot show it.
  virtual bool ShowPlace(const TProjectPlace& /*place*/) { return false; }

  // What the main window tells the form on show.
  /// The recent documents have changed.
  virtual void RecentFilesChanged() {}
  /// The open project stands in another file.
  virtual void FileChanged() {}

 protected:
  void FormCreate() override;
  void FormDestroy() override;
  virtual TFormUi& Ui() = 0;
  [[noreturn]] void AbstractCall(std::string_view operation) const;

  std::string FName;
  std::string FStorageSubdir;
  std::string FStorageFormdir;
  int FStorageVersion = 0;
  bool FIsInitialized = false;
};

/// A working surface of the main window. It is built from CurrentProject, writes straight into it, and dies at the next
/// change of view.
class TBaseView : public TBaseForm {
 public:
  TBaseView(TViewFrame& frame, std::string name) : TBaseForm(frame.Storage, std::move(name)), FFrame(frame) {}

  void SetupView() override;
  void GotoFirst() override;
  void GotoPrev() override;
  void GotoNext() override;
  void GotoLast() override;
  void ExportToExcel() override;

  virtual void MailMerge() { AbstractCall("MailMerge"); }
  virtual void EMailMerge() { AbstractCall("EMailMerge"); }
  virtual void LoadImageFromFile() { AbstractCall("LoadImageFromFile"); }
  virtual void LoadImageFromDigitalSource() { AbstractCall("LoadImageFromDigitalSource"); }
  virtual void SaveImage() { AbstractCall("SaveImage"); }
  virtual void ClearImage() { AbstractCall("ClearImage"); }
  virtual void SetPopup() { AbstractCall("SetPopup"); }
  virtual void ShowDocuments() { AbstractCall("ShowDocuments"); }
  virtual void Notification() { AbstractCall("Notification"); }
  virtual void ChangeStatus() { AbstractCall("ChangeStatus"); }
  virtual void CustomizeGridLayout() { AbstractCall("CustomizeGridLayout"); }
  virtual void CustomizeEditLayout() { AbstractCall("CustomizeEditLayout"); }

 protected:
  /// The grid that the goto commands move through; null where there is none.
  virtual TVantrelGrid* NavigatedGrid() { return nullptr; }
  /// The grid that is exported; null where there is none.
  virtual TVantrelGrid* ExportedGrid() { return nullptr; }
  /// What the view calls its content.
  virtual std::string Title() { return {}; }
  /// The layout of the list grid is what outlives the view; empty if none was stored.
  std::string StoredLayout() const;
  void StoreLayout(const std::string& layout);
  /// The state of the four goto commands, from the place among the shown rows.
  void UpdateGotoCommands();

  TViewFrame& FFrame;
};
