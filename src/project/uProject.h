#pragma once

#include <functional>
#include <memory>
#include <string>

#include "VantrelDataStorage.h"
#include "uCatalogs.h"
#include "uClasses.h"
#include "uColumns.h"
#include "uCourses.h"
#include "uHelper.h"
#include "uProjectChanges.h"
#include "uStudents.h"

enum class TFileLoadTimeType { lfBefore, lfAfter };
enum class TProjectFileKind { pfkUnknown, pfkBinary, pfkEncryptedXml, pfkPlainXml };
/// Comes from the central system and goes back to it unchanged.
enum class TAbsenceBehaviour : std::uint8_t { abNone, abUpdate, abSummarize };

/// By the extension, told apart by case: "kvr" and "kvr7", "kvrx", "kvrxr".
TProjectFileKind GetProjectFileKind(std::string_view fileName);
/// Empty for pfkUnknown; pfkBinary leaves the extension as it is.
void GetProjectFileExtension(TProjectFileKind kind, std::string& extension);

class TDataOptions;
extern template class TVantrelRecordOf<TDataOptions>;

/// What the teacher sees and may change, as the central system decided it.
class TDataOptions : public TVantrelRecordOf<TDataOptions> {
 public:
  static constexpr std::string_view ClassName = "TDataOptions";
  using TVantrelRecordOf::TVantrelRecordOf;

  TColumns& Columns() const { return *FColumns; }
  TAbsenceBehaviour AbsenceBehaviour() const { return static_cast<TAbsenceBehaviour>(FAbsenceBehaviour); }
  void SetAbsenceBehaviour(TAbsenceBehaviour value) { FAbsenceBehaviour = static_cast<std::uint8_t>(value); }

  void DoCreate() override;
  void DoDestroy() override;

 private:
  friend TVantrelRecordOf<TDataOptions>;
  static constexpr auto FieldTable();

  std::uint8_t FAbsenceBehaviour = 0;
  TVantrelPtr<TColumns> FColumns;
};

class TMyTessaronProject;
using TOnMyTessaronLoadFile = std::function<void(TMyTessaronProject& project, TFileLoadTimeType firedOn)>;
using TOnMyTessaronModified = std::function<void()>;

/// The one document that the program edits: what one teacher needs for one term. Records that are written directly, as
/// by who makes a document, tell nobody.
class TMyTessaronProject final : public TVantrelDataStorage {
 public:
  using TVantrelDataStorage::TVantrelDataStorage;

  static constexpr std::string_view StorageName = "TMyTessaronProject";
  /// Makes the domain classes known to the readers. To be called once at program start.
  static void RegisterClasses();

  bool PasswordProtected = false;
  /// In stored form: every UTF-16 unit of the clear text complemented.
  std::string Password;
  TMyTessaronInteger TenantId;
  TMyTessaronInteger TeacherId;
  TMyTessaronInteger TermId;
  std::string TeacherToken;
  std::string TeacherName;
  std::string TermName;
  std::string Description;

  /// Called before and after a file is opened, also when the load failed.
  TOnMyTessaronLoadFile OnLoadFile;
  /// The ProductVersion of a document that is made anew. The program sets it at its start.
  static inline std::string NewProductVersion = "10.x";

  /// Called at every SetModified.
  TOnMyTessaronModified OnModified;

  TCatalogs& Abschluesse() const { return *FAbschluesse; }
  TCatalogs& Abschlussarten() const { return *FAbschlussarten; }
  TCatalogs& Empfehlungen() const { return *FEmpfehlungen; }
  TCatalogs& Fachstati() const { return *FFachstati; }
  TCatalogs& Niveaus() const { return *FNiveaus; }
  TGrades& Noten() const { return *FNoten; }
  TCatalogs& Unterrichtsarten() const { return *FUnterrichtsarten; }
  TCatalogs& Versetzungsarten() const { return *FVersetzungsarten; }
  TCatalogs& Zeugnisbeurteilungen() const { return *FZeugnisbeurteilungen; }
  TCatalogs& Leistungsarten() const { return *FLeistungsarten; }
  TCertificateComments& CertificateComments() const { return *FCertificateComments; }
  TClasses& Classes() const { return *FClasses; }
  TCourses& Courses() const { return *FCourses; }
  TStudents& Students() const { return *FStudents; }
  TDataOptions& Options() const { return *FOptions; }

