#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "VantrelDataIO.h"
#include "VantrelDataObserver.h"
#include "VantrelDataRegistry.h"
#include "VantrelExceptions.h"
#include "VantrelFileStamp.h"
#include "VantrelFileStreams.h"

/// What a document is doing.
enum class TVantrelDataStorageState { dssNormal, dssCreating, dssDestroying, dssClearing, dssLoading, dssSaving };

/// The form of a document in a stream. The caller chooses it; a file does not tell its own.
enum class TVantrelDataStorageFormat { dsfBinary, dsfXml, dsfJson };

/// What went wrong while a document was read, and where: for callers who want to know although the document opened.
struct TVantrelLoadDamage {
  std::string Message;
  /// In words, for instance "Byte 1200 von 47678" or "Zeile 12, /Storage/Noten".
  std::string Place;
};

/// Copies a file that cannot be read to "NAME.beschaedigt" beside it (see TVantrelSafeSave::CopyBeside).
void KeepBytesBeside(const std::string& name);

/// A document: the root of a tree of data objects, read from and written to files in three forms. Belongs to the main
/// thread.
class TVantrelDataStorage : public TVantrelAbstractDataObject {
 public:
  TVantrelDataStorage() = default;
  ~TVantrelDataStorage() override;

  /// The name of the document kind, under which its classes are registered.
  virtual std::string_view StorageClassName() const = 0;
  /// Goes into XML and JSON as "Version".
  virtual int GetVersion() const { return 1; }
  virtual void AfterNewFile() {}
  virtual void AfterOpenFile() {}
  virtual void AfterStoreFile() {}
  virtual void BeforeNewFile() {}
  virtual void BeforeOpenFile() {}
  virtual void BeforeStoreFile() {}
  virtual std::string GetDefaultFileName() const { return {}; }
  /// The XML file that LoadFromFile reads where the asked one is missing.
  virtual std::string GetFallbackFileName() const { return {}; }
  /// LoadFromFile and SaveToFile let other programs read and write the file meanwhile.
  virtual bool IsShared() const { return false; }

  const std::string& FileName() const { return FFileName; }
  void SetFileName(std::string fileName) { FFileName = std::move(fileName); }
  bool Modified() const { return FModified; }
  TVantrelDataStorageState State() const { return FState; }
  TVantrelDataObjectRegistry& Objects() { return FObjects; }
  TVantrelDataObserver& Observer() { return FObserver; }
  /// A stream on the file is held.
  bool IsFileOpen() const { return FFileStream != nullptr; }
  /// Another program has replaced or changed the file since it was opened for editing or saved. The next save keeps
  /// that version as "NAME.andere".
  bool IsFileChanged() const { return FStamp.IsOf(FFileName) && FStamp.IsOutdated(); }
  /// The next save first keeps what stands in the file beside it: another program's version, or what could not be read.
  bool KeepsOriginal() const;
  /// What a file may be open to at most that is made of the content of this document's file.
  const System::TFileRights& FileRights() const { return FStamp.Rights(); }
  /// The damage that the last load met, if any. A load that succeeds clears it.
  const std::optional<TVantrelLoadDamage>& LoadDamage() const { return FLoadDamage; }
  /// What the last load passed over, if it succeeded.
  const std::vector<TVantrelLoadNote>& LoadNotes() const { return FLoadNotes; }
  /// The last load failed, or part of the file got lost in it.
  bool IsDamaged() const;

  void Changed() override { FModified = true; }
  void Clear();
  void CloseFile();
  /// Closes the file and empties the document and its file name.
  void NewFile();