  /// Key and value of each stored field of the project itself, in the order of the file; the lists are left out.
  void VisitFields(const Fields::TVisitor& visitor) const;

  /// Version of the program that wrote the file.
  const std::string& ProductVersion() const { return FProductVersion; }
  /// For documents that are made and not loaded.
  void SetProductVersion(std::string version) { FProductVersion = std::move(version); }
  void SetOptions(TVantrelPtr<TDataOptions> options) { FOptions = std::move(options); }
  /// Its first character as a number; -1 where that is no digit.
  int ProductEdition() const;

  /// Opens a file for editing, by the kind that its extension tells; an empty name means FileName. The file stays held.
  /// An unknown kind: nothing is read. Short memory raises EOutOfMemory. Which other failures raise, show a box or pass
  /// in silence goes by the kind:
  /// a missing or locked .kvrx and a locked file of the other kinds raise EVantrelFileHandleError; a damaged .kvrx
  /// shows an error box and leaves FileName empty; a missing or damaged file of the other kinds passes in silence
  /// (see LoadDamage).
  void LoadFile(const std::string& fileName);
  /// Reads a file without holding it, with writing denied to others meanwhile; raises whatever goes wrong. An unknown
  /// kind is not read and answers false.
  bool LoadForReading(const std::string& fileName);
  /// Writes the file in its kind; an empty name means FileName. An unknown kind: nothing is written. The file of
  /// FileName is held from then on, and no other. Failures go to the caller; Modified and the hold then stay. A
  /// password that XML cannot hold raises EVantrelException for an XML kind.
  void SaveFile(const std::string& fileName);
  /// The open file may be read only: it can be saved under another name alone.
  bool IsWriteProtected() const { return FIsWriteProtected; }
  /// False for an empty entry, an empty stored password, and any difference.
  bool CheckPassword(std::string_view enteredPassword) const;
  /// Sets the flag and calls OnModified, whether it changed or not.
  void SetModified(bool isModified);
  /// How often SaveFile has gone through.
  int SaveCount() const { return FSaveCount; }

  /// The one road by which records of the open project change. Each step marks the project as modified, whether
  /// anything is different afterwards or not, and is then told to the listeners.
  ///
  /// By the key of the record's stored field. Raises EVantrelException for a key that the record has not, and
  /// EConvertError for what the field cannot hold; nothing has changed then.
  void ChangeField(TVantrelRecord& record, std::string_view key, const TVariant& value);
  /// Null, and an item whose id the list holds: nothing, and nobody is told. The list takes the item. One that does not
  /// own its items, an item that it does not take and an index outside it raise EVantrelCollectionError; the item is
  /// freed then.
  void InsertItem(TVantrelDataList& list, int index, TVantrelPtr<TVantrelDataObject> item);
  /// The two raise EVantrelCollectionError for an index outside the list.
  void DeleteItem(TVantrelDataList& list, int index);
  void MoveItem(TVantrelDataList& list, int from, int to);
  /// An editor opens or closes: what is changed between the two by its field is one thing that the user did. An end
  /// without a beginning is nothing.
  void BeginEdit() { FListeners.Tell(TChangeMark::EditBegin); }
  void EndEdit() { FListeners.Tell(TChangeMark::EditEnd); }
  /// Who holds the token is told of every step, and of what lies between them.
  [[nodiscard]] TProjectListeners::TToken Listen(TProjectListeners::TListener listener,
                                                 TProjectListeners::TMarkListener onMark = {}) {
    return FListeners.Add(std::move(listener), std::move(onMark));
  }

  void AddCourse(TVantrelPtr<TCourse> course) { FCourses->AddCourse(std::move(course)); }
  /// New lists that do not own their courses, in the order of Courses. A course without a student is in none.
  TVantrelPtr<TCourses> CoursesByClass(const TVariant& classId) const;
  TVantrelPtr<TCourses> CoursesByStudent(const TVariant& studentId) const;
  TVantrelPtr<TCourses> CoursesBySubject(const TVariant& subjectId) const;
  /// The one rule for whether a grid cell may be edited: by the field name that the column's name has behind the prefix
  /// of either grid.
  bool EditableColumn(std::string_view columnName) const;
  /// Empty the table and fill it (see TCourses).
  void PopulateClassSubjects(TVantrelMemTable& memData, const TClass& schoolClass) const;
  void PopulateSubjects(TVantrelMemTable& memData) const;

  std::string_view StorageClassName() const override { return StorageName; }
  int GetVersion() const override { return 1000; }
  void DoCreate() override;
  void DoDestroy() override;
  void DoClear() override;
  void ReadData(TVantrelDataObjectReader& reader) override;
  /// A date that the form cannot hold raises EVantrelDateTimeError, which names its record and field.
  void WriteData(TVantrelDataObjectWriter& writer) const override;
  void BeforeOpenFile() override;
  void AfterOpenFile() override;
  void AfterStoreFile() override;

 private:
  friend class TJoinedChanges;
  static constexpr auto HeaderFields();
  static constexpr auto ListFields();
  template <class TPredicate>
  TVantrelPtr<TCourses> CoursesWhere(TPredicate predicate) const;
  void TellChange(const TProjectChange& change);
  void BeginChanges();
  void EndChanges();
  void LoadEncryptedXml(const std::string& fileName);
  void SaveEncryptedXml(const std::string& fileName);
  void ReadEnciphered(const std::string& fileName);
  void RequireStorablePassword() const;
  void HoldFile();

  std::unique_ptr<TVantrelFileStream> FExclusiveFileStream;
  bool FIsWriteProtected = false;
  TProjectListeners FListeners;
  int FOpenBrackets = 0;
  std::string FProductVersion;
  int FSaveCount = 0;
  TVantrelPtr<TCatalogs> FAbschluesse, FAbschlussarten, FEmpfehlungen, FFachstati, FNiveaus;
  TVantrelPtr<TGrades> FNoten;
  TVantrelPtr<TCatalogs> FUnterrichtsarten, FVersetzungsarten, FZeugnisbeurteilungen, FLeistungsarten;
  TVantrelPtr<TCertificateComments> FCertificateComments;
  TVantrelPtr<TClasses> FClasses;
  TVantrelPtr<TCourses> FCourses;
  TVantrelPtr<TStudents> FStudents;
  TVantrelPtr<TDataOptions> FOptions;
};

/// The changes of its scope belong together: they are one thing that the user did. Scopes may be nested; the outermost
/// one counts, and its begin and end are told to the listeners, whether anything changes between them or not.
class TJoinedChanges {
 public:
  /// The project outlives the scope.
  explicit TJoinedChanges(TMyTessaronProject& project) : FProject(project) { FProject.BeginChanges(); }
  TJoinedChanges(const TJoinedChanges&) = delete;
  TJoinedChanges& operator=(const TJoinedChanges&) = delete;
  ~TJoinedChanges() { FProject.EndChanges(); }

 private:
  TMyTessaronProject& FProject;
};

/// The catalogues of tokens, in the order of the file.
inline constexpr TCatalogs& (TMyTessaronProject::*ProjectCatalogs[])() const = {
    &TMyTessaronProject::Abschluesse,      &TMyTessaronProject::Abschlussarten,
    &TMyTessaronProject::Empfehlungen,     &TMyTessaronProject::Fachstati,
    &TMyTessaronProject::Niveaus,          &TMyTessaronProject::Unterrichtsarten,
    &TMyTessaronProject::Versetzungsarten, &TMyTessaronProject::Zeugnisbeurteilungen,
    &TMyTessaronProject::Leistungsarten};

/// The open project, or null: the only one that views and records see. Owned by the main window.
inline TMyTessaronProject* CurrentProject = nullptr;