  /// Loads and lets the file go. A missing file (and missing fallback): nothing. Failures go to the caller;
  /// short memory, which is no damage, as EOutOfMemory, here and in all that read: the document is then empty.
  virtual void LoadFromFile(const std::string& name, TVantrelDataStorageFormat format);
  void LoadFromFile(TVantrelDataStorageFormat format) { LoadFromFile(std::string(FFileName), format); }
  /// The three open operations load and hold the file: for read and write with others reading (or for reading,
  /// where that fails), for reading only, for nobody else. An empty or missing name: nothing. A failure to open goes to
  /// the caller, short memory too; a failure to read does not (see LoadDamage), but lets the file go.
  void OpenFile(const std::string& name, TVantrelDataStorageFormat format);
  void OpenFile(TVantrelDataStorageFormat format) { OpenFile(std::string(FFileName), format); }
  void OpenFileReadOnly(const std::string& name, TVantrelDataStorageFormat format);
  void OpenFileReadOnly(TVantrelDataStorageFormat format) { OpenFileReadOnly(std::string(FFileName), format); }
  void OpenFileExclusive(const std::string& name, TVantrelDataStorageFormat format);
  /// Writes the file and lets it go. While a file is held the name is ignored, and the held sharing may refuse.
  virtual void SaveToFile(const std::string& name, TVantrelDataStorageFormat format);
  void SaveToFile(TVantrelDataStorageFormat format) { SaveToFile(std::string(FFileName), format); }
  /// Writes the held file anew and goes on holding it; nothing where none is held.
  void StoreFile(TVantrelDataStorageFormat format);
  /// Writes the named file and holds it, with others reading. After a failure the document has the name and the hold
  /// that it had before.
  void StoreFile(const std::string& name, TVantrelDataStorageFormat format);
  /// As the operation itself, false in place of any exception.
  bool TryLoadFromFile(const std::string& name, TVantrelDataStorageFormat format);
  bool TryLoadFromFile(TVantrelDataStorageFormat format) { return TryLoadFromFile(std::string(FFileName), format); }
  bool TrySaveToFile(const std::string& name, TVantrelDataStorageFormat format);
  bool TrySaveToFile(TVantrelDataStorageFormat format) { return TrySaveToFile(std::string(FFileName), format); }

  void LoadFromStream(TVantrelStream& stream, TVantrelDataStorageFormat format);
  void LoadFromBinStream(TVantrelStream& stream);
  void LoadFromXmlStream(TVantrelStream& stream);
  void LoadFromJsonStream(TVantrelStream& stream);
  /// Binary form behind zlib's decompression.
  void LoadFromZipStream(TVantrelStream& stream);
  void SaveToStream(TVantrelStream& stream, TVantrelDataStorageFormat format);
  void SaveToBinStream(TVantrelStream& stream);
  void SaveToXmlStream(TVantrelStream& stream);
  void SaveToJsonStream(TVantrelStream& stream);
  /// Binary form through zlib: maximum compression, 15 window bits.
  void SaveToZipStream(TVantrelStream& stream);

  /// Shows an error box for a failed file operation on FileName.
  void ReportFileError(const EVantrelException& exception) const;

  void DoClear() override;
  void AfterConstruction() override;
  void BeforeDestruction() override;

 protected:
  TVantrelDataStorage* AsStorage() override { return this; }
  /// To be called with an open file before and after it is read for editing: remembers what it was.
  void BeginReading(const TVantrelFileStream& file);
  void EndReading(const TVantrelFileStream& file) { FStamp.Seal(file.Handle()); }
  /// Remembers that the file of that name opened with damage.
  void NoteDamagedFile(const std::string& name) { FDamagedFile = name; }
  /// `held`, which may be null, is on the file of that name.
  static bool IsOn(const std::unique_ptr<TVantrelFileStream>& held, const std::string& name);
  /// The only way to write a file: keeps beside it what would be lost, saves, and leaves in `held` the stream on the
  /// new file with the sharing `access`. If it raises, `held` is as it was.
  void WriteFile(std::unique_ptr<TVantrelFileStream>& held, const std::string& name,
                 const std::vector<std::uint8_t>& bytes, TVantrelFileAccessMode access);
  void SetModifiedFlag(bool modified) { FModified = modified; }

  std::unique_ptr<TVantrelFileStream> FFileStream;

 private:
  friend class TVantrelDataObject;
  void OpenHeld(const std::string& name, TVantrelDataStorageFormat format, TVantrelFileAccessMode access,
                TVantrelFileOpenMode mode, bool readOnlyFallback);
  void Load(TVantrelDataObjectReader& reader);
  template <class TReader>
  void LoadThrough(TVantrelStream& stream);
  template <class TReader>
  void LoadWith(TVantrelStream& stream);
  template <class TWriter>
  void SaveThrough(TVantrelStream& stream);
  std::vector<std::uint8_t> WholeDocument(TVantrelDataStorageFormat format);
  void KeepOriginal(const std::string& name);
  void FreeUnclaimed();

  std::string FFileName;
  bool FModified = false;
  TVantrelDataObjectRegistry FObjects;
  TVantrelDataObserver FObserver;
  TVantrelDataStorageState FState = TVantrelDataStorageState::dssNormal;
  std::optional<TVantrelLoadDamage> FLoadDamage;
  std::vector<TVantrelLoadNote> FLoadNotes;
  std::string FDamagedFile;
  TVantrelFileStamp FStamp;
};
